"""The print server does not run."""

from harness import widgets
from harness.case import DialogCase


class ServerDown(DialogCase):
    def assert_empty(self, dialog):
        self.assertEqual(dialog.destinations, [])
        for name in ("OK", "Properties...", "Start", "Set as User Default"):
            with self.subTest(name):
                self.assertFalse(dialog.button(name).has(widgets.ENABLED))

    def test_nothing_to_print_on(self):
        for arguments in ((), ("-P", "Laser")):
            with self.subTest(arguments):
                run = self.start(*arguments, self.file())
                dialog = self.dialog(run)
                self.assert_empty(dialog)
                dialog.cancel()
                result = run.finish()
                self.assertEqual((result.status, result.clients), (2, []))

    def test_return_does_not_print(self):
        run = self.start(given=b"text")
        dialog = self.dialog(run)
        self.assertFalse(dialog.button("OK").has(widgets.ENABLED))
        widgets.press(self.desktop, "Return", "alt+o")
        self.assertTrue(dialog.is_open())
        widgets.press(self.desktop, "Escape")
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_hand_over_does_not_need_it(self):
        file = self.file()
        self.assertEqual(self.complete("-Z", file).arguments, ["-Z", file])
