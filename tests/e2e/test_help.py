"""Help: F1 and the button, with the companion program, with a browser, and with neither."""

import os
import shutil

from harness import place, widgets
from harness.case import DialogCase
from harness.waiting import until

TOPIC = "VESK.htm#GuiLPRDialog"
PROPERTIES_TOPIC = "VESKDestinationProperties.htm"
#: Notes its arguments beside itself; the note appears when it is complete.
_STAND_IN = """#!/bin/sh
for word; do printf '%s\\0' "$word"; done >"$0.part"
exec /bin/mv "$0.part" "$0.arguments"
"""


class HelpCase(DialogCase):
    def setUp(self):
        super().setUp()
        self.program = self.own_program("bin", "lib", "share")
        self.installation = os.path.dirname(os.path.dirname(self.program))
        self.companion = os.path.join(self.installation, "bin", "orrn")
        self.browsers = os.path.join(self.folder, "browsers")
        self.browser = os.path.join(self.browsers, "xdg-open")

    def place_stand_in(self, path, mode=0o755):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write(_STAND_IN)
        os.chmod(path, mode)

    def page(self, name, language=""):
        """The installed page; its path."""
        return os.path.join(self.installation, "share", "help", language, name)

    def open_dialog(self, language="en"):
        """A run whose only browser is the stand-in, if that is there.

        The windows stay English in each language.
        """
        shutil.rmtree(os.path.join(self.installation, "share", "tr"), ignore_errors=True)
        self.run_of_dialog = self.start(
            self.file(), name=self.program, program=self.program,
            environment={"PATH": self.browsers, "BROWSER": None, "DEFAULT_BROWSER": None,
                         "LC_ALL": "C.UTF-8", "LANGUAGE": language})
        return self.dialog(self.run_of_dialog)

    def arguments_of(self, stand_in):
        """What the stand-in was called with, once."""
        note = stand_in + ".arguments"
        until(lambda: os.path.exists(note), "the call of " + stand_in)
        with open(note, "rb") as file:
            words = file.read().split(b"\0")
        os.unlink(note)
        return [os.fsdecode(word) for word in words[:-1]]

    def assert_cancelled(self, dialog):
        dialog.cancel()
        until(self.run_of_dialog.is_over, "the end")
        result = self.run_of_dialog.finish()
        self.assertEqual((result.status, result.clients), (2, []))
        return result


class Companion(HelpCase):
    def setUp(self):
        super().setUp()
        self.place_stand_in(self.companion)
        self.place_stand_in(self.browser)

    def assert_shown(self, topic=TOPIC):
        self.assertEqual(self.arguments_of(self.companion),
                         ["-g", topic, "-n", "0", "-h", "0", "-f", "0"])

    def test_button(self):
        dialog = self.open_dialog()
        for _ in range(2):
            dialog.button("Help").click()
            self.assert_shown()
        widgets.press(self.desktop, "alt+h")
        self.assert_shown()
        self.assert_cancelled(dialog)
        self.assertFalse(os.path.exists(self.browser + ".arguments"))

    def test_language_is_left_to_the_companion(self):
        dialog = self.open_dialog("de")
        widgets.press(self.desktop, "F1")
        self.assert_shown()
        self.assert_cancelled(dialog)

    def test_key_anywhere(self):
        dialog = self.open_dialog()
        widgets.press(self.desktop, "F1")
        self.assert_shown()
        dialog.radio("Some pages:").check()
        for place_of_keys in (dialog.pages, dialog.copies, dialog.check_box(
                "Reverse All Pages (3,2,1)")):
            place_of_keys.click()
            place_of_keys.wait_for(widgets.FOCUSED)
            widgets.press(self.desktop, "F1")
            self.assert_shown()
        self.assert_cancelled(dialog)

    def test_properties_dialog(self):
        dialog = self.open_dialog()
        properties = dialog.properties()
        properties.button("Help").click()
        self.assert_shown(PROPERTIES_TOPIC)
        for tab, role, name in (("General", "radio button", "Portrait"),
                                ("Text", "spin box", "Lines per inch:"),
                                ("Graphics", "slider", "Scaling"),
                                ("Advanced", "tree", "Driver options")):
            properties.show(tab)
            widget = properties.page.find(role, name)
            widget.click()
            widget.wait_for(widgets.FOCUSED)
            widgets.press(self.desktop, "F1")
            self.assert_shown(PROPERTIES_TOPIC)
        properties.close("Cancel")
        self.assert_cancelled(dialog)
        self.assertFalse(os.path.exists(self.companion + ".arguments"))


class NoCompanion(HelpCase):
    def assert_told(self, dialog, opener, page="VESK.htm"):
        opener.button("Help").click()
        box = dialog.box("Help")
        self.assertEqual(box.find("label").name, 'The help page "%s" could not be opened.' % page)
        widgets.press(self.desktop, "Return")
        until(lambda: not widgets.has_window(self.desktop, self.run_of_dialog, "Help"),
              "the end of the box")
        self.assertTrue(dialog.is_open())

    def assert_browsed(self, page, anchor=""):
        self.assertTrue(os.path.isfile(page), page)
        self.assertEqual(self.arguments_of(self.browser), ["file://" + page + anchor])

    def assert_both_dialogs_browse(self, language, folder):
        """By the key and by the button of each dialog."""
        self.place_stand_in(self.browser)
        dialog = self.open_dialog(language)
        widgets.press(self.desktop, "F1")
        self.assert_browsed(self.page("VESK.htm", folder), "#GuiLPRDialog")
        dialog.button("Help").click()
        self.assert_browsed(self.page("VESK.htm", folder), "#GuiLPRDialog")
        properties = dialog.properties()
        widgets.press(self.desktop, "F1")
        self.assert_browsed(self.page(PROPERTIES_TOPIC, folder))
        properties.button("Help").click()
        self.assert_browsed(self.page(PROPERTIES_TOPIC, folder))
        properties.close("Cancel")
        self.assert_cancelled(dialog)

    def test_browser(self):
        self.assert_both_dialogs_browse("en", "")

    def test_browser_in_german(self):
        self.assert_both_dialogs_browse("de", "de")

    def test_browser_in_german_of_a_country(self):
        self.assert_both_dialogs_browse("de_AT:en", "de")

    def test_browser_in_the_first_language_that_has_pages(self):
        self.assert_both_dialogs_browse("eo:de:en", "de")

    def test_browser_in_a_language_without_pages(self):
        self.assert_both_dialogs_browse("eo:en", "")

    def test_companion_that_cannot_be_run(self):
        self.place_stand_in(self.companion, mode=0o644)
        self.test_browser()

    def test_no_page(self):
        shutil.rmtree(os.path.join(self.installation, "share", "help"))
        self.place_stand_in(self.browser)
        dialog = self.open_dialog()
        self.assert_told(dialog, dialog)
        self.assert_told(dialog, dialog)
        properties = dialog.properties()
        self.assert_told(dialog, properties, PROPERTIES_TOPIC)
        properties.close("Cancel")
        self.assert_cancelled(dialog)
        self.assertFalse(os.path.exists(self.browser + ".arguments"))

    def test_no_browser(self):
        dialog = self.open_dialog()
        self.assert_told(dialog, dialog)
        properties = dialog.properties()
        self.assert_told(dialog, properties, PROPERTIES_TOPIC)
        properties.close("Cancel")
        self.assert_cancelled(dialog)
