"""Looks at the program's windows as a screen reader does, and works them with key and mouse."""

import os
import subprocess

from gi.repository import Gio, GLib

from .waiting import LIMIT, until

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_VALUE = "org.a11y.atspi.Value"
_PROPERTIES = "org.freedesktop.DBus.Properties"
_ROOT = "/org/a11y/atspi/accessible/root"
_ANSWER_LIMIT_MS = 10000
_LABELLED_BY = 2
#: They say that they have the keyboard while something else has it, or a part of them.
_NOT_FOCUSED = ("list item", "tree item", "page tab", "filler")

ACTIVE, CHECKED, ENABLED, FOCUSED, SELECTED, SHOWING = 1, 4, 8, 12, 23, 25


class Gone(Exception):
    """The widget or its program is no longer there."""


class Widget:
    """One accessible object of a program."""

    def __init__(self, desktop, owner, path):
        self._desktop = desktop
        self._owner = owner
        self._path = path

    def __eq__(self, other):
        return isinstance(other, Widget) and (self._owner, self._path) == (other._owner, other._path)

    def _call(self, interface, method, arguments=None):
        try:
            return self._desktop.bus.call_sync(
                self._owner, self._path, interface, method, arguments, None,
                Gio.DBusCallFlags.NO_AUTO_START, _ANSWER_LIMIT_MS, None).unpack()
        except GLib.Error as error:
            raise Gone(error.message) from error

    def _property(self, interface, name):
        return self._call(_PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)))[0]

    @property
    def name(self):
        """The label of the widget, or the text of a label."""
        return self._property(_ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._property(_ACCESSIBLE, "Description")

    @property
    def role(self):
        return self._call(_ACCESSIBLE, "GetRoleName")[0]

    @property
    def text(self):
        """The text of an edit field."""
        return self._call(_TEXT, "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    @property
    def value(self):
        """The number of a spin box."""
        return self._property(_VALUE, "CurrentValue")

    def has(self, state):
        low, high = self._call(_ACCESSIBLE, "GetState")[0]
        return bool((low | high << 32) >> state & 1)

    def is_there(self):
        try:
            return self.has(SHOWING)
        except Gone:
            return False

    def children(self):
        return [Widget(self._desktop, owner, path)
                for owner, path in self._call(_ACCESSIBLE, "GetChildren")[0]]

    def descendants(self):
        """All widgets below this one; those that go away meanwhile may be left out."""
        try:
            children = self.children()
        except Gone:
            return
        for child in children:
            yield child
            yield from child.descendants()

    def _shown_descendants(self):
        for child in self.children():
            if child.is_there():
                yield child
                yield from child._shown_descendants()

    def focused(self):
        """The widget below this one that has the keyboard, if any."""
        for widget in self._shown_descendants():
            if widget.role not in _NOT_FOCUSED and widget.has(FOCUSED):
                return widget
        return None

    def tab_to(self, widget):
        """Gives a widget below this one the keyboard by the keyboard."""
        first = before = until(self.focused, "the keyboard's place")
        while not widget.has(FOCUSED):
            press(self._desktop, "Tab")
            until(lambda: self.focused() not in (None, before), "the next widget")
            before = self.focused()
            assert before != first, "the Tab key does not lead there"

    def _matches(self, roles, name, description):
        return (self.role in roles and name in (None, self.name)
                and description in (None, self.description))

    def find(self, role, name=None, description=None):
        """The visible descendant of this role, name and description."""
        return self.find_any((role,), name, description)

    def find_any(self, roles, name=None, description=None):
        """The same with one of several roles."""
        def look():
            for widget in self.descendants():
                try:
                    if widget._matches(roles, name, description) and widget.has(SHOWING):
                        return widget
                except Gone:
                    pass
            return None
        return until(look, "the %s %s" % (" or ".join(roles), name or description or ""))

    def wait_for(self, state, wanted=True, limit=LIMIT):
        until(lambda: self.has(state) == wanted, "state %d of a widget" % state, limit)

    def label(self):
        """The text of the label that belongs to it, if there is one."""
        for kind, targets in self._call(_ACCESSIBLE, "GetRelationSet")[0]:
            if kind == _LABELLED_BY:
                return Widget(self._desktop, *targets[0]).name
        return None

    def extents(self):
        """Left, top, width and height on the screen."""
        return self._call(_COMPONENT, "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def centre(self):
        left, top, width, height = self.extents()
        return left + width // 2, top + height // 2

    def _is_within(self, view):
        """Whether its middle line is to be seen in the view that scrolls it."""
        top, height = view.extents()[1::2]
        return top < self.centre()[1] < top + height

    def scroll_to(self, view):
        """Turns the mouse's wheel over the view until this item of it can be clicked."""
        def turn():
            if self._is_within(view):
                return True
            button = "4" if self.centre()[1] < view.centre()[1] else "5"
            left, top = view.centre()
            self._desktop_user("mousemove", str(left), str(top), "click", button)
            return False
        until(turn, "%r to be scrolled to" % self.name)

    def click(self):
        """Presses and releases the left mouse button on it."""
        left, top = self.centre()
        self._desktop_user("mousemove", str(left), str(top), "click", "1")

    def click_left_end(self):
        """The same on its left end, where a check box or radio button has its mark."""
        left, top, _, height = self.extents()
        self._desktop_user("mousemove", str(left + 8), str(top + height // 2), "click", "1")

    def _desktop_user(self, *words):
        user(self._desktop, *words)

    def check(self):
        """Clicks a radio button or a check box and waits until it is checked."""
        self.click_left_end()
        self.wait_for(CHECKED)

    def uncheck(self):
        self.click_left_end()
        self.wait_for(CHECKED, False)

    def write(self, text, shown=()):
        """Replaces the text of a field by typing; then it shows one of `shown`, or that very text."""
        self.click()
        self.wait_for(FOCUSED)
        user(self._desktop, "key", "ctrl+a", "key", "Delete")
        if text:
            user(self._desktop, "type", "--delay", "1", "--", text)
        until(lambda: self.text in (shown or (text,)) or self._hides(len(text)),
              "the typed text %r" % text)

    def _hides(self, count):
        """Whether it is a field that hides what is typed, with so many signs in it."""
        return count > 0 and not self.text and self._property(_TEXT, "CaretOffset") == count


#: The roles of fields that are typed into.
FIELDS = ("spin box", "text", "password text")


def user(desktop, *words):
    """Real key and mouse events."""
    subprocess.run(["xdotool", *words], check=True, stdin=subprocess.DEVNULL,
                   env={"DISPLAY": desktop.display, "PATH": os.environ["PATH"]})


def press(desktop, *keys):
    user(desktop, "key", "--delay", "1", *keys)


def _bus_call(desktop, method, arguments=None):
    return desktop.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                 "org.freedesktop.DBus", method, arguments, None,
                                 Gio.DBusCallFlags.NONE, _ANSWER_LIMIT_MS, None).unpack()[0]


def _belongs_to(desktop, name, pid):
    try:
        return _bus_call(desktop, "GetConnectionUnixProcessID",
                         GLib.Variant("(s)", (name,))) == pid
    except GLib.Error:
        return False


def windows(desktop, pid):
    """The visible windows of a process. Empty while it has none."""
    for name in _bus_call(desktop, "ListNames"):
        if name.startswith(":") and _belongs_to(desktop, name, pid):
            try:
                return [window for window in Widget(desktop, name, _ROOT).children()
                        if window.has(SHOWING)]
            except Gone:
                # Its other connection, or not ready yet.
                pass
    return []


def _focus(desktop, title):
    """Gives the keyboard to the window, as a window manager does for a new one."""
    found = subprocess.run(
        ["xdotool", "search", "--onlyvisible", "--name", "^%s$" % title], stdin=subprocess.DEVNULL,
        env={"DISPLAY": desktop.display, "PATH": os.environ["PATH"]}, capture_output=True,
        text=True, check=False).stdout.split()
    if not found:
        return False
    return subprocess.run(
        ["xdotool", "windowfocus", found[-1]], stdin=subprocess.DEVNULL, check=False,
        env={"DISPLAY": desktop.display, "PATH": os.environ["PATH"]}).returncode == 0


def find_window(desktop, run, title):
    """Waits for the window of the run with this title, and gives it the keyboard."""
    def look():
        if run.has_ended():
            raise AssertionError("the program ended before it showed %r:\n%s"
                                 % (title, run.errors()))
        for window in windows(desktop, run.pid):
            try:
                if window.name == title:
                    return window
            except Gone:
                pass
        return None
    window = until(look, "the window %r" % title)

    def is_active():
        return window.has(ACTIVE) or (_focus(desktop, title) and window.has(ACTIVE))
    until(is_active, "the window %r to take the keyboard" % title)
    return window


def has_window(desktop, run, title):
    for window in windows(desktop, run.pid):
        try:
            if window.name == title:
                return True
        except Gone:
            pass
    return False
