"""Runs without a dialog, beside the system client alone."""

import os

from harness import (clean_environment, display, in_world, interleaved, milliseconds, ratio,
                     rounds_of, table, times, verdict)

_LIMIT = 1.5
_ROUNDS = 60
_CLIENT = "/usr/bin/lpr.orig"
_PROGRAM = "/usr/bin/lpr"
#: It takes jobs and does not print them, so no filter runs while the next run is measured.
_QUEUE = "Stopped"
_NOBODY_THERE = ":4242"


#: Each run and the one that it is compared with.
_FILE, _STDIN = "the system client alone", "the system client alone, standard input"
_RUNS = {
    "`PRINT_FROM_ORRN=1 lpr`": _FILE,
    "`lpr`, `DISPLAY` not set": _FILE,
    "`lpr`, nobody at `DISPLAY`": _FILE,
    "`lpr`, `DISPLAY` refuses": _FILE,
    "`PRINT_FROM_ORRN=1 lpr`, standard input": _STDIN,
}


def measure(factor):
    found = in_world("handover", {"rounds": rounds_of(_ROUNDS, factor)}, "--no-record")
    met = True
    rows = []
    for name, numbers in found.items():
        cells = [name, *times(numbers)]
        if name not in _RUNS:
            rows.append(cells + ["", ""])
            continue
        peer = ratio(numbers, found[_RUNS[name]])
        good = peer <= _LIMIT
        met = met and good
        rows.append(cells + ["%.2f" % peer, "≤ %.1f: %s" % (_LIMIT, verdict(good))])
    print("%d runs of each with 10 bytes in a file.\n" % len(found[_FILE]))
    table(["run", "median", "least", "to the client", "target"], rows)
    return met


def inside(rounds):
    file = os.path.join(os.environ["HOME"], "small.txt")
    with open(file, "w", encoding="ascii") as text:
        text.write("ten bytes\n")
    cookie = _write_cookie(os.path.join(os.environ["HOME"], "cookie"))
    with display("-auth", cookie) as refusing:
        def run(program, **environment):
            changed = clean_environment(**environment)
            return lambda: milliseconds([program, "-P", _QUEUE, file], changed)

        def run_filter(program, **environment):
            changed = clean_environment(**environment)
            return lambda: milliseconds([program, "-P", _QUEUE], changed, file)

        asked, unset, nobody, refused, captured = _RUNS
        return interleaved(rounds, {
            _FILE: run(_CLIENT),
            asked: run(_PROGRAM, PRINT_FROM_ORRN="1"),
            unset: run(_PROGRAM),
            nobody: run(_PROGRAM, DISPLAY=_NOBODY_THERE),
            refused: run(_PROGRAM, DISPLAY=refusing),
            _STDIN: run_filter(_CLIENT),
            captured: run_filter(_PROGRAM, PRINT_FROM_ORRN="1"),
        }, warm_up=3)


def _write_cookie(path):
    """A file of authorisations (family "any", a secret that nobody else is told)."""
    def counted(data):
        return len(data).to_bytes(2, "big") + data

    with open(path, "wb") as file:
        file.write(b"\xff\xff" + counted(b"") + counted(b"") + counted(b"MIT-MAGIC-COOKIE-1")
                   + counted(os.urandom(16)))
    return path
