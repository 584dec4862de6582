"""Cases that print real jobs and look at what came of them."""

import os
import re
import subprocess

from . import expected, place, server
from .case import DialogCase
from .properties import PropertiesDialog
from .waiting import until

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


class PropertiesCase(PrintCase):
    """Cases that set a destination's options in the properties dialog, and print with them."""

    #: What the dialog saves with nothing changed on its tabs.
    ALWAYS = {"orientation-requested": "3", "columns": "1", "cpi": "10", "lpi": "6",
              "scaling": "100"}

    def open_properties(self, destination, content=pages_document(2), name="pages.ps", **settings):
        """Opens the dialog of a destination whose options are not saved yet."""
        self.start_printing(destination, content, name, **settings)
        return self.print_dialog.properties()

    def start_printing(self, destination, content=pages_document(2), name="pages.ps", **settings):
        """Opens the print dialog of the destination."""
        # Not by lpoptions, which also changes the options of instances.
        self.addCleanup(server.keep_saved_options())
        self.saved_before = server.saved_options()
        self.destination = destination
        self.printing_run = self.start("-P", destination, self.file(name, content), **settings)
        self.print_dialog = self.dialog(self.printing_run)

    def properties_dialog(self):
        """The properties dialog that has been opened."""
        return PropertiesDialog(self, self.printing_run, self.destination)

    def assert_saved(self, options):
        """These options are saved and no others, and nothing of other destinations has changed."""
        options = {**self.ALWAYS, **options}
        self.assertEqual(server.saved_options(), {**self.saved_before, self.destination: {
            name: value for name, value in options.items() if value is not None}})

    def print_with(self, options):
        """Accepts the print dialog; the job's number and attributes.

        The client gets what is saved, these options among that.
        """
        wanted = expected.arguments(self.destination)
        self.print_dialog.accept()
        result = self.printing_run.finish()
        self.assertEqual((result.status, result.errors), (0, ""))
        given = self.client_arguments()
        self.assertEqual(given[:-1], wanted)
        words = re.split(r"(?<!\\) ", given[-2])
        for name, value in options.items():
            self.assertIn("%s=%s" % (name, expected.escaped(value)), words)
        return self.printed_job()

    def assert_feature(self, number, feature, code):
        """The printed file has an option's code."""
        self.assertIn("%%%%BeginFeature: *%s\n%s\n" % (feature, code),
                      self.printed(number).decode())
