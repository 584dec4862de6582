"""Builds the programs, starts private worlds, times processes and prints tables."""

import contextlib
import json
import os
import statistics
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PROJECT = os.path.dirname(HERE)
BUILD = os.path.join(PROJECT, "build-bench")
PROGRAMS = os.path.join(BUILD, "bench")
_STAGE = os.path.join(BUILD, "stage")
_WORLD = os.path.join(PROJECT, "world/world")
_RUN = os.path.join(HERE, "run")


def prepare():
    """Builds and installs below the build folder; quick when nothing has changed."""
    for command in (["cmake", "--preset", "bench"],
                    ["cmake", "--build", "--preset", "bench"],
                    ["cmake", "--install", BUILD, "--prefix", _STAGE]):
        done = subprocess.run(command, cwd=PROJECT, stdout=subprocess.PIPE, text=True)
        if done.returncode != 0:
            sys.exit(done.stdout + "\nbench/run: the build failed")


def load():
    """The load averages of the last 1, 5 and 15 minutes and the number of processors."""
    return "%.2f %.2f %.2f on %d processors" % (*os.getloadavg(), os.cpu_count())


def in_world(function, arguments, *options, wrapper=()):
    """The result of the function of `parts.INSIDE`, called with `arguments` inside a world."""
    command = [*wrapper, _WORLD, *options, "--install", _STAGE, "--", _RUN, "--inside", function,
               json.dumps(arguments)]
    done = subprocess.run(command, stdout=subprocess.PIPE, env=clean_environment(), check=True)
    return json.loads(done.stdout)


def clean_environment(**changes):
    """This process's environment without what leads to a display or changes the toolkit."""
    foreign = ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "PRINT_FROM_ORRN", "VESK_PLUGIN_DIR")
    kept = {name: value for name, value in os.environ.items()
            if name not in foreign and not name.startswith(("QT_", "LC_"))}
    kept["LC_ALL"] = "C.UTF-8"
    if "VESK_WORLD" in os.environ:
        kept["XDG_RUNTIME_DIR"] = os.path.join(os.environ["HOME"], "runtime")
        os.makedirs(kept["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
    kept.update(changes)
    return kept


def milliseconds(command, environment, stdin=os.devnull):
    """How long the command runs, from its start until its status is there. It must succeed."""
    actions = ((os.POSIX_SPAWN_OPEN, 0, stdin, os.O_RDONLY, 0),
               (os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0))
    start = time.perf_counter()
    pid = os.posix_spawn(command[0], command, environment, file_actions=actions)
    status = os.waitpid(pid, 0)[1]
    took = (time.perf_counter() - start) * 1000
    if status != 0:
        raise RuntimeError("%s ended with %d" % (command, os.waitstatus_to_exitcode(status)))
    return took


def interleaved(rounds, measurements, warm_up=1):
    """Calls each of the named functions once a round, so that disturbances meet all of them.

    Returns the list of the numbers that each gave; those of the first rounds are dropped."""
    names = list(measurements)
    found = {name: [] for name in names}
    for turn in range(rounds + warm_up):
        first = turn % len(names)
        for name in names[first:] + names[:first]:
            number = measurements[name]()
            if turn >= warm_up:
                found[name].append(number)
    return found


@contextlib.contextmanager
def display(*options):
    """The name of a virtual display, which lives as long as the context."""
    readable, writable = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writable), "-screen", "0", "1280x1024x24", "-noreset",
         "-nolisten", "tcp", *options], pass_fds=(writable,), stderr=subprocess.DEVNULL)
    os.close(writable)
    with os.fdopen(readable) as number:
        name = number.readline().strip()
    if not name:
        raise RuntimeError("no virtual display")
    try:
        yield ":" + name
    finally:
        server.terminate()
        server.wait()


def rounds_of(usual, factor):
    return max(3, round(usual * factor))


def table(headings, rows):
    print("| %s |" % " | ".join(headings))
    print("|%s" % ("---|" * len(headings)))
    for row in rows:
        print("| %s |" % " | ".join(row))


def times(numbers):
    """Median and least, as cells of a table."""
    return "%.1f ms" % statistics.median(numbers), "%.1f ms" % min(numbers)


def ratio(numbers, peer):
    return statistics.median(numbers) / statistics.median(peer)


def verdict(met):
    return "met" if met else "**missed**"
