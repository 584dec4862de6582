"""A plug-in's page in the properties dialog: the example that comes with the program."""

import os
import re
import shutil

from harness import place, widgets
from harness.printing import PropertiesCase, pages_document

#: The folder with the example, built.
BUILT = os.environ["VESK_E2E_FAX_PLUGIN"]
TABS = ["General", "Text", "Graphics", "Advanced"]


class Fax(PropertiesCase):
    def setUp(self):
        super().setUp()
        self.plugins = os.path.join(self.folder, "plugins")
        shutil.copytree(BUILT, self.plugins)

    def test_comes_back(self):
        properties = self.open_properties("Photo", environment={"VESK_PLUGIN_DIR": self.plugins})
        self.assertEqual(properties.tabs(), TABS + ["Fax"])
        apply = properties.button("Apply")
        properties.show("Fax")
        self.assertFalse(apply.has(widgets.ENABLED))
        properties.press("Tab")
        properties.field("Fax number:").wait_for(widgets.FOCUSED)
        properties.field("Fax number:").write("+49 (30) 1234")
        apply.wait_for(widgets.ENABLED)
        properties.choose("Cover sheet:", "Confidential")
        properties.close("OK")
        saved = {"volatile-qfax-number": "+49 (30) 1234", "volatile-qfax-cover": "confidential"}
        self.assert_saved(saved)

        properties = self.print_dialog.properties()
        properties.show("Fax")
        self.assertEqual(properties.field("Fax number:").text, "+49 (30) 1234")
        self.assertEqual(properties.combo("Cover sheet:").name, "Confidential")
        properties.choose("Cover sheet:", "None")
        properties.close("OK")
        del saved["volatile-qfax-cover"]
        self.assert_saved(saved)
        self.print_dialog.accept()
        self.assertEqual(self.printing_run.finish().status, 0)
        job = self.printed_job()[1]
        self.assertEqual(job["qfax-number"], "+49 (30) 1234")
        self.assertNotIn("qfax-cover", job)
        self.assertIn(r" qfax-number=+49\ (30)\ 1234 ", self.client_arguments()[-2])

    def test_none(self):
        empty = os.path.join(self.folder, "empty")
        os.mkdir(empty)
        for folder in (None, empty, os.path.join(self.folder, "missing")):
            with self.subTest(folder):
                properties = self.open_properties("Photo", environment={"VESK_PLUGIN_DIR": folder})
                self.assertEqual(properties.tabs(), TABS)
                properties.close("Cancel")
                self.print_dialog.cancel()
                self.assertEqual(self.printing_run.finish().status, 2)

    def test_unloadable(self):
        broken = os.path.join(self.plugins, "libvesk_plugin_broken.so")
        with open(broken, "w") as file:
            file.write("no library\n")
        run = self.start("-P", "Photo", given=pages_document(1),
                         environment={"VESK_PLUGIN_DIR": self.plugins})
        self.dialog(run).button("Properties...").click()
        result = run.finish()
        self.assertNotEqual(result.status, 0)
        self.assertRegex(result.errors, "^Can not load library %s : .*file too short\n$"
                         % re.escape(broken))
        self.assertEqual(os.path.getsize(place.RECORDED), 0)
