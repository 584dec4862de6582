"""Start of a printer from the dialog. Others than root are asked for root's password."""

from harness import place, widgets
from harness.case import DialogCase
from harness.waiting import until

if place.MAY_ADMINISTRATE:
    class Started(DialogCase):
        """Each printer is started once: it stays started."""

        def assert_printed_after_start(self, name, status):
            file = self.file()
            run = self.start("-P", name, file)
            dialog = self.dialog(run)
            self.assertEqual(dialog.status, status)
            self.assertTrue(dialog.button("Start").has(widgets.ENABLED))
            dialog.accept()
            dialog.box("Warning!")
            widgets.press(self.desktop, "Return")
            until(lambda: not widgets.has_window(self.desktop, run, "Warning!"), "the end of the box")
            dialog.start_printer()
            until(lambda: dialog.status == "idle, accepting jobs", "the printer's start")
            self.assertFalse(dialog.button("Start").has(widgets.ENABLED))
            dialog.accept()
            result = run.finish()
            # The options are those from before the start.
            self.assertEqual(result.arguments[:5], ["-#", "1", "-P", name, "-h"])
            self.assertEqual(result.arguments[-1], file)
            self.assertEqual(result.status, 0)

        def test_stopped(self):
            self.assert_printed_after_start("Stopped", "stopped, accepting jobs")

        def test_rejecting(self):
            self.assert_printed_after_start("Rejecting", "idle, rejecting jobs")
else:
    print("e2e: this server knows no password, so no printer can be started")

if not place.IS_ROOT:
    class PasswordRefused(DialogCase):
        """Without the password nothing changes."""

        def test_start_refused(self):
            run = self.start("-P", "Rejecting", self.file())
            dialog = self.dialog(run)
            dialog.button("Start").click()
            self.window(run, "Authorization")
            widgets.press(self.desktop, "Escape")
            until(lambda: not widgets.has_window(self.desktop, run, "Authorization"), "its end")
            self.assertEqual(dialog.status, "idle, rejecting jobs")
            self.assertTrue(dialog.button("Start").has(widgets.ENABLED))
            dialog.cancel()
            self.assertEqual(run.finish().status, 2)
