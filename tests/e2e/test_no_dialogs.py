"""The library with the dialogs is missing, or is none."""

import os

from harness.case import DialogCase

MESSAGE = "lpr: The print dialog cannot be shown, printing without it: "
LIBRARY = "libvesk_dialogs.so"


class NoDialogs(DialogCase):
    def setUp(self):
        super().setUp()
        self.program = self.own_program("bin", "share")

    def run_own(self, *arguments, **settings):
        return self.complete(*arguments, program=self.program, name=self.program, **settings)

    def assert_told(self, result):
        self.assertEqual(result.status, 0)
        self.assertEqual(result.errors.count("\n"), 1, result.errors)
        self.assertTrue(result.errors.startswith(MESSAGE + LIBRARY), result.errors)

    def test_file(self):
        file = self.file()
        for arguments in ([file], ["-P", "Plain", "-#", "2", file], ["-o", "a=b", "-T", "t", file]):
            with self.subTest(arguments):
                result = self.run_own(*arguments)
                self.assert_told(result)
                self.assertEqual(result.arguments, arguments)

    def test_captured_input(self):
        result = self.run_own("-P", "Plain", given=b"text")
        self.assert_told(result)
        self.assertEqual(result.arguments[:2], ["-P", "Plain"])
        self.assertEqual(len(result.arguments), 3)
        self.assertFalse(os.path.exists(result.arguments[2]))

    def test_library_that_is_none(self):
        path = os.path.join(os.path.dirname(os.path.dirname(self.program)), "lib", LIBRARY)
        os.makedirs(os.path.dirname(path))
        with open(path, "w") as file:
            file.write("text")
        file = self.file()
        result = self.run_own(file)
        self.assertEqual((result.status, result.arguments), (0, [file]))
        self.assertTrue(result.errors.startswith(MESSAGE), result.errors)
        self.assertIn("/bin/../lib/%s: file too short" % LIBRARY, result.errors)

    def test_nothing_is_said_where_no_dialog_is_due(self):
        file = self.file()
        result = self.run_own("--ui", "False", file)
        self.assertEqual((result.status, result.arguments, result.errors),
                         (0, ["--ui", "False", file], ""))
