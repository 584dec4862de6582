"""The cost of listing printers and classes, beside the library's own list of destinations."""

import json
import os
import statistics
import subprocess

from harness import PROGRAMS, clean_environment, in_world, rounds_of, table, verdict

_BENCH = os.path.join(PROGRAMS, "directory_bench")
_CLASSES = 500
#: Rounds for each number of queues.
_ROUNDS = {1: 40, 10: 40, 100: 30, 1000: 15, 5000: 9}
_PEER = "cupsGetDests2"
_CALLS = ("getPrinters", "findPrinter", "getClasses", "findClass")
_TO_THE_PEER = 1.5
#: From so many queues on, what a further one costs can be told from the noise.
_MANY = 1000
_NOT_MORE_FOR_EACH = 1.3
#: A cost that grows by less than this part of it does not depend on the queues.
_FLAT = 0.5


def measure(factor):
    found = {queues: _measured(queues, rounds_of(usual, factor))
             for queues, usual in _ROUNDS.items()}
    met = True
    rows = []
    for name in (_PEER, *_CALLS):
        for queues in _ROUNDS:
            median = statistics.median(found[queues][name])
            row = [str(queues), "`%s`" % name, "%.2f ms" % median, "%.2f ms" % min(found[queues][name])]
            if name == _PEER:
                row += ["", *_growth(found, name, queues)[:2], ""]
            else:
                ratio = median / statistics.median(found[queues][_PEER])
                grown, further, is_linear = _growth(found, name, queues)
                good = ratio <= _TO_THE_PEER and is_linear
                met = met and good
                row += ["%.2f" % ratio, grown, further,
                        "≤ %.1f, linear: %s" % (_TO_THE_PEER, verdict(good))]
            rows.append(row)
    table(["queues", "call", "median", "least", "to the library", "grown by", "a further queue",
           "target"], rows)
    return met


def _growth(found, name, queues):
    """What has become of the cost since the next smaller number of queues: two cells, a verdict."""
    smaller = [number for number in _ROUNDS if number < queues]
    if not smaller:
        return "", "", True
    before = smaller[-1]
    now, then, first = (statistics.median(found[number][name])
                        for number in (queues, before, smaller[0]))
    linear = queues / before
    # The classes are a part of the cost that does not grow: what more queues add is compared, too.
    added, added_before = (now - then) / (queues - before), (then - first) / max(1, before - smaller[0])
    is_flat = now - then <= _FLAT * then
    is_linear = now / then <= linear and (
        before < _MANY or is_flat or added <= _NOT_MORE_FOR_EACH * added_before)
    return "%.2f, queues by %.0f" % (now / then, linear), _further(now - then, queues - before), is_linear


def _further(milliseconds, queues):
    """What each of so many more queues costs; of a few it cannot be told."""
    return "%.3f ms" % (milliseconds / queues) if queues >= 500 else ""


def _measured(queues, rounds):
    found = in_world("directory", {"queues": queues, "rounds": rounds}, "--no-record",
                     "--no-samples", "--queues", str(queues), "--classes", str(_CLASSES))
    expected = {_PEER: queues + _CLASSES, "getPrinters": queues + _CLASSES, "findPrinter": 1,
                "getClasses": _CLASSES, "findClass": 1}
    for name, count in expected.items():
        if found[name]["found"] != count:
            raise RuntimeError("%s found %d of %d" % (name, found[name]["found"], count))
    return {name: found[name]["times"] for name in expected}


def inside(queues, rounds):
    done = subprocess.run(
        [_BENCH, "Queue%04d" % ((queues + 1) // 2), "Class%04d" % (_CLASSES // 2), str(rounds)],
        check=True, env=clean_environment(), stdout=subprocess.PIPE)
    return json.loads(done.stdout)
