"""Real jobs: the system's own client, the server's own filters, pages in files."""

import os

from harness import expected, place, server, widgets
from harness.printing import PrintCase, pages_document
from harness.waiting import until


class Print(PrintCase):
    def test_document(self):
        file = self.file("document.ps", pages_document(3))
        wanted = expected.arguments("Laser")
        number, job = self.print(file)
        self.assertEqual(self.client_arguments(), wanted + [file])
        self.assertEqual(job["job-printer-uri"].rpartition("/")[2], "Laser")
        self.assertEqual(self.page_texts(number), ["Page1", "Page2", "Page3"])

    def test_standard_input(self):
        number, job = self.print("-T", "from a pipe", given=pages_document(2))
        self.assertEqual(job["job-name"], "from a pipe")
        self.assertEqual(self.page_texts(number), ["Page1", "Page2"])

    def test_hand_over(self):
        file = self.file("document.ps", pages_document(1))
        result = self.complete("-P", "Laser", "--ui", "False", file)
        # The client does not know the option: its status, no job.
        self.assertEqual(self.client_arguments(), ["-P", "Laser", "--ui", "False", file])
        self.assertNotEqual(result.status, 0)
        self.assertEqual(set(self.job_ids()), self._before)

    def test_companion(self):
        file = self.file("document.ps", pages_document(1))
        result = self.complete("-P", "Laser", file, environment={"PRINT_FROM_ORRN": "1"})
        self.assertEqual(result.status, 0)
        self.assertEqual(self.page_texts(self.printed_job()[0]), ["Page1"])

    def test_some_pages(self):
        file = self.file("document.ps", pages_document(5))

        def work(dialog):
            dialog.radio("Some pages:").check()
            dialog.pages.write("2-3,5")
        number, _ = self.print(file, work=work)
        self.assertEqual(self.page_texts(number), ["Page2", "Page3", "Page5"])

    def test_even_and_odd_pages(self):
        file = self.file("document.ps", pages_document(4))
        number, _ = self.print(file, work=lambda dialog: dialog.radio("Even pages").check())
        self.assertEqual(self.page_texts(number), ["Page2", "Page4"])
        number, _ = self.print(file, work=lambda dialog: dialog.radio("Odd pages").check())
        self.assertEqual(self.page_texts(number), ["Page1", "Page3"])

    def test_collated_copies(self):
        # The printer makes them, as the settings in front of the pages tell it.
        file = self.file("document.ps", pages_document(2))
        number, job = self.print(file, work=lambda dialog: dialog.set_copies(3))
        self.assertEqual(job["copies"], 3)
        self.assertEqual(job["multiple-document-handling"], "separate-documents-collated-copies")
        self.assertIn(b"%%Requirements: numcopies(3) collate\n", self.printed(number))
        self.assertEqual(self.page_texts(number), ["Page1", "Page2"])

    def test_uncollated_copies(self):
        file = self.file("document.ps", pages_document(2))

        def work(dialog):
            dialog.set_copies(3)
            dialog.check_box("Collate copies").uncheck()
        number, job = self.print(file, work=work)
        self.assertEqual(job["copies"], 3)
        self.assertEqual(job["multiple-document-handling"], "separate-documents-uncollated-copies")
        self.assertIn(b"%%Requirements: numcopies(3)\n", self.printed(number))

    def test_reverse_order(self):
        file = self.file("document.ps", pages_document(3))
        box = "Reverse All Pages (3,2,1)"
        number, job = self.print(file, work=lambda dialog: dialog.check_box(box).check())
        self.assertEqual(job["OutputOrder"], "Reverse")
        self.assertIn(b"*OutputOrder Reverse", self.printed(number))
        self._assert_normal_order_without_it(file)

    def _assert_normal_order_without_it(self, file):
        self.assertNotIn(b"*OutputOrder Reverse", self.printed(self.print(file)[0]))

    def test_class(self):
        file = self.file("document.ps", pages_document(1))
        number, job = self.print("-P", "Office", file)
        self.assertEqual(self.page_texts(number), ["Page1"])

    def test_queue_without_a_driver(self):
        file = self.file("document.txt", b"plain text\n")
        number, _ = self.print("-P", "Plain", file)
        self.assertEqual(self.printed(number), b"plain text\n")

    def test_file_names(self):
        for name in ("two words.ps", "'quotes\".ps", "line\nbreak.ps", "\u00e9t\u00e9 \u4e2d.ps"):
            with self.subTest(name):
                number, _ = self.print(self.file(name, pages_document(1)))
                self.assertEqual(self.page_texts(number), ["Page1"])

    def test_escaped_values_reach_the_server(self):
        file = self.file("document.ps", pages_document(1))
        values = ('a"b', "a\\b", "a`b", "a b", "a$b", '" \\`$')
        for value in values:
            with self.subTest(value):
                self.addCleanup(server.command, "lpoptions", "-x", "Laser")
                server.command("lpoptions", "-p", "Laser", "-o",
                               "vesk-note=" + expected.escaped(value))
                number, job = self.print(file)
                self.assertEqual(job["vesk-note"], value)


