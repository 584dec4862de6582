"""The time until the dialog is on the screen, beside the toolkit's own print dialog."""

import json
import os
import subprocess

from harness import (HERE, PROGRAMS, clean_environment, display, in_world, interleaved, ratio,
                     rounds_of, table, times, verdict)

_PROGRAM = "/usr/bin/lpr"
_PEER = os.path.join(PROGRAMS, "qprintdialog_peer")
_FIRST_PAINT = os.path.join(PROGRAMS, "first_paint")
_DIALOG = os.path.join(PROGRAMS, "dialog_bench")

#: Rounds for each number of queues.
_QUEUES = {3: 40, 100: 30, 1000: 10}
_DISCOVERY_ROUNDS = 40
_DISCOVERY_LIMIT = 1.3
_ANNOUNCED = 20
#: The samples that are kept: the default with a driver, one with a large driver, one without.
KEPT = ("Laser", "Photo", "Plain")
_REMOVED = (("lpadmin", "-x", "Stopped"), ("lpadmin", "-x", "Rejecting"),
            ("lpadmin", "-x", "Office"), ("lpoptions", "-x", "Laser/draft"))
_NO_BUS = "unix:path=/nonexistent"


def keep_three():
    """Leaves just three of the sample queues, beside those added by number."""
    for command in _REMOVED:
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def measure_queues(factor):
    met = True
    rows = []
    for queues, usual in _QUEUES.items():
        found = in_world("paint", {"rounds": rounds_of(usual, factor), "announced": False},
                         "--no-record", "--queues", str(queues - len(KEPT)))
        peer, own = found["peer"], found["own"]
        good = ratio(own, peer) <= 1
        met = met and good
        rows.append([str(queues), str(len(own)), *times(own), *times(peer),
                     "%.2f" % ratio(own, peer),
                     ("no slower: " if queues == 3 else "faster: ") + verdict(good)])
    table(["queues", "runs of each", "`lpr` median", "least", "`QPrintDialog` median", "least",
           "ratio", "target"], rows)
    return met


def measure_discovery(factor):
    if os.getuid() != 0:
        print("Not measured: the private network with two hosts needs root.")
        return False
    network = (os.path.join(HERE, "announced-network"), str(_ANNOUNCED))
    found = in_world("paint", {"rounds": rounds_of(_DISCOVERY_ROUNDS, factor), "announced": True},
                     "--no-record", wrapper=network)
    own, without = found["own"], found["own, no discovery"]
    good = ratio(own, without) <= _DISCOVERY_LIMIT
    print("%d runs of each, 3 queues, %d announced printers.\n" % (len(own), _ANNOUNCED))
    table(["run", "median", "least", "ratio", "target"], [
        ["`lpr` without discovery", *times(without), "", ""],
        ["`lpr` with discovery", *times(own), "%.2f" % ratio(own, without),
         "≤ %.1f: %s" % (_DISCOVERY_LIMIT, verdict(good))],
        ["`QPrintDialog` with discovery", *times(found["peer"]),
         "%.2f" % ratio(found["peer"], without), ""],
    ])
    joined = in_world("join", {"announced": _ANNOUNCED}, "--no-record", wrapper=network)
    complete = joined["joined"] == _ANNOUNCED and joined["kept"]
    print("\n`lpstat -e` names %(seen)d announced printers. The dialog lists %(first)d destinations "
          "at first; %(joined)d more have joined after %(milliseconds).0f ms, and the chosen one "
          "stays chosen: %(kept)s." % joined)
    print("All of them must join: %s." % verdict(complete))
    return good and complete


def inside(rounds, announced):
    keep_three()
    file = os.path.join(os.environ["HOME"], "small.txt")
    with open(file, "w", encoding="ascii") as text:
        text.write("ten bytes\n")
    with display() as name:
        shown = clean_environment(DISPLAY=name)
        own = [_PROGRAM, file]
        measurements = {"own": lambda: _first_paint(own, shown),
                        "peer": lambda: _first_paint([_PEER], shown)}
        if announced:
            without = dict(shown, DBUS_SYSTEM_BUS_ADDRESS=_NO_BUS)
            measurements["own, no discovery"] = lambda: _first_paint(own, without)
        return interleaved(rounds, measurements, warm_up=2)


def _first_paint(command, environment):
    done = subprocess.run([_FIRST_PAINT, *command], env=environment, check=True,
                          stdout=subprocess.PIPE)
    return float(done.stdout.split()[1])


def inside_join(announced):
    keep_three()
    names = subprocess.run(["lpstat", "-e"], stdout=subprocess.PIPE, text=True).stdout.split()
    environment = clean_environment(QT_QPA_PLATFORM="offscreen")
    done = subprocess.run([_DIALOG, "join", str(announced)], env=environment, check=True,
                          stdout=subprocess.PIPE)
    seen = sum(name.startswith("Announced") for name in names)
    return dict(json.loads(done.stdout), seen=seen)
