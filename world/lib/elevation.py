"""The way of an ordinary user to a world with namespaces: through sudo."""

import os
import signal
import sys

import accounts
import processes


def run(arguments):
    """
    Runs the same command again as root. Root's processes cannot be signalled by the user and get
    no environment through sudo; so they are told of a process of the user's. They take account and
    environment from it, and end the world when it ends.
    """
    signal.pthread_sigmask(signal.SIG_BLOCK, processes.END_SIGNALS + (signal.SIGCHLD,))
    token = processes.fork(_wait_for_ever)
    command = ["sudo", "--", "/usr/bin/python3", "-I", os.path.realpath(sys.argv[0]),
               "--for-process", str(token), *arguments]
    try:
        elevated = os.posix_spawnp("sudo", command, os.environ, setsigmask=[])
    except FileNotFoundError:
        sys.exit("world: the private namespaces need root, and there is no sudo")
    code, cause = _wait(elevated, token)
    if cause:
        processes.end_by(cause)
    return code


def _wait_for_ever():
    processes.die_with_parent()
    while True:
        signal.pause()


def _wait(elevated, token):
    cause = None
    while True:
        number = signal.sigwait(processes.END_SIGNALS + (signal.SIGCHLD,))
        if number != signal.SIGCHLD:
            cause = cause or number
            os.kill(token, signal.SIGKILL)
            continue
        ended, status = os.waitpid(elevated, os.WNOHANG)
        if ended:
            return processes.exit_code(status), cause


def caller(pid):
    """The account of the user's process, and a descriptor that can be read when it has ended."""
    end = os.pidfd_open(pid)
    with open("/proc/%d/environ" % pid, "rb") as file:
        pairs = [text.partition(b"=") for text in file.read().split(b"\0") if b"=" in text]
    os.environb.clear()
    os.environb.update({name: value for name, _, value in pairs})
    return accounts.of_process(pid), [end]
