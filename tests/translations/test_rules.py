"""What the check of the translations lets pass and what it does not."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "translations"))

import rules  # noqa: E402
from catalogues import Message  # noqa: E402

PAGES = 'Invalid page ranges "%1"\nError at position %1: invalid range value "%1"'

GOOD = [
    ("Paper", "Papier", "de"),
    ("&Cancel", "&Abbrechen", "de"),
    ("&OK", "确定(&O)", "zh_CN"),
    ("&Help", "&Справка", "ru"),
    ("Save && Quit", "Sichern && Beenden", "de"),
    ("A & B", "A und B", "de"),
    ("Status:", "État :", "fr"),
    ("Status:", "État\u202f:", "fr"),
    ("Status:", "状态：", "zh_CN"),
    ("Properties...", "Свойства…", "ru"),
    ("From %1 to %2", "%2'ye kadar, %1'den", "tr"),
    ("%", "٪", "ar"),
    (" pt", " pt", "ja"),
    ("one\ntwo\n", "eins\nzwei\n", "de"),
    ("<b>one</b>", "<b>eins</b>", "de"),
    (PAGES, 'Ungültig: „%1“\nFehler an Stelle %2: „%3“', "de"),
    ("QT_LAYOUT_DIRECTION", "RTL", "ar"),
    ("QT_LAYOUT_DIRECTION", "LTR", "ja"),
]

BAD = [
    ("From %1 to %2", "Von %1 bis %3", "de", "placeholders"),
    ("%1 to %2 digits", "%1 Ziffern", "de", "placeholders"),
    ("%1 (removed)", "%1 (%1 entfernt)", "de", "placeholders"),
    ("'%s' Properties", "Eigenschaften", "de", "placeholders"),
    ("%d of %n", "%s von %n", "de", "placeholders"),
    ("100%%", "100", "de", "placeholders"),
    (PAGES, 'Ungültig: „%1“\nFehler an Stelle %1: „%1“', "de", "placeholders"),
    ("<b>one</b>", "<b>eins<b>", "de", "tags"),
    ("one\ntwo", "eins zwei", "de", "line breaks"),
    (" pt", "pt", "de", "white space"),
    ("one\n", "eins \n", "de", "white space"),
    ("Paper", "Papier ", "de", "white space"),
    ("&Cancel", "Abbrechen", "de", "mnemonics"),
    ("&Cancel", "&Ab&brechen", "de", "mnemonics"),
    ("Cancel", "&Abbrechen", "de", "mnemonics"),
    ("&Cancel", "Abbrechen &", "de", "mnemonics"),
    ("&Cancel", "&(Abbrechen)", "de", "neither"),
    ("&OK", "&确定", "zh_CN", "Latin"),
    ("Status:", "Zustand", "de", "a colon"),
    ("Status", "Zustand:", "de", "a colon"),
    ("Properties...", "Eigenschaften", "de", "three dots"),
    ("Properties", "Eigenschaften…", "de", "three dots"),
    ("QT_LAYOUT_DIRECTION", "LTR", "ar", "RTL"),
    ("QT_LAYOUT_DIRECTION", "Richtung", "de", "LTR"),
]


def message(source, translation, state="finished", comment=""):
    return Message("Window", source, "", comment, [translation], state)


def by_key(*messages):
    return {one.key: one for one in messages}


IN_SOURCES = by_key(message("Paper", "", "unfinished"))

CATALOGUES = [
    ("good", [message("Paper", "Papier")], None),
    ("missing", [], "is missing"),
    ("too many", [message("Paper", "Papier"), message("Ink", "Tinte")], "in no source"),
    ("other comment", [message("Paper", "Papier", comment="news")], "comment"),
    ("unfinished", [message("Paper", "Papier", "unfinished")], "is unfinished"),
    ("empty", [message("Paper", "", "unfinished")], "is empty"),
    ("empty but finished", [message("Paper", "")], "is empty"),
    ("vanished", [message("Paper", "Papier", "vanished")], "is vanished"),
    ("obsolete", [message("Paper", "Papier", "obsolete")], "is obsolete"),
]


class Rules(unittest.TestCase):
    def test_lets_good_translations_pass(self):
        for source, translation, language in GOOD:
            with self.subTest(source=source, translation=translation):
                self.assertEqual(rules.of_translation(source, translation, language), [])

    def test_finds_what_is_wrong(self):
        for source, translation, language, words in BAD:
            with self.subTest(source=source, translation=translation):
                found = rules.of_translation(source, translation, language)
                self.assertEqual(len(found), 1, found)
                self.assertIn(words, found[0])

    def test_compares_catalogues_with_the_sources(self):
        for name, there, words in CATALOGUES:
            with self.subTest(name):
                found = list(rules.of_catalogue(IN_SOURCES, by_key(*there), "de"))
                self.assertEqual(len(found), 0 if words is None else 1, found)
                self.assertIn(words or "", "".join(found))


if __name__ == "__main__":
    unittest.main()
