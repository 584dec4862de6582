"""The driver options of the largest real PPD: time and memory."""

import json
import os
import subprocess
import sys
import tempfile

from harness import PROGRAMS, PROJECT, clean_environment, rounds_of, table, verdict

sys.path.insert(0, os.path.join(PROJECT, "tests/corpus"))

from ppd_archive import Archive  # noqa: E402

_PROGRAM = os.path.join(PROGRAMS, "ppd_tree_bench")
_ROUNDS = 20
#: Milliseconds.
_LIMITS = {"build": 50.0, "select": 16.0, "boolean": 16.0, "change": 16.0, "custom": 16.0}
#: For the PPD and its tree, in kB.
_MEMORY_LIMIT = 20_000
_NAMES = {
    "open": "libcups alone: the PPD opened, its defaults marked",
    "build": "the tree built and painted",
    "select": "a row selected, its editor painted",
    "boolean": "a choice of two changed, conflicts checked, painted",
    "change": "a choice of a list changed, conflicts checked, painted",
    "custom": "a custom size chosen and edited, conflicts checked, painted",
}


def measure(factor):
    archive = Archive()
    name = archive.largest()
    with tempfile.NamedTemporaryFile(suffix=".ppd") as file:
        file.write(archive.text(name))
        file.flush()
        times = _run("times", file.name, str(rounds_of(_ROUNDS, factor)))
        memory = _run("memory", file.name)
    print("%s, %d bytes.\n" % (name, archive.size(name)))
    met = _print_times(times)
    used = memory["ppd"] + memory["tree"]
    small = used < _MEMORY_LIMIT
    print("\nMemory of this process alone: %d kB for the PPD and %d kB for its tree above an empty "
          "window; target < %d kB: %s." % (memory["ppd"], memory["tree"], _MEMORY_LIMIT,
                                           verdict(small)))
    return met and small


def _print_times(times):
    met = True
    rows = []
    for key, title in _NAMES.items():
        found = times[key]
        limit = _LIMITS.get(key)
        good = limit is None or found["processor"] < limit
        met = met and good
        rows.append([title, str(found["count"]), "%.2f ms" % found["median"],
                     "%.2f ms" % found["max"], "%.2f ms" % found["processor"],
                     "%.2f" % (found["median"] / times["open"]["median"]),
                     "< %.0f ms: %s" % (limit, verdict(good)) if limit else ""])
    table(["what", "times", "median", "most", "most of the processor", "to opening",
           "target"], rows)
    return met


def _run(*arguments):
    done = subprocess.run([_PROGRAM, *arguments], check=True, stdout=subprocess.PIPE,
                          env=clean_environment(QT_QPA_PLATFORM="offscreen"))
    return json.loads(done.stdout)
