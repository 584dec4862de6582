"""The properties dialog's buttons and keys, and destinations that it can say little of."""

from harness import server, widgets
from harness.printing import PropertiesCase
from harness.properties import ADVANCED, GENERAL, GRAPHICS, TEXT
from harness.waiting import until

TABS = [GENERAL, TEXT, GRAPHICS, ADVANCED]


class Buttons(PropertiesCase):
    def change(self, properties):
        """Something of each tab."""
        properties.radio("Landscape").check()
        properties.show(TEXT)
        properties.check_box("Pretty printing").check()
        properties.show(GRAPHICS)
        properties.radio("Use specific resolution").check()
        properties.show(ADVANCED)
        properties.set_choice("Density", "Dark")

    def test_cancel_saves_nothing(self):
        properties = self.open_properties("Laser")
        self.assertEqual(properties.tabs(), TABS)
        self.change(properties)
        self.assertTrue(properties.button("Apply").has(widgets.ENABLED))
        properties.close("Cancel")
        self.assertEqual(server.saved_options(), self.saved_before)
        properties = self.print_dialog.properties()
        self.assertTrue(properties.radio("Portrait").has(widgets.CHECKED))
        properties.show(ADVANCED)
        properties.wait_for_row("Density", "Normal")
        properties.press("Escape")
        properties.wait_for_end()
        self.assertEqual(server.saved_options(), self.saved_before)
        self.print_with({})
        self.assertNotIn("Density", self.client_arguments()[-2])

    def test_apply_saves_and_goes_on(self):
        properties = self.open_properties("Laser")
        apply = properties.button("Apply")
        self.assertFalse(apply.has(widgets.ENABLED))
        self.change(properties)
        apply.click()
        apply.wait_for(widgets.ENABLED, False)
        options = {"Collate": "True", "orientation-requested": "4", "prettyprint": "",
                   "scaling": None, "ppi": "128", "Density": "Level4"}
        self.assert_saved(options)
        self.assertTrue(properties.is_open())
        # The second time the destination's instance has nothing of it, either.
        properties.set_choice("Density", "Lightest")
        apply.wait_for(widgets.ENABLED)
        apply.click()
        apply.wait_for(widgets.ENABLED, False)
        options["Density"] = "Level1"
        self.assert_saved(options)
        properties.set_choice("Density", "Darkest")
        properties.close("Cancel")
        self.assert_saved(options)
        self.print_with({"Density": "Level1", "orientation-requested": "4"})


class Keyboard(PropertiesCase):
    """No mouse is touched."""

    def open_by_keyboard(self, destination):
        self.start_printing(destination)
        self.print_dialog.tab_to(self.print_dialog.button("Properties..."))
        self.press("space")
        return self.properties_dialog()

    def press(self, *keys):
        widgets.press(self.desktop, *keys)

    def go(self, properties, widget, *keys):
        properties.window.tab_to(widget)
        self.press(*keys)
        return widget

    def go_to_next_tab(self, properties, name):
        self.go(properties, properties.bar, "Right")
        properties.wait_for_tab(name)

    def test_all_tabs(self):
        properties = self.open_by_keyboard("Laser")
        self.go(properties, properties.radio("Portrait"), "Down")
        properties.radio("Landscape").wait_for(widgets.CHECKED)
        self.go(properties, properties.combo("Paper Size:"), "Down", "Down")
        until(lambda: properties.combo("Paper Size:").name == "A3", "the paper A3")
        self.go_to_next_tab(properties, TEXT)
        self.go(properties, properties.check_box("Pretty printing"), "space").wait_for(
            widgets.CHECKED)
        self.go_to_next_tab(properties, GRAPHICS)
        self.go(properties, properties.check_box("Use default color settings"), "space").wait_for(
            widgets.CHECKED, False)
        hue = self.go(properties, properties.slider("Hue"), "Page_Up")
        until(lambda: hue.value == 72, "the hue")
        self.go_to_next_tab(properties, ADVANCED)
        properties.window.tab_to(properties.tree)
        self.press("Home")
        row = properties.row("Density")
        while not row.has(widgets.SELECTED):
            before = properties.selected_row()
            self.press("Down")
            until(lambda: properties.selected_row() != before, "the next row")
        self.press("Tab")
        properties.page.find("list").wait_for(widgets.FOCUSED)
        self.press("Down")
        properties.wait_for_row("Density", "Dark")
        self.press("alt+o")
        properties.wait_for_end()
        options = {"orientation-requested": "4", "PageSize": "A3", "prettyprint": "",
                   "brightness": "100", "gamma": "1000", "hue": "72", "saturation": "100",
                   "Density": "Level4"}
        self.assert_saved({"Collate": "True", **options})
        self.window(self.printing_run, "LPR GUI")
        self.press("alt+o")
        self.assertEqual(self.printing_run.finish().status, 0)
        job = self.printed_job()[1]
        self.assertEqual({name: str(job[name]) for name in ("PageSize", "hue", "Density")},
                         {"PageSize": "A3", "hue": "72", "Density": "Level4"})


class WithoutDriver(PropertiesCase):
    def test_what_it_offers(self):
        properties = self.open_properties("Plain", b"plain text\n", "page.txt")
        self.assertEqual(properties.tabs(), TABS)
        for label in ("Paper Size:", "Paper Type:"):
            self.assertFalse(properties.combo(label).has(widgets.ENABLED), label)
        properties.radio("Short Edge [Tablet]").check()
        properties.radio("2-Up").check()
        properties.show(ADVANCED)
        properties.page.find("label", "This printer has no driver with options of its own.")
        properties.close("OK")
        options = {"sides": "two-sided-short-edge", "number-up": "2"}
        self.assert_saved(options)
        number, job = self.print_with(options)
        self.assertEqual((job["sides"], job["number-up"]), ("two-sided-short-edge", 2))
        self.assertEqual(self.printed(number), b"plain text\n")
