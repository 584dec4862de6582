"""Users of several languages: what they see, and that the system's client gets the same."""

import pathlib
import sys

from harness import expected, widgets
from harness.case import DialogCase

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "translations"))

import catalogues  # noqa: E402

GERMAN = {"LC_ALL": "de_DE.UTF-8"}
ARABIC = {"LC_ALL": None, "LANG": "ar_EG.UTF-8"}
JAPANESE = {"LC_ALL": "C.UTF-8", "LANGUAGE": "ja"}
CHINESE = {"LC_ALL": "C.UTF-8", "LANGUAGE": "zh_CN"}
BRAZILIAN = {"LC_ALL": "C.UTF-8", "LANGUAGE": "pt_BR"}
ENGLISH_THEN_GERMAN = {"LC_ALL": None, "LANG": "en_US.UTF-8", "LANGUAGE": "en_US:de"}

CHOOSER = "Select file(s) to print"


def text(language, source):
    """The text in a language."""
    for catalogue in catalogues.FOLDERS:
        for message in catalogues.messages(catalogues.source_file(catalogue, language)):
            if message.source == source:
                return message.translations[0]
    raise KeyError(source)


class Languages(DialogCase):
    def open(self, environment, title):
        run = self.start(self.file(), environment=environment)
        return run, self.window(run, title)

    def test_texts_are_in_the_users_language(self):
        for language, environment in (("de", GERMAN), ("ar", ARABIC), ("ja", JAPANESE),
                                      ("zh_CN", CHINESE), ("pt_BR", BRAZILIAN)):
            with self.subTest(language):
                run, window = self.open(environment, text(language, "LPR GUI"))
                window.find("check box", text(language, "Collate copies"))
                window.find("radio button", text(language, "All pages"))
                widgets.press(self.desktop, "Escape")
                self.assertEqual(run.finish().status, 2)

    def test_first_language_counts(self):
        run, window = self.open(ENGLISH_THEN_GERMAN, "LPR GUI")
        window.find("check box", "Collate copies")
        widgets.press(self.desktop, "Escape")
        self.assertEqual(run.finish().status, 2)

    def test_window_runs_in_the_languages_direction(self):
        for language, environment, from_right in (("de", GERMAN, False), ("ar", ARABIC, True)):
            with self.subTest(language):
                run, window = self.open(environment, text(language, "LPR GUI"))
                printers = window.find("combo box")
                properties = window.find("push button", text(language, "Properties..."))
                self.assertEqual(printers.centre() > properties.centre(), from_right)
                widgets.press(self.desktop, "Escape")
                run.finish()

    def test_toolkit_speaks_the_same_language(self):
        run = self.start(environment={**GERMAN, "PRINT_FROM_ORRN": None})
        self.window(run, text("de", CHOOSER)).find("push button", "Abbrechen")
        widgets.press(self.desktop, "Escape")
        self.assertEqual(run.finish().status, 0)

    def test_client_gets_the_same(self):
        file = self.file()
        for language, environment in (("de", GERMAN), ("ar", ARABIC), ("ja", JAPANESE)):
            with self.subTest(language):
                run = self.start(file, environment=environment)
                self.window(run, text(language, "LPR GUI"))
                widgets.press(self.desktop, "Return")
                self.assertEqual(run.finish().arguments, expected.arguments("Laser") + [file])
