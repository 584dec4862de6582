"""The print server goes away while the dialog is open."""

from harness import server, widgets
from harness.case import DialogCase
from harness.waiting import until


class ServerLost(DialogCase):
    def lose_server(self):
        server.stop()
        self.addCleanup(server.start)

    def test_cancelled(self):
        run = self.start(given=b"text")
        dialog = self.dialog(run)
        self.lose_server()
        dialog.cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_accepted_without_noticing(self):
        # What the dialog knows is enough for a job; the client says what it thinks of it.
        file = self.file()
        run = self.start("-P", "Plain", file, environment={"VESK_E2E_CLIENT": "status 1"})
        dialog = self.dialog(run)
        self.lose_server()
        dialog.accept()
        result = run.finish()
        self.assertEqual(result.arguments[:4], ["-#", "1", "-P", "Plain"])
        self.assertEqual(result.status, 1)

    def test_another_destination(self):
        run = self.start(self.file())
        dialog = self.dialog(run)
        self.lose_server()
        dialog.choose("Plain")
        for name in ("OK", "Properties...", "Start", "Set as User Default"):
            with self.subTest(name):
                dialog.button(name).wait_for(widgets.ENABLED, False)
        dialog.cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_start_of_a_stopped_printer(self):
        run = self.start("-P", "Stopped", self.file())
        dialog = self.dialog(run)
        self.lose_server()
        dialog.button("Start").click()
        dialog.button("OK").wait_for(widgets.ENABLED, False)
        dialog.cancel()
        self.assertEqual(run.finish().status, 2)

    def test_back_again(self):
        file = self.file()
        run = self.start(file)
        dialog = self.dialog(run)
        server.stop()
        dialog.choose("Plain")
        dialog.button("OK").wait_for(widgets.ENABLED, False)
        server.start()
        dialog.choose("Photo")
        dialog.button("OK").wait_for(widgets.ENABLED)
        until(lambda: dialog.status == "idle, accepting jobs", "the printer's state")
        dialog.accept()
        self.assertEqual(run.finish().arguments[2:4], ["-P", "Photo"])
