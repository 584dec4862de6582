"""The user's default destination, set from the dialog."""

import os
import shlex

from harness import expected, server, widgets
from harness.case import DialogCase

_BUTTON = "Set as User Default"
_SAVED = os.path.join(os.environ["HOME"], ".cups/lpoptions")
#: Options with all that the file has its own rules for, but "#", which lpoptions itself loses.
_OPTIONS = {
    "Plain": {"media": "A5", "note": "two words"},
    "Photo": {"note": "quote\" back\\slash dollar$ tick`", "empty": ""},
    "Office": {"note": "\u00e4\u4e2d", "sides": "two-sided-long-edge"},
    "Laser/draft": {"Resolution": "600dpi", "number-up": "2"},
}


def saved():
    """What the file says: the kind and the options of each destination."""
    entries = {}
    with open(_SAVED, encoding="utf-8") as file:
        for line in file:
            kind, name, *options = shlex.split(line)
            entries[name] = (kind, sorted(options))
    return entries


class Default(DialogCase):
    def setUp(self):
        super().setUp()
        for name, options in _OPTIONS.items():
            words = [word for key, value in options.items()
                     for word in ("-o", "%s=%s" % (key, expected.escaped(value) or "''"))]
            server.command("lpoptions", "-p", name, *words)
        server.command("lpoptions", "-d", "Laser")

    def assert_default(self, name):
        """As another program of the same user sees it."""
        self.assertEqual(server.command("lpstat", "-d"), "system default destination: %s\n" % name)
        self.assertEqual([entry for entry, (kind, _) in saved().items() if kind == "Default"],
                         [name])

    def click(self, dialog):
        dialog.button(_BUTTON).click()
        dialog.button(_BUTTON).wait_for(widgets.ENABLED, False)

    def finish(self, run, dialog):
        dialog.cancel()
        result = run.finish()
        self.assertEqual((result.status, result.clients), (2, []))

    def test_set(self):
        run = self.start("-P", "Photo", self.file())
        dialog = self.dialog(run)
        self.click(dialog)
        self.assert_default("Photo")
        self.assertTrue(dialog.is_open())
        self.finish(run, dialog)
        self.assert_default("Photo")

    def test_next_run_begins_with_it(self):
        run = self.start("-P", "Plain", self.file())
        dialog = self.dialog(run)
        self.click(dialog)
        self.finish(run, dialog)
        file = self.file()

        def look(dialog):
            self.assertEqual(dialog.destination, "Plain")
            self.assertFalse(dialog.button(_BUTTON).has(widgets.ENABLED))
        self.assertEqual(self.accepted(file, work=look).arguments[2:4], ["-P", "Plain"])

    def test_button_follows_the_destination(self):
        # The default is the one from the start of the run.
        run = self.start(self.file())
        dialog = self.dialog(run)
        self.assertFalse(dialog.button(_BUTTON).has(widgets.ENABLED))
        for name in ("Plain", "Office"):
            dialog.choose(name)
            dialog.button(_BUTTON).wait_for(widgets.ENABLED)
            self.click(dialog)
            self.assert_default(name)
        dialog.choose("Plain")
        dialog.button(_BUTTON).wait_for(widgets.ENABLED)
        dialog.choose("Laser")
        dialog.button(_BUTTON).wait_for(widgets.ENABLED, False)
        self.assert_default("Office")
        self.finish(run, dialog)

    def test_other_entries_stay(self):
        before = saved()
        self.assertEqual(set(before), {"Laser", *_OPTIONS})
        told = {name: server.options(name) for name in before}
        run = self.start("-P", "Office", self.file())
        dialog = self.dialog(run)
        self.click(dialog)
        self.finish(run, dialog)
        after = saved()
        self.assertEqual(after.pop("Office"), ("Default", before.pop("Office")[1]))
        # The former default had no options, so its line may be gone.
        self.assertEqual(before.pop("Laser"), ("Default", []))
        after.pop("Laser", None)
        self.assertEqual(after, before)
        for name in _OPTIONS:
            with self.subTest(name):
                self.assertEqual(server.options(name), told[name])
