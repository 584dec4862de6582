"""The system's client is not installed."""

from harness.case import DialogCase

WARNING = "ProcessEx::execute: failed to launch"


class NoClient(DialogCase):
    def assert_reported(self, result):
        self.assertEqual(result.status, 254)
        self.assertEqual(result.errors.strip(), WARNING)
        self.assertEqual(result.clients, [])

    def test_hand_over(self):
        self.assert_reported(self.complete("--ui", "False", self.file()))

    def test_hand_over_of_captured_input(self):
        self.assert_reported(self.complete(given=b"text", environment={"PRINT_FROM_ORRN": ""}))

    def test_dialog(self):
        self.assert_reported(self.accepted(self.file()))

    def test_dialog_with_captured_input(self):
        self.assert_reported(self.accepted(given=b"text"))
