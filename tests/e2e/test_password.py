"""An ordinary user starts printers, for which the server wants root's password."""

import base64
import os
import pty

from harness import place, server, widgets
from harness.case import DialogCase
from harness.waiting import until

TITLE = "Authorization"
READY = "idle, accepting jobs"
STOPPED = "stopped, accepting jobs"
REJECTING = "idle, rejecting jobs"


def as_root(*command):
    """Runs a command of the print system that asks for root's password on its terminal."""
    pid, terminal = pty.fork()
    if pid == 0:
        os.execvp(command[0], [command[0], "-U", "root", *command[1:]])
    with os.fdopen(terminal, "r+b", buffering=0) as asked:
        assert b"Password for root" in asked.read(1000)
        asked.write(place.PASSWORD.encode() + b"\n")
        _read_to_the_end(asked)
    assert os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]) == 0


def _read_to_the_end(terminal):
    try:
        while terminal.read(1000):
            pass
    except OSError:
        # A terminal that nobody has open any more.
        pass


class PasswordCase(DialogCase):
    def open_dialog(self, name, status):
        self.asking_run = self.start("-P", name, self.file())
        dialog = self.dialog(self.asking_run)
        self.assertEqual(dialog.status, status)
        return dialog

    def prompt(self):
        prompt = self.window(self.asking_run, TITLE)
        prompt.find("label", "Please, enter the root password:")
        return prompt

    def answer(self, prompt, *keys, text=None):
        """Types into the prompt and waits until it is gone."""
        if text:
            widgets.user(self.desktop, "type", "--delay", "1", text)
        widgets.press(self.desktop, *keys)
        until(lambda: not prompt.is_there(), "the end of the prompt")

    def assert_stopped(self, name="Stopped"):
        self.assertRegex(server.command("lpstat", "-p", name), "^printer %s disabled since" % name)

    def assert_cancels(self, dialog):
        self.assertTrue(dialog.is_open())
        dialog.cancel()
        result = self.asking_run.finish()
        self.assertEqual((result.status, result.clients), (2, []))


