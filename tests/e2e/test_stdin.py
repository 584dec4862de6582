"""Jobs that come on standard input, with a dialog."""

import hashlib
import os
import resource
import signal
import subprocess
import time

from harness import place, widgets
from harness.case import Case, DialogCase
from harness.streams import pattern, silent_pipe, slow_pipe

CHOOSER = "Select file(s) to print"
MEBIBYTE = 1 << 20


class Captured(DialogCase):
    def assert_printed(self, result, data):
        captured = result.arguments[-1]
        about = result.clients[0]["files"][captured]
        self.assertEqual(about["size"], len(data))
        self.assertEqual(about["sha256"], hashlib.sha256(data).hexdigest())
        self.assertEqual(about["mode"], 0o600)
        self.assertFalse(os.path.exists(captured))
        self.assertEqual(result.status, 0)

    def test_sizes(self):
        for size in (1, 4095, 4096, 4097, 8192, 100 * MEBIBYTE):
            data = pattern(size)
            with self.subTest(size=size):
                self.assert_printed(self.accepted(given=data), data)
            with self.subTest(size=size, handed_over=True):
                result = self.complete(given=data, environment={"PRINT_FROM_ORRN": ""})
                self.assert_printed(result, data)

    def test_slow_pipe(self):
        pieces = [b"first", b"x" * 5000, b"last"]
        with slow_pipe(pieces, first=1.0, between=0.4) as reading:
            self.assert_printed(self.accepted(given=reading), b"".join(pieces))

    def test_operands_leave_the_input_alone(self):
        file = self.file()
        with silent_pipe() as (reading, writing):
            os.write(writing, b"untouched")
            result = self.accepted(file, given=reading)
            self.assertEqual(os.read(reading, 100), b"untouched")
        self.assertEqual(result.arguments[-1], file)
        self.assertEqual(list(result.clients[0]["files"]), [file])

    def test_cancelled(self):
        run = self.start(given=b"text")
        dialog = self.dialog(run)
        self.assertEqual(len(run.captured()), 1)
        dialog.cancel()
        result = run.finish()
        self.assertEqual(result.status, 2)
        self.assertEqual(result.clients, [])


class Chooser(DialogCase):
    """Without input a file is asked for."""

    def choose(self, run, text):
        chooser = self.window(run, CHOOSER)
        chooser.find("text", "File name:").write(text)
        widgets.press(self.desktop, "Return")

    def test_empty_input_asks_at_once(self):
        run = self.start(given=b"")
        self.window(run, CHOOSER)
        widgets.press(self.desktop, "Escape")
        result = run.finish()
        self.assertEqual((result.status, result.clients), (0, []))

    def test_nothing_within_two_seconds(self):
        with silent_pipe() as (reading, _):
            begun = time.monotonic()
            run = self.start(given=reading)
            self.window(run, CHOOSER)
            self.assertGreaterEqual(time.monotonic() - begun, 2.0)
            widgets.press(self.desktop, "Escape")
            result = run.finish()
        self.assertEqual((result.status, result.clients), (0, []))

    def test_chosen_file_is_printed(self):
        file = self.file("chosen file.txt")
        with silent_pipe() as (reading, _):
            run = self.start("-P", "Plain", given=reading)
            self.choose(run, file)
            self.dialog(run).accept()
            result = run.finish()
        self.assertEqual(result.arguments[-1], file)
        self.assertEqual(result.arguments[:4], ["-#", "1", "-P", "Plain"])
        self.assertEqual(result.status, 0)

    def test_several_chosen_files(self):
        files = [self.file("one.txt"), self.file("two.txt")]
        run = self.start(given=b"")
        self.choose(run, '"%s" "%s"' % tuple(files))
        self.dialog(run).accept()
        self.assertEqual(run.finish().arguments[-2:], files)

    def test_chosen_file_and_cancelled_dialog(self):
        file = self.file()
        run = self.start(given=b"")
        self.choose(run, file)
        self.dialog(run).cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))
        self.assertTrue(os.path.exists(file))


class NotStored(Case):
    """Input that cannot be stored whole is not printed in part."""

    def assert_refused(self, result):
        self.assertEqual(result.status, 1)
        self.assertEqual(result.clients, [])
        self.assertIn("lpr: Nothing was printed: cannot write the temporary file: ", result.errors)

    def test_limit_of_file_sizes(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (MEBIBYTE, MEBIBYTE))
            # As a shell leaves it.
            signal.signal(signal.SIGXFSZ, signal.SIG_DFL)
        self.assert_refused(self.complete(given=pattern(2 * MEBIBYTE), prepare=limit))

    def test_limit_is_not_reached(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (MEBIBYTE, MEBIBYTE))
        result = self.complete(given=pattern(MEBIBYTE), prepare=limit)
        self.assertEqual(result.clients[0]["files"][result.arguments[0]]["size"], MEBIBYTE)

    def test_input_that_cannot_be_read(self):
        folder = os.open(self.folder, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        result = self.complete(given=folder)
        self.assertEqual(result.status, 1)
        self.assertEqual(result.clients, [])
        self.assertIn("lpr: Nothing was printed: cannot read standard input: ", result.errors)


class NotStoredWithDisplay(DialogCase):
    assert_refused = NotStored.assert_refused
    test_limit_of_file_sizes = NotStored.test_limit_of_file_sizes


if place.MAY_MOUNT:
    class FullDisk(Case):
        """On a real file system; elsewhere the limit of file sizes stands for it."""

        def complete_on_small_disk(self, given):
            folder = os.path.join(self.folder, "disk")
            os.mkdir(folder)
            subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "none", folder], check=True)
            self.addCleanup(subprocess.run, ["umount", folder], check=True)
            result = self.complete(given=given, environment={"TMPDIR": folder})
            self.assertEqual(os.listdir(folder), [])
            return result

        def test_too_much(self):
            result = self.complete_on_small_disk(pattern(100000))
            self.assertEqual(result.status, 1)
            self.assertEqual(result.clients, [])
            self.assertIn("lpr: Nothing was printed: cannot write the temporary file: "
                          "No space left on device", result.errors)

        def test_just_enough(self):
            result = self.complete_on_small_disk(pattern(65536))
            self.assertEqual(result.status, 0)
            self.assertEqual(result.clients[0]["files"][result.arguments[0]]["size"], 65536)
else:
    print("e2e: no mounts here, the cases of a full disk are left out, the limit of file sizes stands "
          "for it")
