"""The time in which the catalogue of device pictures is built from its index."""

import os
import statistics
import subprocess
import tempfile

from harness import PROGRAMS, clean_environment, interleaved, rounds_of, table, verdict

_BENCH = os.path.join(PROGRAMS, "picture_index_bench")
_ROUNDS = 40
_SECTIONS = 5000
#: Milliseconds for the whole index.
_LIMIT = 50.0
#: Milliseconds that nobody can measure in a run that shows a window.
_NOTHING = 0.1


def measure(factor):
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "pictures.ini"), "w", encoding="utf-8") as index:
            index.writelines(map(_section, range(_SECTIONS)))
        empty = os.path.join(folder, "nothing")
        found = interleaved(rounds_of(_ROUNDS, factor), {
            "the catalogue": _timing("catalogue", folder),
            "`QSettings`": _timing("settings", folder),
            "the catalogue, no index": _timing("catalogue", empty)})
    limits = {"the catalogue": _LIMIT, "the catalogue, no index": _NOTHING}
    met = True
    rows = []
    for what, numbers in found.items():
        median = statistics.median(numbers)
        target = ""
        if what in limits:
            good = median < limits[what]
            met = met and good
            target = "< %g ms: %s" % (limits[what], verdict(good))
        rows.append([what, "%.3f ms" % median, "%.3f ms" % min(numbers), "%.3f ms" % max(numbers),
                     target])
    table(["run", "median", "least", "most", "target"], rows)
    return met


def _section(number):
    return ("[Printer_XQ%d]\nSmallPicture=xq-%d-small.png\nBigPicture=xq-%d-big.png\n"
            "Model=Tarvel XQ-%d Series\n" % ((number,) * 4))


def _timing(what, folder):
    def once():
        done = subprocess.run([_BENCH, what, folder + "/"], check=True, env=clean_environment(),
                              stdout=subprocess.PIPE)
        return float(done.stdout)
    return once
