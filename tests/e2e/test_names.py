"""Queues whose names are not plain ASCII. The server takes all but blanks and / \\ ? ' " #."""

import os
import urllib.parse

from harness import place, server
from harness.printing import PrintCase, pages_document
from harness.waiting import until

NAMES = ("B\u00fcro", "\u041f\u0435\u0447\u0430\u0442\u044c", "\u4e2d\u6587", "R&D+50%;~")
_DRIVER = os.path.join(os.path.dirname(os.path.realpath(__file__)), "../../world/ppd/Laser.ppd")


class NamesCase(PrintCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name in NAMES:
            server.command("lpadmin", "-U", "root", "-p", name, "-E", "-P", _DRIVER,
                           "-v", "tofile:" + place.PAGES)
            cls.addClassCleanup(server.command, "lpadmin", "-U", "root", "-x", name)

    def document(self):
        return self.file("document.ps", pages_document(1))

    def assert_printed_on(self, name, result):
        """That the client was told so, in UTF-8, and that the job came to this queue."""
        self.assertEqual(result.status, 0)
        with open(place.RECORDED, "rb") as file:
            self.assertEqual(file.read().count(b"\0-P\0" + name.encode() + b"\0"), 1)
        open(place.RECORDED, "w").close()
        number, job = self.printed_job()
        self.assertEqual(urllib.parse.unquote(job["job-printer-uri"].rpartition("/")[2]), name)
        self.assertEqual(self.page_texts(number), ["Page1"])


class Names(NamesCase):
    def test_of_the_command_line(self):
        file = self.document()
        for locale, names in (("C.UTF-8", NAMES), ("C", NAMES[:1])):
            for name in names:
                with self.subTest(name, locale=locale):
                    run = self.start("-P", name, file, environment={"LC_ALL": locale})
                    dialog = self.dialog(run)
                    self.assertEqual(dialog.destination, name)
                    self.assertEqual(dialog.status, "idle, accepting jobs")
                    dialog.accept()
                    result = run.finish()
                    arguments = self.client_arguments()
                    self.assertEqual(arguments[:4], ["-#", "1", "-P", name])
                    self.assertEqual(arguments[-1], file)
                    self.assert_printed_on(name, result)

    def test_chosen_in_the_dialog(self):
        file = self.document()
        for name in NAMES:
            with self.subTest(name):
                result = self.accepted(file, work=lambda dialog, n=name: dialog.choose(n))
                self.assert_printed_on(name, result)

    def test_handed_over(self):
        file = self.document()
        for name in NAMES:
            with self.subTest(name):
                result = self.complete("-P", name, file, environment={"PRINT_FROM_ORRN": "1"})
                self.assert_printed_on(name, result)


if place.IS_ROOT:
    class Started(NamesCase):
        """Others would need a password, which this server has not."""

        def test_started(self):
            name = NAMES[0]
            server.command("cupsdisable", "-U", "root", name)
            run = self.start("-P", name, self.document())
            dialog = self.dialog(run)
            self.assertEqual(dialog.status, "stopped, accepting jobs")
            dialog.button("Start").click()
            until(lambda: dialog.status == "idle, accepting jobs", "the printer's start")
            self.assertIn(" idle. ", server.command("lpstat", "-p", name))
            dialog.accept()
            self.assert_printed_on(name, run.finish())
else:
    print("e2e: without a password no printer can be started here")
