"""The time that the sample picture of the properties dialog takes to follow a slider."""

import json
import os
import subprocess

from harness import PROGRAMS, PROJECT, clean_environment, rounds_of, table, verdict

_BENCH = os.path.join(PROGRAMS, "sample_bench")
_PICTURES = os.path.join(PROJECT, "src/printerpropertiesdialog/images")
_ROUNDS = 1000
#: Milliseconds from one frame of the screen to the next. Held against the processor's time: a
#: redraw waits for nothing, and on the wall other programs count, too.
_LIMIT = 16.0


def measure(factor):
    met = True
    rows = []
    for name in ("sample.png", "sample@2x.png"):
        done = subprocess.run(
            [_BENCH, os.path.join(_PICTURES, name), str(rounds_of(_ROUNDS, factor))], check=True,
            env=clean_environment(QT_QPA_PLATFORM="offscreen"), stdout=subprocess.PIPE)
        found = json.loads(done.stdout)
        good = found["redraw"]["processor"] < _LIMIT
        met = met and good
        rows.append(_row("redraw", found, "< %.0f ms: %s" % (_LIMIT, verdict(good))))
        rows.append(_row("the colours alone", found, "", "transform"))
        rows.append(_row("`QImage::scaled`, smooth, to half", found, "", "scaled"))
    table(["picture", "what", "median", "least", "most", "most of the processor", "to scaling",
           "target"], rows)
    return met


def _row(what, found, target, key="redraw"):
    times = found[key]
    cells = ["%.2f ms" % times[kind] for kind in ("median", "least", "most", "processor")]
    ratio = "%.2f" % (times["median"] / found["scaled"]["median"])
    return ["%d × %d" % (found["width"], found["height"]), what, *cells, ratio, target]
