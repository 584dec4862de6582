"""The properties dialog of a destination, worked like a person does."""

from . import widgets
from .waiting import until

#: Seconds after which a click is taken for one that missed.
_PATIENCE = 3

GENERAL, TEXT, GRAPHICS, ADVANCED = "General", "Text", "Graphics", "Advanced"


class PropertiesDialog:
    """`destination` has a driver: the dialog's four tabs, the last with the driver's options."""

    def __init__(self, case, run, destination):
        self._case = case
        self._run = run
        self.title = "'%s' Properties" % destination
        self.window = case.window(run, self.title)
        self._pages = self.window.find("layered pane")
        #: The bar of the tabs. It is called like the one in front.
        self.bar = self.window.find("page tab list")

    def tabs(self):
        return [tab.name for tab in self.bar.children() if tab.role == "page tab"]

    def show(self, name):
        """Brings a tab to the front."""
        self.bar.find("page tab", name).click()
        self.wait_for_tab(name)

    def wait_for_tab(self, name):
        until(lambda: self.bar.name == name, "the tab " + name)

    @property
    def page(self):
        """The page in front."""
        return until(lambda: next((page for page in self._pages.children()
                                   if page.has(widgets.SHOWING)), None), "a page")

    def button(self, name):
        return until(lambda: next((child for child in self.window.children()
                                   if child.role == "push button" and child.name == name), None),
                     "the button " + name)

    def radio(self, name):
        return self.page.find("radio button", name)

    def check_box(self, name):
        return self.page.find("check box", name)

    def combo(self, label):
        """The list with this label."""
        return until(lambda: next((widget for widget in self.page.descendants()
                                   if widget.role == "combo box" and widget.label() == label),
                                  None), "the list " + label)

    def choose(self, label, entry):
        """Chooses an entry of a list with the mouse."""
        combo = self.combo(label)
        combo.click()
        combo.find("list item", entry).click()
        until(lambda: combo.name == entry, "%s %s" % (label, entry))

    def field(self, name):
        """A field that is typed into."""
        return self.page.find_any(widgets.FIELDS, name)

    def enter(self, name, text, shown):
        """Types into a field with a number and leaves it; then it shows `shown`."""
        field = self.field(name)
        field.write(text, (text, shown))
        self.press("Tab")
        until(lambda: field.text == shown, "%r in the field %s" % (shown, name))

    def slider(self, name):
        return self.page.find("slider", name)

    def move_slider(self, name, *keys):
        """Takes a slider that stands in its middle with the mouse, and presses the keys."""
        slider = self.slider(name)
        slider.click()
        slider.wait_for(widgets.FOCUSED)
        self.press(*keys)
        return slider

    def press(self, *keys):
        widgets.press(self._case.desktop, *keys)

    @property
    def tree(self):
        return self.page.find("tree")

    def selected_row(self):
        """The text of the row that is selected, if there is one."""
        return next((row.name for row in self.tree.children()
                     if row.role == "tree item" and row.has(widgets.SELECTED)), None)

    def row(self, option):
        """The row of an option of the driver."""
        return until(lambda: next((row for row in self.tree.children()
                                   if row.name.startswith(option + ": <")), None),
                     "the row of " + option)

    def select(self, option):
        """Selects an option of the driver; its editors."""
        until(lambda: self._click_row(option), "the row of %s to be selected" % option)
        return self.page.find("panel", option)

    def _click_row(self, option):
        """Whether that has selected it: the rows move when an editor needs more room."""
        row = self.row(option)
        row.scroll_to(self.tree)
        row.click()
        try:
            row.wait_for(widgets.SELECTED, limit=_PATIENCE)
        except AssertionError:
            return False
        return True

    def select_choice(self, option, text):
        """Clicks a choice in the list of an option."""
        choices = self.select(option).find("list")
        item = until(lambda: next((item for item in choices.children() if item.name == text),
                                  None), "the choice " + text)
        item.scroll_to(choices)
        item.click()

    def set_choice(self, option, text):
        self.select_choice(option, text)
        self.wait_for_row(option, text)

    def set_boolean(self, option, text):
        self.select(option).find("radio button", text).click_left_end()
        self.wait_for_row(option, text)

    def wait_for_row(self, option, text):
        until(lambda: self.row(option).name == "%s: <%s>" % (option, text),
              "the row of %s to say %s" % (option, text))

    def box(self, title):
        return self._case.window(self._run, title)

    def dismiss(self, title):
        """Answers a message box by the keyboard; its text."""
        box = self.box(title)
        text = box.find("label").name
        self.press("Return")
        until(lambda: not box.is_there(), "the end of the box " + title)
        return text

    def is_open(self):
        return widgets.has_window(self._case.desktop, self._run, self.title)

    def close(self, button):
        """Presses a button that ends the dialog."""
        self.button(button).click()
        self.wait_for_end()

    def wait_for_end(self):
        until(lambda: not self.is_open(), "the end of the properties dialog")
