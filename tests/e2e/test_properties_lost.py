"""The destination or the print server goes away while the properties dialog is open."""

from harness import place, server
from harness.printing import PropertiesCase
from harness.properties import ADVANCED


class Lost(PropertiesCase):
    def choose(self, properties):
        properties.radio("Landscape").check()
        properties.show(ADVANCED)
        properties.set_choice("Media Type", "Glossy Photo Paper")

    def assert_goes_on(self, properties):
        properties.wait_for_end()
        self.print_dialog.cancel()
        self.assertEqual(self.printing_run.finish().status, 2)

    def test_server(self):
        properties = self.open_properties("Photo")
        server.stop()
        self.addCleanup(server.start)
        self.choose(properties)
        properties.button("OK").click()
        box = properties.box("Options Not Saved")
        self.assertEqual(
            box.find("label").name,
            'The options of "Photo" could not be saved: the print server does not answer, or the '
            "file of the saved options cannot be written. The changes are listed below; they will "
            "not apply to what you print.")
        lines = box.find("text").text.splitlines()
        for line in ("MediaType = Glossy", "orientation-requested = 4"):
            self.assertIn(line, lines)
        box.find("push button", "OK").click()
        self.assert_goes_on(properties)
        self.assertEqual(server.saved_options(), self.saved_before)

    def test_destination(self):
        server.command("lpadmin", "-U", "root", "-p", "Passing", "-E",
                       "-v", "tofile:" + place.PAGES, "-P", place.WORLD + "/etc/cups/ppd/Photo.ppd")
        properties = self.open_properties("Passing")
        server.command("lpadmin", "-U", "root", "-x", "Passing")
        self.choose(properties)
        properties.button("OK").click()
        self.assertEqual(
            properties.dismiss("Unknown Printer"),
            'The print server no longer knows "Passing". Its options were saved on this computer '
            "for the case that it comes back.")
        self.assert_goes_on(properties)
        saved = server.saved_options()["Passing"]
        self.assertEqual((saved["MediaType"], saved["orientation-requested"]), ("Glossy", "4"))
