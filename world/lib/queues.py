"""The sample queues, written as the server's own files before the server starts."""

import os
import shutil

from root import write

_PPDS = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "ppd")

#: Name, description, location, model, PPD, further lines of the record.
_PRINTERS = (
    ("Laser", "Colour laser printer", "First floor, room 12", "Tarvel CL 4200", "Laser.ppd", ()),
    ("Photo", "Photo printer", "Studio", "Tarvel PX 900", "Photo.ppd", ()),
    ("Plain", "Line printer without a driver", "Server room", "Local Raw Printer", None, ()),
    ("Stopped", "Printer in repair", "Workshop", "Tarvel CL 4200", "Laser.ppd",
     ("State Stopped", "StateMessage Paused for repair", "Reason paused")),
    ("Rejecting", "Printer that takes no jobs", "Archive", "Tarvel CL 4200", "Laser.ppd",
     ("Accepting No",)),
)

_CLASS = """<Class Office>
Info Any printer of the office
Location First floor
State Idle
Accepting Yes
Printer Laser
Printer Photo
JobSheets none none
OpPolicy default
</Class>
"""

_DEFAULT = "Laser"
#: As lpoptions writes it. Without the line for the default, libcups marks none when it reads it.
_SAVED = """Default Laser
Dest Laser/draft Duplex=DuplexNoTumble InputSlot=Tray2 Resolution=300dpi
"""


def _record(name, info, location, model, device, lines, default=False):
    kind = "DefaultPrinter" if default else "Printer"
    names = [line.split()[0] for line in lines]
    states = [line for line in ("State Idle", "Accepting Yes") if line.split()[0] not in names]
    return "\n".join([
        "<%s %s>" % (kind, name), "Info " + info, "Location " + location, "MakeModel " + model,
        "DeviceURI " + device, *states, *lines, "JobSheets none none",
        "OpPolicy default", "ErrorPolicy abort-job", "</%s>" % kind, ""])


def _many(count, device):
    for number in range(1, count + 1):
        yield _record("Queue%04d" % number, "Plain queue %d" % number, "Hall", "Local Raw Printer",
                      device, ())


def _many_classes(count, queues):
    for number in range(1, count + 1):
        members = {number % queues + 1, (number + 1) % queues + 1}
        yield "\n".join([
            "<Class Class%04d>" % number, "Info Plain class %d" % number, "Location Hall",
            "State Idle", "Accepting Yes",
            *("Printer Queue%04d" % member for member in sorted(members)),
            "JobSheets none none", "OpPolicy default", "</Class>", ""])


def write_queues(root, options):
    """
    Writes the printers, the classes, the drivers and the saved instance below `root`. Others in the
    network see only those that are shared.
    """
    etc = os.path.join(root, "etc/cups")
    device = "tofile:" + os.path.join(root, "pages")
    records = []
    classes = ""
    if options.samples:
        for name, info, location, model, ppd, lines in _PRINTERS:
            records.append(_record(name, info, location, model, device, lines, name == _DEFAULT))
            if ppd:
                shutil.copy(os.path.join(_PPDS, ppd), os.path.join(etc, "ppd", name + ".ppd"))
        classes = _CLASS
        os.makedirs(os.path.join(root, "home/.cups"))
        write(os.path.join(root, "home/.cups/lpoptions"), _SAVED)
    records += _many(options.queues, device)
    text = "".join(records)
    if not options.listen:
        text = text.replace("\nJobSheets ", "\nShared No\nJobSheets ")
    write(os.path.join(etc, "printers.conf"), text)
    classes += "".join(_many_classes(options.classes, options.queues))
    if classes:
        write(os.path.join(etc, "classes.conf"), classes)
