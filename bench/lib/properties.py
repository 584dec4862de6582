"""The time that the properties dialog takes to open, and to close when it is accepted."""

import json
import os
import statistics
import subprocess
import sys
import tempfile

from harness import BUILD, PROGRAMS, PROJECT, clean_environment, in_world, rounds_of, table, verdict

sys.path.insert(0, os.path.join(PROJECT, "tests/corpus"))

from ppd_archive import Archive  # noqa: E402

_DIALOG = os.path.join(PROGRAMS, "dialog_bench")
_ROUNDS = 20
#: Milliseconds until the dialog is painted, for each destination.
_OPENED = {"Laser": 150.0, "Largest": 400.0}
_CLOSED = 100.0


def measure(factor):
    archive = Archive()
    with tempfile.NamedTemporaryFile(dir=BUILD, suffix=".ppd") as file:
        file.write(archive.text(archive.largest()))
        file.flush()
        os.chmod(file.name, 0o644)
        found = in_world("properties", {"rounds": rounds_of(_ROUNDS, factor), "ppd": file.name},
                         "--no-record")
    met = True
    rows = []
    for name, limit in _OPENED.items():
        for key, title, most in (("opened", "opened", limit), ("closed", "accepted", _CLOSED)):
            numbers = found[name][key]
            good = statistics.median(numbers) < most
            met = met and good
            rows.append([name, title, str(len(numbers)), "%.1f ms" % statistics.median(numbers),
                         "%.1f ms" % numbers[0], "%.1f ms" % max(numbers),
                         "< %.0f ms: %s" % (most, verdict(good))])
    table(["destination", "properties dialog", "times", "median", "first", "most", "target"], rows)
    return met


def inside(rounds, ppd):
    subprocess.run(["lpadmin", "-p", "Largest", "-E", "-v", "file:///dev/null", "-P", ppd],
                   check=True, stderr=subprocess.DEVNULL)
    return {name: _times(rounds, name) for name in _OPENED}


def _times(rounds, name):
    done = subprocess.run([_DIALOG, "properties", str(rounds), name], check=True,
                          env=clean_environment(QT_QPA_PLATFORM="offscreen"),
                          stdout=subprocess.PIPE)
    return json.loads(done.stdout)
