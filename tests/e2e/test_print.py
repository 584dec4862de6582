"""Real jobs: the system's own client, the server's own filters, pages in files."""

import os
import re
import subprocess

from harness import expected, place, server, widgets
from harness.case import DialogCase
from harness.waiting import until

_ABORTED, _COMPLETED = 8, 9


def pages_document(count):
    """A PostScript file whose pages say their number."""
    pages = "".join("%%%%Page: %d %d\n/Helvetica 40 selectfont 100 400 moveto (Page%d) show showpage\n"
                    % (number, number, number) for number in range(1, count + 1))
    return ("%%!PS-Adobe-3.0\n%%%%Pages: %d\n%%%%EndComments\n%s%%%%EOF\n" % (count, pages)).encode()


class PrintCase(DialogCase):
    def setUp(self):
        super().setUp()
        open(place.RECORDED, "w").close()
        self._before = set(self.job_ids())

    def job_ids(self):
        lines = server.command("lpstat", "-W", "all", "-o").splitlines()
        return [int(line.split()[0].rpartition("-")[2]) for line in lines]

    def client_arguments(self):
        """What the recorder in front of the system's client noted."""
        with open(place.RECORDED, "rb") as file:
            words = file.read().split(b"\0")[:-1]
        count = int(words[0])
        self.assertEqual(len(words), count + 1)
        return [os.fsdecode(word) for word in words[2:]]

    def printed_job(self):
        """The attributes of the one new job, when it is done."""
        number, = set(self.job_ids()) - self._before
        self._before.add(number)
        until(lambda: server.job_attributes(number)["job-state"] in (_COMPLETED, _ABORTED),
              "the end of job %d" % number)
        job = server.job_attributes(number)
        self.assertEqual(job["job-state"], _COMPLETED)
        return number, job

    def printed_file(self, number):
        path, = [os.path.join(place.PAGES, name) for name in os.listdir(place.PAGES)
                 if re.fullmatch(r"job-%d\.\w+" % number, name)]
        return path

    def printed(self, number):
        with open(self.printed_file(number), "rb") as file:
            return file.read()

    def page_texts(self, number):
        """The text of each page that came out."""
        path = self.printed_file(number)
        if not path.endswith(".pdf"):
            source, path = path, os.path.join(self.folder, "printed.pdf")
            subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=pdfwrite",
                            "-o", path, source], check=True, capture_output=True)
        about = subprocess.run(["pdfinfo", path], check=True, capture_output=True, text=True).stdout
        count = int(re.search(r"Pages:\s+(\d+)", about).group(1))
        text = subprocess.run(["pdftotext", path, "-"], check=True, capture_output=True,
                              text=True).stdout
        texts = [page.strip() for page in text.split("\f")][:count]
        self.assertEqual(len(texts), count)
        return texts

    def print(self, *arguments, work=None, given=None):
        self.assertEqual(self.accepted(*arguments, work=work, given=given).status, 0)
        return self.printed_job()


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
