"""The print server takes connections and does not answer."""

import os
import signal
import time

from harness import server, widgets
from harness.case import TITLE, DialogCase
from harness.waiting import until

#: All requests of one step may take this long together, in seconds.
_PATIENCE = 30


class ServerSilent(DialogCase):
    def silence(self):
        process = server.pid()
        os.kill(process, signal.SIGSTOP)
        self.addCleanup(os.kill, process, signal.SIGCONT)

    def assert_answers(self, condition, what, limit):
        begun = time.monotonic()
        until(condition, what, limit)
        print("      %s after %.1f s" % (what, time.monotonic() - begun))

    def assert_cancels(self, run, dialog):
        self.assertFalse(dialog.button("OK").has(widgets.ENABLED))
        dialog.cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_from_the_start(self):
        self.silence()
        run = self.start(given=b"text")
        self.assert_answers(lambda: widgets.has_window(self.desktop, run, TITLE), "the dialog",
                            _PATIENCE)
        dialog = self.dialog(run)
        self.assertEqual(dialog.destinations, [])
        self.assert_cancels(run, dialog)

    def test_while_the_dialog_is_open(self):
        run = self.start(given=b"text")
        dialog = self.dialog(run)
        entry = dialog.open_list().find("list item", "Plain")
        self.silence()
        entry.click()
        self.assert_answers(dialog.answers, "the dialog's answer", _PATIENCE)
        self.assert_cancels(run, dialog)

    def test_signal_while_it_waits(self):
        # Nobody has to wait for the server to get rid of the program.
        self.silence()
        before = _connections()
        run = self.start(given=b"text")
        path, = until(run.captured, "the captured input")
        until(lambda: _connections() > before, "the connection to the server")
        run.send(signal.SIGTERM)
        self.assertEqual(run.finish(limit=5).status, 15)
        self.assertFalse(os.path.exists(path))


def _connections():
    """How many connections the server's socket has, those included that it has not taken."""
    with open("/proc/net/unix") as file:
        listed = [line.split()[-1] for line in file]
    return listed.count(server.LISTENS_AT) - 1
