"""How fast standard input is stored, beside `cat`, and in how much memory."""

import os
import statistics
import subprocess
import tempfile
import time

from harness import (HERE, clean_environment, in_world, interleaved, rounds_of, table, verdict)

_PROGRAM = "/usr/bin/lpr"
_SMALL = 10_000_000
_LARGE = 1_000_000_000
_ROUNDS = 7
#: At least this part of the rate of cat.
_LIMIT = 0.5
#: By how much the memory may differ between the small and the large input, in kB.
_MEMORY_LIMIT = 512


def measure(factor):
    found = in_world("capture", {"rounds": rounds_of(_ROUNDS, factor)},
                     "--client", os.path.join(HERE, "memory-client"))
    own, peer = (statistics.median(found[name]) for name in ("own", "peer"))
    fast = peer / own >= _LIMIT
    print("%d runs of each with 1 GB from a pipe.\n" % len(found["own"]))
    table(["run", "median", "rate", "of `cat`", "target"], [
        ["`cat > file`", "%.3f s" % peer, _rate(peer), "", ""],
        ["`lpr`, from start to end", "%.3f s" % own, _rate(own), "%.2f" % (peer / own),
         "≥ %.1f: %s" % (_LIMIT, verdict(fast))],
    ])
    small, large = found["memory, small"], found["memory, large"]
    constant = large - small <= _MEMORY_LIMIT
    print("\nMost memory at the end of the capture: %d kB with 10 MB, %d kB with 1 GB; the same "
          "within %d kB: %s." % (small, large, _MEMORY_LIMIT, verdict(constant)))
    return fast and constant


def _rate(seconds):
    return "%.0f MB/s" % (_LARGE / seconds / 1e6)


def inside(rounds):
    report = os.path.join(os.environ["HOME"], "memory")
    environment = clean_environment(PRINT_FROM_ORRN="1", BENCH_MEMORY_REPORT=report)
    # The folder that the program stores its input in.
    folder = os.environ.get("TMPDIR", "/tmp")
    found = interleaved(rounds, {
        "own": lambda: _seconds([_PROGRAM], environment, _LARGE),
        "peer": lambda: _cat(folder, environment),
    })
    found["memory, large"] = _memory(report)
    _seconds([_PROGRAM], environment, _SMALL)
    found["memory, small"] = _memory(report)
    return found


def _cat(folder, environment):
    with tempfile.NamedTemporaryFile(dir=folder) as target:
        return _seconds(["cat"], environment, _LARGE, target)


def _seconds(command, environment, size, target=subprocess.DEVNULL):
    """From the start of the command until its end, reading `size` bytes from a pipe."""
    environment = dict(environment, BENCH_INPUT_SIZE=str(size))
    source = subprocess.Popen(["head", "-c", str(size), "/dev/zero"], stdout=subprocess.PIPE)
    start = time.perf_counter()
    subprocess.run(command, stdin=source.stdout, stdout=target, env=environment, check=True)
    took = time.perf_counter() - start
    source.stdout.close()
    if source.wait() != 0:
        raise RuntimeError("the input was not read to its end")
    return took


def _memory(report):
    """What the stand-in for the client wrote."""
    with open(report, encoding="ascii") as file:
        return int(file.read().split()[1])
