"""Plug-ins: none is opened before the properties dialog, none is taken from the working directory."""

import os

from harness.case import DialogCase

LIBRARY = "libvesk_plugin_broken.so"


class Unused(DialogCase):
    """A library that cannot be loaded would end the program."""

    def test_print_dialog_opens_none(self):
        plugins = os.path.join(self.folder, "plugins")
        os.mkdir(plugins)
        self.file(os.path.join("plugins", LIBRARY))
        result = self.accepted(self.file(), environment={"VESK_PLUGIN_DIR": plugins})
        self.assertEqual((result.status, len(result.clients), result.errors), (0, 1, ""))

    def test_none_beside_a_stranger_of_the_programs_name(self):
        result = self.accepted(self.file(), place_file=("lpr", "#!/bin/true\n"),
                               prepare=lambda: os.chmod("lpr", 0o755))
        self.assertEqual((result.status, len(result.clients)), (0, 1))
        stranger = os.path.join(self.folder, "run1", "lpr")
        self.assertEqual(result.errors, "Not searching for plug-ins beside %s: another program runs\n"
                         % stranger)
