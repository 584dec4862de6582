"""The properties dialog, tab by tab: from the click to the paper, and back into the dialog."""

import subprocess

from harness import paper, widgets
from harness.printing import PropertiesCase, pages_document
from harness.properties import GRAPHICS, TEXT

#: A4, in points.
WIDTH, HEIGHT = 595, 842


def picture(width, height):
    """A picture of one colour, in the size in pixels."""
    return subprocess.run(["convert", "-size", "%dx%d" % (width, height), "xc:gray50", "png:-"],
                          check=True, stdin=subprocess.DEVNULL, capture_output=True).stdout


class LaserCase(PropertiesCase):
    def open_laser(self, *file):
        """The dialog of a printer that collates, as the print dialog asks it to."""
        self.ALWAYS = {**PropertiesCase.ALWAYS, "Collate": "True"}
        return self.open_properties("Laser", *file)

    def document(self, number):
        return paper.as_document(self.printed_file(number), self.folder)


class General(LaserCase):
    def test_paper_sides_and_banners(self):
        properties = self.open_laser(pages_document(8))
        properties.choose("Paper Size:", "US Letter")
        properties.choose("Paper Type:", "Recycled Paper")
        properties.radio("Long Edge [Book]").check()
        properties.radio("2-Up").check()
        properties.choose("Start:", "standard")
        properties.choose("End:", "unclassified")
        properties.close("OK")
        options = {"PageSize": "Letter", "MediaType": "Recycled", "sides": "two-sided-long-edge",
                   "number-up": "2", "job-sheets": "standard,unclassified"}
        self.assert_saved(options)
        self.assert_shown_again()
        number, job = self.print_with(options)
        self.assertEqual(job["job-sheets"], ["standard", "unclassified"])
        self.assertEqual((job["number-up"], job["sides"]), (2, "two-sided-long-edge"))
        self.assertEqual((job["PageSize"], job["MediaType"]), ("Letter", "Recycled"))
        self.assert_feature(number, "Duplex DuplexNoTumble",
                            "<</Duplex true/Tumble false>>setpagedevice")
        # A banner fills a sheet on both sides.
        texts = [" ".join(text.split()[:2]) for text in self.page_texts(number)]
        self.assertEqual(texts, ["Cover Page"] * 2 + [
            "Page1 Page2", "Page3 Page4", "Page5 Page6", "Page7 Page8"]
            + ["Unclassified Media"] * 2)

    def assert_shown_again(self):
        properties = self.print_dialog.properties()
        self.assertEqual([properties.combo(label).name for label in (
            "Paper Size:", "Paper Type:", "Start:", "End:")],
            ["US Letter", "Recycled Paper", "standard", "unclassified"])
        for name in ("Portrait", "Long Edge [Book]", "2-Up"):
            self.assertTrue(properties.radio(name).has(widgets.CHECKED), name)
        self.assertFalse(properties.button("Apply").has(widgets.ENABLED))
        properties.close("Cancel")

    def test_turned_pages(self):
        properties = self.open_laser(pages_document(1))
        properties.radio("Landscape").check()
        properties.check_box("Reverse").check()
        properties.radio("4-Up").check()
        properties.close("OK")
        options = {"orientation-requested": "5", "number-up": "4"}
        self.assert_saved(options)
        properties = self.print_dialog.properties()
        properties.radio("Normal (1-Up)").check()
        properties.close("OK")
        options = {"orientation-requested": "5", "number-up": None}
        self.assert_saved(options)
        number, job = self.print_with({"orientation-requested": "5"})
        self.assertEqual((job["orientation-requested"], job["number-up"]), (5, 1))
        (word,), = paper.words(self.document(number))
        self.assertGreater(word.bottom - word.top, word.right - word.left)


