"""The driver's options on the properties dialog's tab "Advanced", from the click to the paper."""

import os
import subprocess

from harness import place, server, widgets
from harness.printing import PropertiesCase, pages_document
from harness.properties import ADVANCED, GRAPHICS, TEXT
from harness.waiting import until

class DriverOptionsCase(PropertiesCase):
    def open_properties(self, destination, **settings):
        properties = super().open_properties(destination, **settings)
        properties.show(ADVANCED)
        return properties

    def reopen(self):
        properties = self.print_dialog.properties()
        properties.show(ADVANCED)
        return properties

    def set_custom(self, properties, option, unit="", **parameters):
        """Chooses an option's custom value, and types its parameters."""
        properties.set_choice(option, "Custom")
        for name, text in parameters.items():
            properties.field(name).write(text, (text + unit,))


class Choices(DriverOptionsCase):
    def test_choice_and_boolean(self):
        properties = self.open_properties("Laser")
        properties.set_choice("Density", "Dark")
        properties.set_boolean("Save Toner", "On")
        properties.close("OK")
        options = {"Density": "Level4", "TonerSaving": "True"}
        # The print dialog's own choice is saved with the others.
        self.assert_saved({"Collate": "True", **options})
        number, job = self.print_with(options)
        self.assertEqual({name: str(job[name]) for name in options}, options)
        self.assert_feature(number, "Density Level4", "<</TarvelSetup<</Density /Level4>>>>pop")
        self.assert_feature(number, "TonerSaving True",
                             "<</TarvelSetup<</TonerSaving /True>>>>pop")


