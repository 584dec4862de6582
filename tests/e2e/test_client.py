"""How the end of the system's client becomes the end of the run."""

import signal

from harness.case import Case, DialogCase

#: What a loaded machine is allowed; the time itself is printed.
_LATE_MS = 300
_RUNS = 5


class Status(Case):
    def run_client(self, order):
        return self.complete(self.file(), environment={"VESK_E2E_CLIENT": order}).status

    def test_status_is_passed_on(self):
        for status in range(128):
            with self.subTest(status):
                self.assertEqual(self.run_client("status %d" % status), status)

    def test_killed_by_a_signal(self):
        for number in (signal.SIGKILL, signal.SIGTERM, signal.SIGSEGV, signal.SIGPIPE):
            with self.subTest(number):
                self.assertEqual(self.run_client("signal %d" % number), 255)


class Delay(DialogCase):
    """From the client's end to the end that the shell sees."""

    def delay(self, result):
        return (result.ended - result.clients[0]["ended"]) / 1e6

    def assert_soon(self, delays):
        print("      the client's end is seen after %s ms" % ", ".join(
            "%.1f" % delay for delay in delays))
        self.assertLess(max(delays), _LATE_MS)

    def test_after_the_dialog(self):
        self.assert_soon([self.delay(self.accepted(self.file())) for _ in range(_RUNS)])

    def test_after_a_hand_over(self):
        self.assert_soon([self.delay(self.complete("-Z", self.file())) for _ in range(_RUNS)])
