"""Runs that go to the system's client without a dialog, although there is a display."""

import hashlib
import os

from harness.case import Case, DialogCase
from harness.streams import false_display, pattern, silent_pipe, slow_pipe

COMPANION = {"PRINT_FROM_ORRN": "1"}

FILE_NAMES = (
    b"two words.txt", b"'single'.txt", b'"double".txt', b"line\nbreak.txt", b"back\\slash.txt",
    b"$HOME `id` & ; *.txt", "L\u00f6sung \u00e9t\u00e9 \u65e5\u672c.txt".encode(),
    b"invalid\xff\xfe\xc3.txt", b"tab\tname.txt", b"-".join([b"dash", b"es"]), b"%s%n.txt",
)


class HandOver(DialogCase):
    """The dialog would be shown on the shared display, and the run would not end."""

    def assert_handed_over(self, *arguments, **settings):
        result = self.complete(*arguments, **settings)
        self.assertEqual(result.arguments, [os.fsdecode(argument) for argument in arguments])
        self.assertEqual(result.status, 0)

    def test_unknown_options(self):
        file = self.file()
        for arguments in (("-Z", file), (file, "-Z"), ("-P", "lp1", "-Zx", file), ("--what", file),
                          ("-#", "3", "-l", file, file), ("-hZp", "-T", "", file)):
            with self.subTest(arguments):
                self.assert_handed_over(*arguments)

    def test_missing_arguments(self):
        file = self.file()
        for option in ("-P", "-o", "-#", "-C", "-J", "-T", "-U", "-n"):
            with self.subTest(option):
                self.assert_handed_over(file, option)

    def test_order_is_kept(self):
        file, other = self.file(), self.file("other.txt")
        self.assert_handed_over(other, "-o", "b=2", file, "-Z", "-o", "a=1", "--", "-h")

    def test_companion_variable(self):
        file = self.file()
        for value in ("1", "", "0", "False"):
            with self.subTest(value):
                self.assert_handed_over("-P", "Laser", file, environment={"PRINT_FROM_ORRN": value})

    def test_window_switched_off(self):
        file = self.file()
        self.assert_handed_over("--ui", "False", file)
        self.assert_handed_over("--ui=False", file)
        self.assert_handed_over("--ui", "-P", "Plain", "False", file)

    def test_file_names_arrive_byte_by_byte(self):
        for name in FILE_NAMES:
            with self.subTest(name):
                file = self.file(name)
                result = self.complete(file, environment=COMPANION)
                self.assertEqual(result.arguments, [os.fsdecode(file)])
                self.assertEqual(result.clients[0]["files"][os.fsdecode(file)]["size"], 9)
                self.assert_handed_over("-Z", file)

    def test_arguments_arrive_byte_by_byte(self):
        file = self.file()
        for value in (b"", b" ", b"\xff\xfe", b"a\nb", "\u00e4".encode(), b"a=\"b c\" d='e'", b"\\"):
            with self.subTest(value):
                self.assert_handed_over("-Z", "-T", value, file)

    def test_captured_input_is_appended(self):
        data = pattern(5000)
        for arguments in (("-Z",), ("-P", "Laser", "--ui=False"), ("-h", "-T")):
            with self.subTest(arguments):
                result = self.complete(*arguments, given=data)
                *given, captured = result.arguments
                self.assertEqual(given, list(arguments))
                about = result.clients[0]["files"][captured]
                self.assertEqual(about["sha256"], hashlib.sha256(data).hexdigest())
                self.assertEqual(about["mode"], 0o600)
                self.assertFalse(os.path.exists(captured))

    def test_nothing_captured_when_nothing_comes(self):
        with silent_pipe() as (reading, _):
            result = self.complete("-Z", given=reading)
        self.assertEqual(result.arguments, ["-Z"])

    def test_toolkit_options_are_not_passed_on(self):
        file = self.file()
        display = self.desktop.display
        for options in (("-display", display), ("-style", "fusion"), ("-style=fusion",),
                        ("-platform", "xcb"), ("-platform", "offscreen"), ("--display", display),
                        ("-stylesheet", "x.qss"), ("-name", "n"), ("-title", "t"),
                        ("-geometry", "90x90"), ("-icon", "i"), ("-reverse",),
                        ("-display", display, "-style", "fusion", "-platform", "offscreen")):
            with self.subTest(options):
                result = self.complete(*options, "-Z", file)
                self.assertEqual(result.arguments, ["-Z", file])
                result = self.complete("-Z", *options, file, environment=COMPANION)
                self.assertEqual(result.arguments, ["-Z", file])

    def test_operands_after_two_dashes_are_no_toolkit_options(self):
        self.assert_handed_over("-Z", "--", "-style", "-display")


class NoDisplay(Case):
    """No dialog can be shown, so the client prints."""

    def assert_prints(self, environment):
        file = self.file()
        result = self.complete("-P", "Laser", "-o", "a=1", file, environment=environment)
        self.assertEqual(result.arguments, ["-P", "Laser", "-o", "a=1", file])
        self.assertEqual(result.status, 0)

        data = pattern(10000)
        result = self.complete("-P", "Laser", given=data, environment=environment)
        *given, captured = result.arguments
        self.assertEqual(given, ["-P", "Laser"])
        self.assertEqual(result.clients[0]["files"][captured]["sha256"],
                         hashlib.sha256(data).hexdigest())
        self.assertEqual(result.status, 0)

    def test_variables_unset(self):
        self.assert_prints({})

    def test_variables_empty(self):
        self.assert_prints({"DISPLAY": "", "WAYLAND_DISPLAY": ""})

    def test_display_that_is_not_there(self):
        self.assert_prints({"DISPLAY": "unix:" + os.path.join(self.folder, "nothing")})

    def test_wayland_display_that_is_not_there(self):
        self.assert_prints({"WAYLAND_DISPLAY": os.path.join(self.folder, "nothing")})

    def test_display_that_refuses(self):
        path = os.path.join(self.folder, "display")
        with false_display(path, refuses=True) as display:
            self.assert_prints({"DISPLAY": display})

    def test_display_that_never_answers(self):
        path = os.path.join(self.folder, "display")
        with false_display(path, refuses=False) as display:
            self.assert_prints({"DISPLAY": display})

    def test_wayland_display_that_never_answers(self):
        path = os.path.join(self.folder, "display")
        with false_display(path, refuses=False):
            self.assert_prints({"WAYLAND_DISPLAY": path})

    def test_slow_pipe_is_waited_for(self):
        # Longer than a run with a display waits before it asks for a file.
        with slow_pipe([b"first", b" and ", b"last"], first=2.5, between=0.2) as reading:
            result = self.complete(given=reading)
        captured, = result.arguments
        self.assertEqual(result.clients[0]["files"][captured]["sha256"],
                         hashlib.sha256(b"first and last").hexdigest())

    def test_empty_input(self):
        result = self.complete(given=b"")
        self.assertEqual(result.arguments, [])

    def test_temporary_folder_of_the_system(self):
        result = self.complete(given=b"text", environment={"TMPDIR": None})
        captured, = result.arguments
        self.assertEqual(os.path.dirname(captured), "/tmp")
        self.assertFalse(os.path.exists(captured))


class OtherDisplay(DialogCase):
    def test_option_beats_the_variable(self):
        file = self.file()
        nothing = "unix:" + os.path.join(self.folder, "nothing")
        result = self.complete("-display", nothing, file)
        self.assertEqual(result.arguments, [file])