class Custom(DriverOptionsCase):
    def assert_shown_again(self):
        properties = self.reopen()
        for option, name, text in (("Tone Curve", "Curve", "1.750"),
                                   ("Watermark", "Text", "Top Secret")):
            properties.wait_for_row(option, "Custom")
            properties.select(option)
            self.assertEqual(properties.field(name).text, text)
        properties.close("Cancel")

    def test_one_parameter(self):
        properties = self.open_properties("Photo")
        self.set_custom(properties, "Tone Curve", Curve="1.75")
        self.set_custom(properties, "Ink Limit", Limit="2.5")
        self.set_custom(properties, "Sharpness", Amount="3.125")
        self.set_custom(properties, "Release by", Code="12345")
        self.set_custom(properties, "Locked Job", Password="pass1word")
        self.set_custom(properties, "Watermark", Text="Top Secret")
        properties.close("OK")
        options = {"ToneCurve": "Custom.1.750", "InkLimit": "Custom.2.500",
                   "Sharpness": "Custom.3.125", "Release": "Custom.12345",
                   "Lock": "Custom.pass1word", "Watermark": "Custom.Top Secret"}
        self.assert_saved(options)
        self.assert_shown_again()
        number, job = self.print_with(options)
        self.assertEqual({name: job[name] for name in options}, options)
        for name, value in (("ToneCurve", "1.75"), ("InkLimit", "2.5"), ("Sharpness", "3.125"),
                            ("Release", "(12345)"), ("Lock", "(pass1word)"),
                            ("Watermark", "(Top Secret)")):
            self.assert_feature(number, "Custom%s True" % name, "%s\n/%s pop pop" % (value, name))

    def test_several_parameters(self):
        properties = self.open_properties("Photo")
        self.set_custom(properties, "Screen", Ruling="150", Angle="22.5")
        self.set_custom(properties, "Picture Shift", " pt", Across="36.5", Up="72.25")
        self.set_custom(properties, "Picture Size", Factor="2")
        properties.close("OK")
        options = {"Screen": "{Ruling=150,Angle=22.500}", "Shift": "{Across=36.500,Up=72.250}",
                   "Zoom": "{Factor=2.000,Fixed=1.000}"}
        self.assert_saved(options)
        properties = self.reopen()
        properties.select("Screen")
        self.assertEqual([properties.field(name).text for name in ("Ruling", "Angle")],
                         ["150", "22.500"])
        properties.close("OK")
        self.assert_saved(options)
        number, job = self.print_with(options)
        # The system's client knows blanks only between the parameters.
        self.assertEqual({name: job[name] for name in options}, {
            "Screen": {"Ruling": "150,Angle=22.500"}, "Shift": {"Across": "36.500,Up=72.250"},
            "Zoom": {"Factor": "2.000,Fixed=1.000"}})
        self.assert_dropped(number, "Screen Standard", "Shift None", "Zoom None")

    def test_several_parameters_from_the_client_alone(self):
        path = self.file("pages.ps", pages_document(1))
        both = {"Ruling": "150", "Angle": "22.500"}
        for value, held in (("{Ruling=150 Angle=22.500}", both),
                            ("'{Ruling=150 Angle=22.500}'", both),
                            ("\\{Ruling=150\\ Angle=22.500\\}", both),
                            ("{Ruling=150,Angle=22.500}", {"Ruling": "150,Angle=22.500"})):
            with self.subTest(value):
                server.command(place.CLIENT, "-P", "Photo", "-o", "Screen=" + value, path)
                number, job = self.printed_job()
                self.assertEqual(job["Screen"], held)
                self.assert_dropped(number, "Screen Standard")

    def assert_dropped(self, number, *features):
        """The server gives its filters no collection, and so the defaults are printed."""
        for feature in features:
            keyword, default = feature.split()
            self.assert_feature(number, feature, "/%s /%s pop pop" % (keyword, default))
            self.assertNotIn("*Custom" + keyword, self.printed(number).decode())

    def test_page_size(self):
        properties = self.open_properties("Photo")
        properties.set_choice("Media Size", "Custom")
        properties.choose("Units:", "mm")
        properties.field("Width").write("100")
        properties.field("Height").write("150")
        properties.close("OK")
        # The marks are in points.
        options = {"PageSize": "Custom.283.46457x425.19684pt"}
        self.assert_saved(options)
        number, job = self.print_with(options)
        self.assertEqual(job["PageSize"], options["PageSize"])
        # Behind width and height: two offsets and an orientation.
        self.assert_feature(number, "CustomPageSize True",
                            "283.464569091797\n425.196838378906\n0\n0\n0")

    def test_decimal_comma(self):
        folder = os.path.join(self.folder, "locales")
        os.mkdir(folder)
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8",
                        os.path.join(folder, "de_DE.UTF-8")], check=True)
        # Numbers as in German, texts in English.
        locale = {"LC_ALL": "de_DE.UTF-8", "LOCPATH": folder, "LANGUAGE": "en"}
        properties = self.open_properties("Photo", environment=locale)
        self.set_custom(properties, "Sharpness", Amount="3,125")
        properties.set_choice("Media Size", "Custom")
        properties.field("Width").write("300,5")
        properties.close("OK")
        options = {"Sharpness": "Custom.3.125", "PageSize": "Custom.300.5x72pt"}
        self.assert_saved(options)
        number, job = self.print_with(options)
        self.assertEqual({name: job[name] for name in options}, options)
        self.assert_feature(number, "CustomSharpness True", "3.125\n/Sharpness pop pop")


