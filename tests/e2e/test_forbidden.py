"""The server refuses root: a Start that never succeeds."""

from harness import place, widgets
from harness.waiting import until
from test_password import READY, STOPPED, TITLE, PasswordCase


class Forbidden(PasswordCase):
    def give_passwords(self):
        """Root is known by the process. Others are asked, until the server believes or they cancel."""
        if place.IS_ROOT:
            return
        self.answer(self.prompt(), "Return", text=place.PASSWORD)
        if place.RELOCATED:
            # Here the server knows no password, so it asks again.
            self.answer(self.prompt(), "Return", text=place.PASSWORD)
            self.answer(self.prompt(), "Escape")

    def test_says_so_and_goes_on(self):
        dialog = self.open_dialog("Stopped", STOPPED)
        dialog.button("Start").click()
        self.give_passwords()
        until(dialog.answers, "the dialog")
        self.assertFalse(widgets.has_window(self.desktop, self.asking_run, TITLE))
        self.assertEqual(dialog.status, STOPPED)
        self.assertTrue(dialog.button("Start").has(widgets.ENABLED))
        self.assert_stopped()
        dialog.choose("Plain")
        self.assertEqual(dialog.status, READY)
        dialog.accept()
        result = self.asking_run.finish()
        self.assertEqual((result.status, result.arguments[2:4]), (0, ["-P", "Plain"]))

    def test_again(self):
        dialog = self.open_dialog("Stopped", STOPPED)
        dialog.button("Start").click()
        self.give_passwords()
        until(dialog.answers, "the dialog")
        dialog.button("Start").click()
        # The password was right: it is not asked for any more.
        if place.RELOCATED:
            self.give_passwords()
        until(dialog.answers, "the dialog")
        self.assert_stopped()
        self.assert_cancels(dialog)
