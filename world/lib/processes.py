"""Processes: a few calls that Python lacks, and the end of a whole tree of processes."""

import ctypes
import os
import signal

_LIBC = ctypes.CDLL(None, use_errno=True)
_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36

CLONE_NEWNS = 0x00020000
CLONE_NEWPID = 0x20000000

#: What a user or a supervisor sends to end a run.
END_SIGNALS = (signal.SIGHUP, signal.SIGINT, signal.SIGTERM)


def _check(result, what):
    if result != 0:
        error = ctypes.get_errno()
        raise OSError(error, "%s: %s" % (what, os.strerror(error)))


def die_with_parent():
    """The kernel kills this process when its parent ends, however that ends."""
    parent = os.getppid()
    _check(_LIBC.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0), "prctl")
    if os.getppid() != parent:
        os._exit(1)


def adopt_orphans():
    """Orphans among the descendants become children of this process, not of init."""
    _check(_LIBC.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0), "prctl")


def unshare(flags):
    _check(_LIBC.unshare(flags), "unshare")


def mount(source, target, kind=None, flags=0, data=None):
    def text(value):
        return None if value is None else os.fsencode(value)

    _check(_LIBC.mount(text(source), text(target), text(kind), ctypes.c_ulong(flags), text(data)),
           "mount %s on %s" % (source, target))


def exit_code(status):
    """The status of wait() as a shell tells it."""
    code = os.waitstatus_to_exitcode(status)
    return code if code >= 0 else 128 - code


def fork(child):
    """Runs child() in a new process, which ends with the number that it returns."""
    pid = os.fork()
    if pid:
        return pid
    code = 70
    try:
        code = child()
    except BaseException as error:  # the process ends here, whatever happened
        os.write(2, ("world: %s\n" % error).encode())
    finally:
        os._exit(code)


def end_by(number):
    """Ends this process by the signal, as a shell expects of a program that was interrupted."""
    signal.signal(number, signal.SIG_DFL)
    signal.pthread_sigmask(signal.SIG_UNBLOCK, [number])
    os.kill(os.getpid(), number)


def _parents():
    """A map from each process to its parent."""
    found = {}
    for name in os.listdir("/proc"):
        if not name.isdigit():
            continue
        try:
            with open("/proc/%s/stat" % name, "rb") as stat:
                found[int(name)] = int(stat.read().rpartition(b")")[2].split()[1])
        except (OSError, IndexError):
            pass  # it ended meanwhile
    return found


def descendants():
    """Children of this process, their children, and so on."""
    parents = _parents()
    family = {os.getpid()}
    grown = True
    while grown:
        more = {pid for pid, parent in parents.items() if parent in family and pid not in family}
        family |= more
        grown = bool(more)
    return family - {os.getpid()}


def signal_all(pids, number):
    for pid in pids:
        try:
            os.kill(pid, number)
        except OSError:
            pass  # ended meanwhile, or another user's


def _reap():
    """Collects ended children; False when there is no child at all."""
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
        return True
    except ChildProcessError:
        return False


def kill_descendants():
    """Kills every descendant. Needs adopt_orphans(): none may escape to init."""
    while True:
        pids = descendants()
        if not pids:
            return
        signal_all(pids, signal.SIGKILL)
        # A child that ends hands its own children to this process; collect it, then look again.
        try:
            os.waitpid(-1, 0)
        except ChildProcessError:
            return
        if not _reap():
            return