class Keyboard(PrintCase):
    """No mouse is touched."""

    def press(self, *keys):
        widgets.press(self.desktop, *keys)

    def type(self, text):
        widgets.user(self.desktop, "type", "--delay", "1", "--", text)

    def make_choices(self, dialog):
        """Another printer, three of five pages, two copies."""
        dialog.list.wait_for(widgets.FOCUSED)
        self.press("alt+Down")
        self.type("Photo")
        self.press("Return")
        until(lambda: dialog.destination == "Photo", "the destination")
        dialog.list.wait_for(widgets.FOCUSED)
        dialog.tab_to(dialog.radio("All pages"))
        self.press("Down", "Down", "Down")
        dialog.radio("Some pages:").wait_for(widgets.CHECKED)
        dialog.tab_to(dialog.pages)
        self.type("2-3,5")
        until(lambda: dialog.pages.text == "2-3,5", "the typed pages")
        dialog.tab_to(dialog.copies)
        self.press("Up")
        until(lambda: dialog.copies.value == 2, "two copies")

    def test_printed(self):
        file = self.file("document.ps", pages_document(5))
        run = self.start(file)
        dialog = self.dialog(run)
        self.make_choices(dialog)
        dialog.tab_to(dialog.check_box("Collate copies"))
        self.press("space")
        dialog.check_box("Collate copies").wait_for(widgets.CHECKED, False)
        self.press("alt+o")
        self.assertEqual(run.finish().status, 0)
        number, job = self.printed_job()
        self.assertEqual(self.client_arguments()[:4], ["-#", "2", "-P", "Photo"])
        self.assertEqual(job["job-printer-uri"].rpartition("/")[2], "Photo")
        self.assertEqual(job["copies"], 2)
        self.assertEqual(job["multiple-document-handling"], "separate-documents-uncollated-copies")
        self.assertIn(b"%%Requirements: numcopies(2)\n", self.printed(number))
        self.assertEqual(self.page_texts(number), ["Page2", "Page3", "Page5"])

    def test_cancelled(self):
        for keys in (["Escape"], ["alt+c"]):
            with self.subTest(keys):
                run = self.start(self.file("document.ps", pages_document(5)))
                dialog = self.dialog(run)
                self.make_choices(dialog)
                self.press(*keys)
                self.assertEqual(run.finish().status, 2)
                self.assertEqual(os.path.getsize(place.RECORDED), 0)
                self.assertEqual(set(self.job_ids()), self._before)


if place.MAY_ADMINISTRATE:
    class PrintAfterStart(PrintCase):
        def test_stopped_and_started(self):
            file = self.file("document.ps", pages_document(1))
            run = self.start("-P", "Stopped", file)
            dialog = self.dialog(run)
            dialog.start_printer()
            dialog.button("Start").wait_for(widgets.ENABLED, False)
            dialog.accept()
            self.assertEqual(run.finish().status, 0)
            self.assertEqual(self.page_texts(self.printed_job()[0]), ["Page1"])