class Keyboard(DriverOptionsCase):
    """No mouse is touched in the properties dialog."""

    #: Seconds after which a text is taken for one that was typed too slowly.
    PATIENCE = 3

    def open_properties(self, destination):
        self.start_printing(destination)
        self.press_on(self.print_dialog, self.print_dialog.button("Properties..."), "space")
        properties = self.properties_dialog()
        for name in (TEXT, GRAPHICS, ADVANCED):
            self.press_on(properties.window, properties.bar, "Right")
            properties.wait_for_tab(name)
        return properties

    def press_on(self, window, widget, *keys):
        window.tab_to(widget)
        widgets.press(self.desktop, *keys)

    def type_until(self, text, what, done):
        """Types ahead until a row is found: a view forgets what was typed some time ago."""
        def typed():
            widgets.user(self.desktop, "type", "--delay", "1", "--", text)
            try:
                until(done, what, self.PATIENCE)
            except AssertionError:
                return False
            return True
        until(typed, what)

    def choose_row(self, properties, option, text):
        properties.window.tab_to(properties.tree)
        self.type_until(text, "the row of " + option,
                        lambda: properties.row(option).has(widgets.SELECTED))

    def test_choice_and_boolean(self):
        properties = self.open_properties("Laser")
        self.choose_row(properties, "Density", "dens")
        widgets.press(self.desktop, "Tab")
        properties.page.find("list").wait_for(widgets.FOCUSED)
        darkest = "Density: <Darkest>"
        self.type_until("darkest", darkest, lambda: properties.row("Density").name == darkest)
        self.choose_row(properties, "Save Toner", "save")
        widgets.press(self.desktop, "Tab")
        properties.radio("Off").wait_for(widgets.FOCUSED)
        widgets.press(self.desktop, "Down")
        properties.wait_for_row("Save Toner", "On")
        widgets.press(self.desktop, "alt+o")
        properties.wait_for_end()
        options = {"Density": "Level5", "TonerSaving": "True"}
        self.assert_saved({"Collate": "True", **options})
        number, job = self.print_with(options)
        self.assertEqual({name: str(job[name]) for name in options}, options)
        self.assert_feature(number, "Density Level5", "<</TarvelSetup<</Density /Level5>>>>pop")

    def test_custom_values(self):
        properties = self.open_properties("Photo")
        self.choose_row(properties, "Sharpness", "sharp")
        widgets.press(self.desktop, "Tab")
        properties.page.find("list").wait_for(widgets.FOCUSED)
        self.type_until("cust", "the custom value",
                        lambda: properties.row("Sharpness").name == "Sharpness: <Custom>")
        amount = properties.field("Amount")
        self.press_on(properties.window, amount, "ctrl+a", "3", "period", "1", "2", "5")
        until(lambda: amount.text == "3.125", "the typed number")
        widgets.press(self.desktop, "alt+o")
        properties.wait_for_end()
        options = {"Sharpness": "Custom.3.125"}
        self.assert_saved(options)
        number, job = self.print_with(options)
        self.assertEqual(job["Sharpness"], options["Sharpness"])
        self.assert_feature(number, "CustomSharpness True", "3.125\n/Sharpness pop pop")


class Conflict(DriverOptionsCase):
    WARNING = ("You selected options that are in conflict. Try to resolve the\n"
               "problem before continuing:\n\n  %s")
    REFUSAL = ("Some options selected are in conflict.\nResolve those conflicts before continuing.\n"
               "Hint: click Advanced on Device tab.\n"
               "Conflicting options will be shown in red color.\n")

    def assert_warned(self, properties, *lines):
        self.assertEqual(properties.dismiss("Driver configuration"),
                         self.WARNING % "\n  ".join(lines))

    def assert_red(self, properties, option, wanted=True):
        row = properties.row(option)
        row.scroll_to(properties.tree)
        until(lambda: any(red > 150 and green < 60 and blue < 60 for red, green, blue
                          in self.desktop.pixels(row.extents())) == wanted,
              "%s to be %sred" % (option, "" if wanted else "not "))

    def assert_red_rows(self, properties, wanted):
        # The selected row is in other colours.
        properties.select("Density")
        for option in ("Paper Type", "2-Sided Printing"):
            self.assert_red(properties, option, wanted)
        self.assert_red(properties, "Output Bin", False)

    def test_refused_until_resolved(self):
        properties = self.open_properties("Laser")
        before = server.saved_options()
        self.assert_red_rows(properties, False)
        properties.set_choice("Paper Type", "Labels")
        properties.select_choice("2-Sided Printing", "Long Edge (Portrait)")
        self.assert_warned(properties, "Paper Type = Labels",
                           "2-Sided Printing = Long Edge (Portrait)")
        self.assert_red_rows(properties, True)
        for _ in range(2):
            properties.button("OK").click()
            self.assertEqual(properties.dismiss("LPR GUI: Options Conflict"), self.REFUSAL)
            self.assertTrue(properties.is_open())
            self.assertEqual(server.saved_options(), before)
        properties.set_choice("Paper Type", "Thick Paper")
        self.assert_red_rows(properties, False)
        properties.close("OK")
        options = {"MediaType": "Thick", "sides": "two-sided-long-edge"}
        self.assert_saved({"Collate": "True", **options})
        number, job = self.print_with(options)
        self.assertEqual({name: job[name] for name in options}, options)
        self.assert_feature(number, "MediaType Thick", "<</MediaType (Thick)>>setpagedevice")
        self.assert_feature(number, "Duplex DuplexNoTumble",
                            "<</Duplex true/Tumble false>>setpagedevice")
