"""Signals that end a run: the captured input must not stay behind."""

import os
import signal
import time

from harness.case import Case, DialogCase
from harness.streams import silent_pipe
from harness.waiting import until

SIGNALS = (signal.SIGHUP, signal.SIGINT, signal.SIGTERM)
_MOMENTS = 40


class WithDialog(DialogCase):
    def assert_ended(self, run, number):
        result = run.finish()
        self.assertEqual((result.status, result.clients), (int(number), []))

    def test_before_the_input(self):
        for number in SIGNALS:
            with self.subTest(number), silent_pipe() as (reading, _):
                run = self.start(given=reading)
                until(lambda: _catches(run.pid, number), "the handler")
                run.send(number)
                self.assert_ended(run, number)

    def test_during_the_capture(self):
        for number in SIGNALS:
            with self.subTest(number), silent_pipe() as (reading, writing):
                run = self.start(given=reading)
                os.write(writing, b"x" * 5000)
                path, = until(run.captured, "the captured input")
                until(lambda: os.path.getsize(path) == 5000, "all of the input")
                run.send(number)
                self.assert_ended(run, number)
                self.assertFalse(os.path.exists(path))

    def test_at_the_dialog(self):
        for number in SIGNALS:
            with self.subTest(number):
                run = self.start(given=b"text")
                self.dialog(run)
                path, = run.captured()
                run.send(number)
                self.assert_ended(run, number)
                self.assertFalse(os.path.exists(path))

    def test_at_the_file_chooser(self):
        for number in SIGNALS:
            with self.subTest(number):
                run = self.start(given=b"")
                self.window(run, "Select file(s) to print")
                run.send(number)
                self.assert_ended(run, number)

    def test_while_the_client_runs(self):
        for number in SIGNALS:
            with self.subTest(number):
                go_on = os.path.join(self.folder, "go-on-%d" % number)
                run = self.start(given=b"text", environment={"VESK_E2E_WAIT_FOR": go_on})
                self.dialog(run).accept()
                until(run.client_runs, "the client")
                path, = run.captured()
                run.send(number)
                until(run.has_ended, "the end of the run")
                self.assertFalse(os.path.exists(path))
                open(go_on, "w").close()
                until(run.client_has_ended, "the client's end")
                self.assertEqual(run.finish().status, int(number))


def _catches(pid, number):
    """Whether the process has a handler for the signal."""
    with open("/proc/%d/status" % pid) as file:
        caught = next(line for line in file if line.startswith("SigCgt:"))
    return bool(int(caught.split()[1], 16) >> (number - 1) & 1)


def _wait_until(moment):
    until(lambda: time.monotonic() >= moment, "the moment")


class AtAnyMoment(Case):
    def test_no_file_stays(self):
        """The signals come at moments spread over the whole run, each in turn."""
        begun = time.monotonic()
        self.complete("--ui=False", given=b"x" * 100000)
        usual = time.monotonic() - begun
        for moment in range(_MOMENTS):
            number = SIGNALS[moment % len(SIGNALS)]
            with self.subTest(moment), silent_pipe() as (reading, writing):
                os.write(writing, b"x" * 50000)
                os.close(writing)
                begun = time.monotonic()
                run = self.start("--ui=False", given=reading)
                _wait_until(begun + usual * moment / _MOMENTS)
                run.send(number)
                until(run.is_over, "the end")
                # Before the handler is there the signal itself ends the run; after the end it is
                # too late.
                self.assertIn(run.finish().status, (int(number), -int(number), 0))
