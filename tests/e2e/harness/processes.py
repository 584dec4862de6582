"""The processes of the machine, as /proc shows them."""

import ctypes
import os

_PR_SET_CHILD_SUBREAPER = 36

#: Children of the tests themselves that come and go during a run.
OWN = set()


def adopt_orphans():
    ctypes.CDLL(None).prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def _stat(pid):
    """The fields of /proc/PID/stat after the name: state, parent, group, session and so on."""
    with open("/proc/%d/stat" % pid, errors="replace") as file:
        return file.read().rpartition(")")[2].split()


def _each_process():
    for name in os.listdir("/proc"):
        if name.isdigit():
            try:
                yield int(name), _stat(int(name))
            except (FileNotFoundError, ProcessLookupError):
                pass


def children():
    own = str(os.getpid())
    return [pid for pid, fields in _each_process() if fields[1] == own and fields[0] != "Z"]


def commands(chosen):
    for pid, fields in _each_process():
        if fields[0] != "Z" and chosen(pid, int(fields[3])):
            with open("/proc/%d/cmdline" % pid, errors="replace") as file:
                yield file.read().replace("\0", " ").strip()
