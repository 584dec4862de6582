"""A virtual display with an accessibility bus, shared by the cases of a group."""

import os
import subprocess
import threading

from gi.repository import Gio, GLib

from .waiting import until

_REGISTRY = "/usr/libexec/at-spi2-registryd"

_BUS_SETTINGS = """<busconfig>
  <type>accessibility</type>
  <auth>EXTERNAL</auth>
  <listen>unix:dir=%s</listen>
  <policy context="default">
    <allow user="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


_FINDER_INTERFACE = Gio.DBusNodeInfo.new_for_xml("""
<node>
  <interface name="org.a11y.Bus">
    <method name="GetAddress"><arg direction="out" type="s"/></method>
  </interface>
</node>""").interfaces[0]


def _connect(address):
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


class _BusFinder:
    """Tells programs where the accessibility bus is: here it is the session's bus as well."""

    def __init__(self, address):
        self._address = address
        self._loop = None
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()
        self._ready.wait()

    def _run(self):
        context = GLib.MainContext.new()
        context.push_thread_default()
        self._loop = GLib.MainLoop.new(context, False)
        bus = _connect(self._address)
        bus.register_object("/org/a11y/bus", _FINDER_INTERFACE, self._answer, None, None)
        bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                      "RequestName", GLib.Variant("(su)", ("org.a11y.Bus", 0)), None,
                      Gio.DBusCallFlags.NONE, -1, None)
        self._ready.set()
        self._loop.run()
        bus.close_sync(None)
        context.pop_thread_default()

    def _answer(self, _bus, _sender, _path, _interface, _method, _arguments, call):
        call.return_value(GLib.Variant("(s)", (self._address,)))

    def stop(self):
        self._loop.quit()
        self._thread.join()


class Desktop:
    """Starts both; stop() ends them."""

    def __init__(self, folder):
        self._children = []
        self._folder = folder
        self.display = ":" + self._start_with_answer(
            ["Xvfb", "-displayfd", "%d", "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
             "-noreset"])
        settings = os.path.join(folder, "bus.conf")
        with open(settings, "w") as file:
            file.write(_BUS_SETTINGS % folder)
        self.bus_address = self._start_with_answer(
            ["dbus-daemon", "--config-file=" + settings, "--nofork", "--nopidfile",
             "--print-address=%d"])
        self.bus = _connect(self.bus_address)
        self._start_registry()
        self._finder = _BusFinder(self.bus_address)

    def _start_registry(self):
        """Programs make themselves known to the registry."""
        self._start([_REGISTRY], AT_SPI_BUS_ADDRESS=self.bus_address,
                    DBUS_SESSION_BUS_ADDRESS=self.bus_address)
        until(self._has_registry, "the accessibility registry")

    def _has_registry(self):
        return self.bus.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
            GLib.Variant("(s)", ("org.a11y.atspi.Registry",)), None, Gio.DBusCallFlags.NONE, -1,
            None).unpack()[0]

    def _start_with_answer(self, command):
        """Starts a server and returns the line that it writes to the descriptor when ready."""
        reading, writing = os.pipe()
        self._start([word.replace("%d", str(writing)) for word in command], writing)
        os.close(writing)
        with os.fdopen(reading) as answer:
            line = answer.readline().strip()
        if not line:
            raise RuntimeError("%s did not start" % command[0])
        return line

    def _start(self, command, *descriptors, **environment):
        self._children.append(subprocess.Popen(
            command, pass_fds=descriptors, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, start_new_session=True,
            env={"PATH": os.environ["PATH"], "HOME": self._folder, **environment}))

    def environment(self):
        return {"DISPLAY": self.display, "DBUS_SESSION_BUS_ADDRESS": self.bus_address,
                "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def pixels(self, extents):
        """The colours on a part of the screen: left, top, width, height."""
        left, top, width, height = extents
        raw = subprocess.run(
            ["import", "-window", "root", "-crop", "%dx%d+%d+%d" % (width, height, left, top),
             "-depth", "8", "rgb:-"], check=True, stdin=subprocess.DEVNULL, capture_output=True,
            env={"DISPLAY": self.display, "PATH": os.environ["PATH"]}).stdout
        return set(zip(raw[0::3], raw[1::3], raw[2::3]))

    def stop(self):
        self._finder.stop()
        self.bus.close_sync(None)
        for child in reversed(self._children):
            child.terminate()
            child.wait()