if not place.IS_ROOT:
    class NotGiven(PasswordCase):
        """The printer stays as it is and the dialog goes on."""

        def assert_goes_on(self, dialog):
            self.assertEqual(dialog.status, STOPPED)
            self.assertTrue(dialog.button("Start").has(widgets.ENABLED))
            self.assert_stopped()
            dialog.choose("Plain")
            self.assertEqual(dialog.status, READY)
            dialog.accept()
            result = self.asking_run.finish()
            self.assertEqual((result.status, result.arguments[2:4]), (0, ["-P", "Plain"]))

        def test_cancelled(self):
            # No text is no password.
            for keys in (["Escape"], ["Tab", "Tab", "space"], ["Return"]):
                with self.subTest(keys):
                    dialog = self.open_dialog("Stopped", STOPPED)
                    dialog.button("Start").click()
                    self.answer(self.prompt(), *keys)
                    until(dialog.answers, "the dialog")
                    self.assert_goes_on(dialog)

        def test_asked_again_after_cancel(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            for _ in range(2):
                dialog.button("Start").click()
                self.answer(self.prompt(), "Escape")
                until(dialog.answers, "the dialog")
            self.assert_goes_on(dialog)

        def test_what_is_typed_is_not_shown(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.button("Start").click()
            prompt = self.prompt()
            widgets.user(self.desktop, "type", "--delay", "1", place.PASSWORD)
            self.assertNotIn(place.PASSWORD, prompt.find("text").text)
            self.answer(prompt, "Escape")
            until(dialog.answers, "the dialog")
            self.assert_goes_on(dialog)

        def test_wrong(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.button("Start").click()
            for text in ("wrong", place.PASSWORD[:-1], place.PASSWORD + "x"):
                self.answer(self.prompt(), "Return", text=text)
                self.assert_stopped()
            self.answer(self.prompt(), "Escape")
            until(dialog.answers, "the dialog")
            self.assert_goes_on(dialog)


if not place.IS_ROOT and place.MAY_ADMINISTRATE:
    class Given(PasswordCase):
        def setUp(self):
            super().setUp()
            self.stop_again()
            self.addCleanup(self.stop_again)

        def stop_again(self):
            as_root("cupsdisable", "Stopped")
            as_root("cupsreject", "Rejecting")

        def assert_started(self, dialog, name):
            until(lambda: dialog.status == READY, "the printer's start")
            self.assertFalse(dialog.button("Start").has(widgets.ENABLED))
            self.assertRegex(server.command("lpstat", "-p", name), "^printer %s is idle" % name)
            self.assertRegex(server.command("lpstat", "-a", name), "^%s accepting requests" % name)

        def test_asked_once_in_a_run(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.button("Start").click()
            self.answer(self.prompt(), "Return", text="wrong")
            self.answer(self.prompt(), "Return", text=place.PASSWORD)
            self.assert_started(dialog, "Stopped")
            dialog.choose("Rejecting")
            self.assertEqual(dialog.status, REJECTING)
            dialog.button("Start").click()
            self.assert_started(dialog, "Rejecting")
            # Nor for the first one, which somebody has stopped meanwhile.
            as_root("cupsdisable", "Stopped")
            dialog.choose("Stopped")
            self.assertEqual(dialog.status, STOPPED)
            dialog.button("Start").click()
            self.assert_started(dialog, "Stopped")
            self.assert_cancels(dialog)

        def test_told_to_nobody(self):
            pid = self.open_given()
            for name in ("mem", "environ", "maps"):
                with self.subTest(name), self.assertRaises(PermissionError):
                    open("/proc/%d/%s" % (pid, name), "rb").close()
            widgets.press(self.desktop, "Return")
            result = self.asking_run.finish()
            client, = result.clients
            self.assert_silent("the client", repr((client["arguments"], client["environment"])))
            self.assert_silent("the output", result.output + result.errors)
            names = [name for name in os.listdir(place.LOGS) if name.endswith(".log")]
            self.assertIn("ipp_request.log", names)
            for name in names:
                with open(os.path.join(place.LOGS, name), errors="backslashreplace") as file:
                    self.assert_silent(name, file.read())

        def open_given(self):
            """The process of a run that was given the password, with the dialog's OK in focus."""
            dialog = self.open_dialog("Stopped", STOPPED)
            pid = self.asking_run.pid
            # Until there is a password, it is a process like any other of the user's.
            open("/proc/%d/environ" % pid, "rb").close()
            dialog.button("Start").click()
            self.answer(self.prompt(), "Return", text=place.PASSWORD)
            self.assert_started(dialog, "Stopped")
            with open("/proc/%d/cmdline" % pid, errors="backslashreplace") as file:
                self.assert_silent("the command line", file.read())
            dialog.tab_to(dialog.button("OK"))
            return pid

        def assert_silent(self, what, text):
            credentials = base64.b64encode(b"root:" + place.PASSWORD.encode()).decode()
            for secret in (place.PASSWORD, credentials):
                self.assertNotIn(secret, text, what)

        def test_next_run_asks_again(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.button("Start").click()
            self.answer(self.prompt(), "Return", text=place.PASSWORD)
            self.assert_started(dialog, "Stopped")
            self.assert_cancels(dialog)
            dialog = self.open_dialog("Rejecting", REJECTING)
            dialog.button("Start").click()
            self.answer(self.prompt(), "Escape")
            until(dialog.answers, "the dialog")
            self.assertEqual(dialog.status, REJECTING)
            self.assertRegex(server.command("lpstat", "-a", "Rejecting"),
                             "^Rejecting not accepting requests")
            self.assert_cancels(dialog)

        def test_printed_after_the_start(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.start_printer()
            self.assert_started(dialog, "Stopped")
            dialog.accept()
            result = self.asking_run.finish()
            self.assertEqual((result.status, result.arguments[2:4]), (0, ["-P", "Stopped"]))
else:
    print("e2e: this server has no password that a test could give")

if place.IS_ROOT:
    class NotAsked(PasswordCase):
        """The server knows root by the process."""

        def test_started(self):
            dialog = self.open_dialog("Stopped", STOPPED)
            dialog.button("Start").click()
            until(lambda: dialog.status == READY, "the printer's start")
            self.assertRegex(server.command("lpstat", "-p", "Stopped"), "^printer Stopped is idle")
            self.assert_cancels(dialog)