class Text(LaserCase):
    def test_margins_and_spacing(self):
        lines = b"".join(b"Line%d\n" % number for number in range(100))
        properties = self.open_laser(lines, "lines.txt")
        properties.show(TEXT)
        properties.check_box("Use device default margins").uncheck()
        properties.enter("Left margin", "72", "72")
        properties.choose("Units:", "mm")
        self.assertEqual(properties.field("Left margin").text, "25.4")
        properties.enter("Right margin", "32.5", "32.5")
        properties.choose("Units:", "1/10 inches")
        properties.enter("Top margin", "15", "15.0")
        properties.enter("Bottom margin", "12.5", "12.5")
        properties.enter("Characters per inch:", "12", "12")
        properties.enter("Lines per inch:", "4", "4")
        properties.enter("Columns:", "2", "2")
        properties.check_box("Pretty printing").check()
        properties.close("OK")
        options = {"page-left": "72", "page-right": "92", "page-top": "108", "page-bottom": "90",
                   "cpi": "12", "lpi": "4", "columns": "2", "prettyprint": ""}
        self.assert_saved(options)
        # An option without a value comes back as one that is set.
        options["prettyprint"] = "true"
        number, job = self.print_with(options)
        self.assertEqual({name: str(job[name]).lower() for name in options}, options)
        self.assert_laid_out(paper.words(self.document(number))[0])

    def assert_laid_out(self, page):
        """The letters cannot be told, only where they are."""
        for word in page:
            self.assertGreater(word.left, 72 - 1)
            self.assertGreater(word.top, 108 - 1)
            self.assertLess(word.right, WIDTH - 92 + 1)
            self.assertLess(word.bottom, HEIGHT - 90 + 1)
            self.assertAlmostEqual((word.right - word.left) / len(word.text), 72 / 12, delta=0.1)
        top = min(word.top for word in page)
        heading = [word for word in page if word.top < top + 1]
        self.assertGreater(len(heading), 2)
        lines = [word for word in page if word not in heading]
        self.assertEqual(len({round(word.left) for word in lines}), 2)
        tops = sorted({round(word.top) for word in lines})
        self.assertEqual({below - above for above, below in zip(tops, tops[1:])}, {72 // 4})


class Graphics(LaserCase):
    def test_colors_resolution_and_position(self):
        properties = self.open_laser(picture(400, 300), "picture.png")
        properties.show(GRAPHICS)
        properties.check_box("Use default color settings").uncheck()
        properties.move_slider("Brightness", "Page_Up")
        properties.move_slider("Gamma", "Left")
        properties.enter("Hue", "-90", "-90")
        properties.enter("Saturation", "50", "50")
        for name, value in (("Brightness", 120), ("Gamma", 999), ("Hue", -90), ("Saturation", 50)):
            self.assertEqual((properties.slider(name).value, properties.field(name).value),
                             (value, value), name)
        properties.radio("Use specific resolution").check()
        properties.enter("Resolution", "200", "200")
        properties.move_slider("Horizontal position", "Left")
        properties.move_slider("Vertical position", "Up")
        properties.close("OK")
        options = {"brightness": "120", "gamma": "999", "hue": "-90", "saturation": "50",
                   "ppi": "200", "position": "top-left"}
        self.assert_saved({"scaling": None, **options})
        number, job = self.print_with({"scaling": "100", **options})
        self.assertEqual({name: str(job[name]) for name in options}, options)
        (left, bottom, right, top), = paper.ink(self.document(number))
        # 400 by 300 pixels at 200 an inch, at the edges of what the printer can print on.
        self.assert_near((right - left, top - bottom), (144, 108))
        self.assert_near((left, top), (12, HEIGHT - 12))

    def test_scaling(self):
        properties = self.open_laser(picture(300, 400), "picture.png")
        properties.show(GRAPHICS)
        properties.enter("Scaling", "300", "300")
        properties.page.find("push button", "Fit to Page").click()
        self.assertEqual(properties.field("Scaling").text, "100")
        properties.enter("Scaling", "50", "50")
        properties.move_slider("Vertical position", "Down")
        properties.close("OK")
        options = {"scaling": "50", "position": "bottom"}
        self.assert_saved(options)
        number, job = self.print_with(options)
        self.assertEqual((job["scaling"], job["position"]), (50, "bottom"))
        (left, bottom, right, top), = paper.ink(self.document(number))
        # Half the width that can be printed on, in the middle of the lower edge.
        self.assert_near((right - left, top - bottom), ((WIDTH - 24) / 2, (WIDTH - 24) * 2 / 3))
        self.assert_near(((left + right) / 2, bottom), (WIDTH / 2, 12))

    def assert_near(self, found, wanted):
        for one, other in zip(found, wanted, strict=True):
            self.assertAlmostEqual(one, other, delta=1)
