"""The processes of a world.

    front    the process that was started: passes signals on, returns the command's status
    keeper   its child: removes everything, however the others end
    inside   the keeper's child (process 1 of the private namespaces, when there are any): starts
             the server and the command

The keeper learns that the front has ended from a pipe, its "lifeline"; the front learns of the
keeper's end as its parent. Each of them collects orphans, kills every process that is left and
removes the folder, so it takes SIGKILL to both at once to leave anything behind; the next world
removes that.
"""

import os
import select
import signal
import sys
import time

import accounts
import client
import elevation
import inside
import mounts
import options as command_line
import processes
import root as tree

#: How long a command may take to end after SIGTERM before everything is killed, in seconds.
_GRACE = 1.0


def main(arguments):
    options = command_line.parse(arguments)
    if options.client == "record":
        client.build_once()
    if options.mode == "namespace" and os.getuid() != 0:
        return elevation.run(arguments)
    if options.probe:
        return 0 if mounts.are_possible() else 1
    options.account, ends = _caller(options)
    return _run(options, ends)


def _caller(options):
    """The account that the command runs as, and descriptors that tell of the caller's end."""
    if options.for_process:
        return elevation.caller(options.for_process)
    if options.user:
        return accounts.named(options.user), []
    return accounts.current(), []


def _run(options, ends):
    signal.pthread_sigmask(signal.SIG_BLOCK, processes.END_SIGNALS + (signal.SIGCHLD,))
    processes.adopt_orphans()
    tree.sweep()
    root, _lock = tree.reserve()
    lifeline, hold = os.pipe()
    keeper = processes.fork(lambda: _keep(options, root, [lifeline, *ends], hold))
    os.close(lifeline)
    code, cause = _wait_for_keeper(keeper, hold)
    processes.kill_descendants()
    tree.remove(root)
    if cause:
        processes.end_by(cause)
    return code


def _wait_for_keeper(keeper, hold):
    """The keeper's status, and the signal that ended the run or None."""
    cause = None
    while True:
        number = signal.sigwait(processes.END_SIGNALS + (signal.SIGCHLD,))
        if number == signal.SIGCHLD:
            ended, status = os.waitpid(keeper, os.WNOHANG)
            if ended:
                return processes.exit_code(status), cause
        elif cause is None:
            cause = number
            os.close(hold)


def _keep(options, root, lifelines, hold):
    os.close(hold)
    processes.adopt_orphans()
    ended = _watch_children()
    if options.mode == "namespace":
        _enter_namespace()
    pid = processes.fork(lambda: inside.run(options, root))
    # A group of its own: Ctrl-C and a signal to the whole group are for the command.
    os.setpgid(0, 0)
    try:
        return _wait_for_inside(pid, lifelines, ended)
    finally:
        processes.kill_descendants()
        _save(root, options.account)
        tree.remove(root)


def _enter_namespace():
    try:
        processes.unshare(processes.CLONE_NEWPID)
    except OSError as error:
        raise RuntimeError("the kernel refuses the private namespaces (%s); --relocated does "
                           "without" % error.strerror) from error


def _watch_children():
    """A descriptor that can be read when a child has ended."""
    readable, writable = os.pipe2(os.O_CLOEXEC | os.O_NONBLOCK)
    signal.set_wakeup_fd(writable)
    signal.signal(signal.SIGCHLD, lambda number, frame: None)
    signal.pthread_sigmask(signal.SIG_UNBLOCK, [signal.SIGCHLD])
    return readable


def _wait_for_inside(pid, lifelines, ended):
    limit = None
    watched = [ended, *lifelines]
    while True:
        left = None if limit is None else max(0.0, limit - time.monotonic())
        readable = select.select(watched, [], [], left)[0]
        # Before the look at the child: what is told after this wakes the next round.
        if ended in readable:
            os.read(ended, 4096)
        found, status = os.waitpid(pid, os.WNOHANG)
        if found:
            return processes.exit_code(status)
        if limit is None and set(readable) & set(lifelines):
            watched = [ended]
            limit = time.monotonic() + _GRACE
            os.kill(pid, signal.SIGTERM)
        if limit is not None and time.monotonic() >= limit:
            os.kill(pid, signal.SIGKILL)
            limit = None


def _save(root, user):
    """Copies the results of the run to the folder that VESK_KEEP names."""
    target = os.environ.get("VESK_KEEP")
    if target:
        try:
            tree.save(root, target, user)
        except OSError as error:
            print("world: %s" % error, file=sys.stderr)
