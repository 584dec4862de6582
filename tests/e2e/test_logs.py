"""The diagnostic logs and the settings file."""

import os
import subprocess

from harness import place
from harness.case import DialogCase

LOGS = ("ipp_request.log", "PrinterOptions.log", "ipp_printer.log", "ipp_driver.log",
        "ipp_job.log", "ipp_class.log")
WARNING = "WARNING: configuration file not found\n"


def log(name):
    return os.path.join(place.LOGS, name)


class Logs(DialogCase):
    def setUp(self):
        super().setUp()
        self.remove_logs()
        self.addCleanup(self.remove_logs)

    def remove_logs(self):
        for name in LOGS:
            if os.path.lexists(log(name)):
                os.unlink(log(name))

    def test_created(self):
        self.accepted(self.file())
        for name in LOGS:
            with self.subTest(name):
                self.assertTrue(os.path.isfile(log(name)))

    def test_created_by_a_hand_over(self):
        self.complete("-Z", self.file())
        for name in LOGS:
            with self.subTest(name):
                self.assertTrue(os.path.isfile(log(name)))

    def test_truncated(self):
        for name in LOGS:
            with open(log(name), "w") as file:
                file.write("OLD LINE\n" * 1000)
        self.complete("-Z", self.file())
        for name in LOGS:
            with self.subTest(name), open(log(name)) as file:
                self.assertNotIn("OLD LINE", file.read())

    def test_requests_are_logged(self):
        self.accepted("-P", "Plain", self.file())
        self.assertGreater(os.path.getsize(log("ipp_request.log")), 0)

    def assert_left_alone(self, victim):
        self.accepted(self.file())
        for name in LOGS:
            with self.subTest(name), open(victim(name)) as file:
                self.assertEqual(file.read(), "precious")

    def victim(self, name):
        path = os.path.join(self.folder, "victim-" + name)
        if not os.path.exists(path):
            with open(path, "w") as file:
                file.write("precious")
        return path

    def test_symbolic_links_are_not_followed(self):
        for name in LOGS:
            os.symlink(self.victim(name), log(name))
        self.assert_left_alone(self.victim)

    def test_dangling_links_are_not_followed(self):
        for name in LOGS:
            os.symlink(os.path.join(self.folder, "made-" + name), log(name))
        self.accepted(self.file())
        for name in LOGS:
            self.assertFalse(os.path.exists(os.path.join(self.folder, "made-" + name)))

    def test_other_names_of_a_file_are_not_written(self):
        # A hard link must lie on the same file system.
        def victim(name):
            return log("victim-" + name)
        for name in LOGS:
            with open(victim(name), "w") as file:
                file.write("precious")
            self.addCleanup(os.unlink, victim(name))
            os.link(victim(name), log(name))
        self.assert_left_alone(victim)

    def test_pipes_do_not_hang_the_run(self):
        for name in LOGS:
            os.mkfifo(log(name))
        self.assertEqual(self.accepted(self.file()).status, 0)


if place.MAY_MOUNT:
    class Unwritable(DialogCase):
        """The folder of the logs lies on a file system that takes nothing."""

        def setUp(self):
            super().setUp()
            self.printed = self.file()
            self.usual = self.outcome()
            self.assertEqual(self.usual[0], ["idle, accepting jobs"])

        def outcome(self):
            """What the dialog says of the printer, and all that comes of the run."""
            seen = []
            result = self.accepted("-P", "Plain", "-o", "wrap", self.printed,
                                   work=lambda dialog: seen.append(dialog.status))
            return seen, result.status, result.arguments, result.output, result.errors

        def mount(self, options):
            subprocess.run(["mount", "-t", "tmpfs", "-o", options, "none", place.LOGS], check=True)
            self.addCleanup(subprocess.run, ["umount", place.LOGS], check=True)

        def test_full(self):
            self.mount("size=4k,mode=1777")
            with open(log("filler"), "wb") as filler:
                filler.write(bytes(4096))
            self.assertEqual(self.outcome(), self.usual)
            for name in LOGS:
                with self.subTest(name):
                    self.assertEqual(os.path.getsize(log(name)), 0)

        def test_read_only(self):
            self.mount("ro")
            self.assertEqual(self.outcome(), self.usual)
            self.assertEqual(os.listdir(place.LOGS), [])
else:
    print("e2e: no mounts here, a full and a read-only folder of the logs are left out")


class Settings(DialogCase):
    """The tree without `share` has no settings file."""

    def test_found(self):
        self.assertEqual(self.complete("-Z", self.file()).output, "")

    def test_not_found(self):
        program = self.own_program("bin", "lib")
        result = self.complete("-Z", self.file(), name=program, program=program)
        self.assertEqual(result.output, WARNING)
        self.assertEqual(result.status, 0)

    def test_not_found_with_a_dialog(self):
        program = self.own_program("bin", "lib")
        file = self.file()
        result = self.accepted(file, name=program, program=program)
        self.assertEqual(result.output, WARNING)
        self.assertEqual(result.arguments[-1], file)

    def test_in_the_working_folder(self):
        program = self.own_program("bin", "lib")
        run = self.start("-Z", self.file(), name=program, program=program,
                         place_file=("OEM.ini", "VENDOR=Tarvel\n"))
        self.assertEqual(run.finish().output, "")
