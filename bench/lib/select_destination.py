"""The time that the dialog takes to show another destination."""

import json
import os
import subprocess

from harness import PROGRAMS, clean_environment, in_world, rounds_of, table, verdict
from paint import KEPT, keep_three

_DIALOG = os.path.join(PROGRAMS, "dialog_bench")
_ROUNDS = 20
#: Milliseconds for each number of queues.
_LIMITS = {3: 50.0, 1000: 200.0}


def measure(factor):
    met = True
    rows = []
    for queues, limit in _LIMITS.items():
        added = queues - len(KEPT)
        names = list(KEPT)
        if added:
            names += ["Queue%04d" % number for number in (1, added // 2, added)]
        found = in_world("select", {"rounds": rounds_of(_ROUNDS, factor), "names": names},
                         "--no-record", "--queues", str(added))
        if found["listed"] != queues:
            raise RuntimeError("%d of %d queues are listed" % (found["listed"], queues))
        good = found["max"] < limit
        met = met and good
        rows.append([str(queues), str(found["choices"]), "%.1f ms" % found["median"],
                     "%.1f ms" % found["max"], "< %.0f ms: %s" % (limit, verdict(good))])
    table(["queues", "choices", "median", "most", "target"], rows)
    return met


def inside(rounds, names):
    keep_three()
    done = subprocess.run([_DIALOG, "select", str(rounds), *names], check=True,
                          env=clean_environment(QT_QPA_PLATFORM="offscreen"),
                          stdout=subprocess.PIPE)
    return json.loads(done.stdout)
