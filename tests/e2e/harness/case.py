"""What the test cases have in common."""

import os
import shutil
import tempfile
import unittest

from . import place, widgets
from .desktop import Desktop
from .properties import PropertiesDialog
from .run import Run
from .waiting import until

TITLE = "LPR GUI"


class Case(unittest.TestCase):
    """Runs of the program without a display."""

    maxDiff = None

    def setUp(self):
        base = os.path.join(place.WORLD, "e2e")
        os.makedirs(base, exist_ok=True)
        self.folder = tempfile.mkdtemp(dir=base)
        self.addCleanup(shutil.rmtree, self.folder)
        self._runs = 0

    def file(self, name="page.txt", content=b"one page\n"):
        """A file to print; its path."""
        path = os.path.join(os.fsencode(self.folder), os.fsencode(name))
        with open(path, "wb") as file:
            file.write(content)
        return path if isinstance(name, bytes) else os.fsdecode(path)

    def own_program(self, *names):
        """The program of an installed tree of the case's own, with these of the tree's folders."""
        tree = os.path.join(self.folder, "tree")
        for name in names:
            shutil.copytree(os.path.join(place.TREE, name), os.path.join(tree, name))
        return os.path.join(tree, "bin", os.path.basename(place.TREE_PROGRAM))

    def start(self, *arguments, **settings):
        """Starts a run, see Run."""
        self._runs += 1
        folder = os.path.join(self.folder, "run%d" % self._runs)
        os.mkdir(folder)
        run = Run(folder, arguments, **settings)
        self.addCleanup(run.stop)
        return run

    def complete(self, *arguments, **settings):
        """A whole run without a dialog."""
        return self.start(*arguments, **settings).finish()


class DialogCase(Case):
    """Runs with a display; one is shared by the cases of a class."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.mkdtemp(dir=place.WORLD, prefix="desktop-")
        cls.addClassCleanup(shutil.rmtree, folder)
        cls.desktop = Desktop(folder)
        cls.addClassCleanup(cls.desktop.stop)

    def start(self, *arguments, environment=None, **settings):
        surroundings = {**self.desktop.environment(), **(environment or {})}
        return super().start(*arguments, environment=surroundings, **settings)

    def window(self, run, title):
        return widgets.find_window(self.desktop, run, title)

    def dialog(self, run):
        return PrintDialog(self, run)

    def accepted(self, *arguments, work=None, **settings):
        """A whole run whose dialog is accepted after `work(dialog)`."""
        run = self.start(*arguments, **settings)
        dialog = self.dialog(run)
        if work:
            work(dialog)
        dialog.accept()
        return run.finish()


class PrintDialog:
    """The print dialog of a run, worked like a person does."""

    def __init__(self, case, run):
        self._case = case
        self._run = run
        self._window = case.window(run, TITLE)

    def button(self, name):
        return self._window.find("push button", name)

    def radio(self, name):
        return self._window.find("radio button", name)

    def check_box(self, name):
        return self._window.find("check box", name)

    @property
    def pages(self):
        return self._window.find("text", "Pages to print")

    @property
    def copies(self):
        return self._window.find("spin box")

    @property
    def list(self):
        """The closed list of destinations."""
        return self._window.find("combo box")

    @property
    def destination(self):
        return self.list.name

    @property
    def destinations(self):
        return [item.name for item in self.list.descendants() if item.role == "list item"]

    @property
    def status(self):
        """What a screen reader says of it, without the caption."""
        caption = "Status: "
        name = self._window.find("label", description="Status of the printer").name
        assert name.startswith(caption), name
        return name[len(caption):]

    def set_copies(self, number):
        spin_box = self.copies
        spin_box.click()
        spin_box.wait_for(widgets.FOCUSED)
        widgets.press(self._case.desktop, "ctrl+a", *str(number))
        until(lambda: spin_box.value == number, "%d copies" % number)

    def open_list(self):
        """Opens the list of destinations and returns it."""
        combo = self.list
        combo.click()
        return combo

    def choose(self, name):
        """Chooses a destination with the mouse."""
        self.open_list().find("list item", name).click()
        until(lambda: self.destination == name, "the destination " + name)

    def tab_to(self, widget):
        """Gives the widget the keyboard by the keyboard."""
        self._window.tab_to(widget)

    def accept(self):
        self.button("OK").click()

    def cancel(self):
        self.button("Cancel").click()

    def properties(self):
        """Opens the properties dialog of the destination."""
        self.button("Properties...").click()
        return PropertiesDialog(self._case, self._run, self.destination)

    def start_printer(self):
        """Presses Start, and gives root's password where that is asked for."""
        self.button("Start").click()
        if not place.IS_ROOT:
            self._case.window(self._run, "Authorization")
            widgets.user(self._case.desktop, "type", "--delay", "1", place.PASSWORD)
            widgets.press(self._case.desktop, "Return")

    def box(self, title):
        """The message box with this title; its text."""
        return self._case.window(self._run, title)

    def answers(self):
        """Whether the program looks after its window at the moment."""
        return self._window.is_there()

    def is_open(self):
        return widgets.has_window(self._case.desktop, self._run, TITLE)
