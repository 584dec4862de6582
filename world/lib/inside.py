"""What runs inside a world: the server and the command."""

import os
import shutil
import signal

import client
import mounts
import processes
import queues
import root as tree
import server

_STATUS_NOT_FOUND = 127
_STATUS_NOT_STARTED = 126

#: Settings that would lead out of the world.
_FOREIGN = ("PRINTER", "LPDEST", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
            "XDG_STATE_HOME", "TMPDIR", "VESK_RELOCATED_ROOT", "VESK_KEEP")

_command = 0


def run(options, root):
    """Builds the world in `root`, runs the command and returns its status."""
    processes.die_with_parent()
    signal.set_wakeup_fd(-1)
    user = options.account
    tree.furnish(root)
    if options.server:
        server.write_settings(root, options)
    queues.write_queues(root, options)
    _place_programs(options, root, user)
    if user.uid != os.getuid():
        tree.give_to(root, user, ("home", "client-argv"))
    if options.server:
        server.start(root)
    return _run_command(options, root, user)


def _place_programs(options, root, user):
    client.bring(options, root)
    if options.mode == "namespace":
        mounts.enter(options, root, user)
        client.place(options, root, "/usr/bin", mounts.original_programs(root),
                     "/opt/Tarvel/mfp/bin/vesk")
    else:
        own = os.path.join(root, "opt/Tarvel/mfp")
        client.link_tree(options, own)
        client.place(options, root, os.path.join(root, "usr/bin"), "/usr/bin",
                     os.path.join(own, "bin/vesk"))


def _environment(options, root):
    kept = {name: value for name, value in os.environ.items()
            if name not in _FOREIGN and not name.startswith("CUPS_")}
    kept.update(VESK_WORLD=root, HOME=os.path.join(root, "home"))
    if options.mode == "relocated":
        kept.update(
            VESK_RELOCATED_ROOT=root,
            CUPS_SERVER=server.socket_path(root),
            CUPS_SERVERROOT=os.path.join(root, "etc/cups"),
            CUPS_STATEDIR=os.path.join(root, "var/run/cups"),
            TMPDIR=os.path.join(root, "tmp"),
            PATH=os.path.join(root, "usr/bin") + ":" + os.environ.get("PATH", os.defpath))
    return kept


def _run_command(options, root, user):
    global _command
    signal.signal(signal.SIGTERM, _end)
    _command = processes.fork(lambda: _become_command(options, root, user))
    signal.pthread_sigmask(signal.SIG_UNBLOCK, [signal.SIGTERM])
    return _wait_for_command()


def _become_command(options, root, user):
    for number in processes.END_SIGNALS + (signal.SIGCHLD, signal.SIGPIPE, signal.SIGXFSZ):
        signal.signal(number, signal.SIG_DFL)
    signal.pthread_sigmask(signal.SIG_SETMASK, [])
    user.become()
    environment = _environment(options, root)
    program = shutil.which(options.command[0], path=environment.get("PATH"))
    if not program:
        os.write(2, ("world: %s: not found\n" % options.command[0]).encode())
        return _STATUS_NOT_FOUND
    try:
        os.execve(program, options.command, environment)
    except OSError as error:
        os.write(2, ("world: %s: %s\n" % (program, error.strerror)).encode())
        return _STATUS_NOT_STARTED


def _wait_for_command():
    """Collects what ends, orphans included, until the command does."""
    while True:
        pid, status = os.waitpid(-1, 0)
        if pid == _command:
            return processes.exit_code(status)


def _end(_number, _frame):
    processes.signal_all(processes.descendants(), signal.SIGTERM)
