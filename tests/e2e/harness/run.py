"""Runs of the program, watched from the start to what they leave behind."""

import json
import os
import re
import subprocess
import threading
import time
from typing import NamedTuple

from . import place, processes
from .waiting import LIMIT

#: Settings of the tester's own session.
_FOREIGN = re.compile(r"^(DISPLAY|WAYLAND_DISPLAY|XDG_.*|QT_.*|DBUS_.*|DESKTOP_.*|XAUTHORITY|TMPDIR"
                      r"|PRINT_FROM_ORRN|VESK_PLUGIN_DIR|LANG|LC_.*|LANGUAGE|PRINTER|LPDEST)$")
_SANITIZER = re.compile(r"(Address|Leak|UndefinedBehavior)Sanitizer|runtime error:")


class Result(NamedTuple):
    """How a run ended. `clients` are the notes of the runs of the client, see ../client."""

    status: int
    clients: list
    output: str
    errors: str
    ended: int

    @property
    def arguments(self):
        """The arguments of the one run of the client."""
        assert len(self.clients) == 1, "the client ran %d times" % len(self.clients)
        return self.clients[0]["arguments"]


class Run:
    """A run in progress."""

    def __init__(self, folder, arguments, given=None, environment=None, program=place.PROGRAM,
                 name="lpr", prepare=None, place_file=None):
        """`given`: what comes on standard input, bytes or a descriptor; None: nothing at all.

        `folder` is an empty folder for the run's own files, and the one that it works in; it gets
        `place_file`, a name and a text. `environment` changes the program's surroundings (None
        removes a variable). The program is told that it was called as `name`. `prepare` is called in
        the child.
        """
        processes.adopt_orphans()
        self._folder = folder
        self._arguments = arguments
        self._own = {"TMPDIR": os.path.join(folder, "tmp"),
                     "XDG_RUNTIME_DIR": os.path.join(folder, "runtime")}
        for path in self._own.values():
            os.mkdir(path, 0o700)
        if place_file:
            with open(self._path(place_file[0]), "w") as file:
                file.write(place_file[1])
        self._before = _files(self._places())
        self._known = processes.children()
        feed = isinstance(given, bytes)
        with open(self._path("output"), "wb") as output, open(self._path("errors"), "wb") as errors:
            self._process = subprocess.Popen(
                [name, *arguments], executable=program, env=self._environment(environment or {}),
                stdin=subprocess.PIPE if feed else subprocess.DEVNULL if given is None else given,
                stdout=output, stderr=errors, start_new_session=True, cwd=folder, bufsize=0,
                preexec_fn=prepare)
        self.pid = self._process.pid
        if feed:
            threading.Thread(target=_feed, args=(self._process.stdin, given), daemon=True).start()

    def _path(self, name):
        return os.path.join(self._folder, name)

    def _places(self):
        return self._own["TMPDIR"], place.TEMPORARY

    def _environment(self, changes):
        result = {name: value for name, value in os.environ.items() if not _FOREIGN.match(name)}
        result.update(self._own, LC_ALL="C.UTF-8", VESK_E2E_RECORD=self._path("record"))
        result.update(changes)
        return {name: value for name, value in result.items() if value is not None}

    @property
    def temporary(self):
        return self._own["TMPDIR"]

    def has_ended(self):
        return self._process.poll() is not None

    def errors(self):
        with open(self._path("errors"), errors="backslashreplace") as file:
            return file.read()

    def send(self, number):
        self._process.send_signal(number)

    def captured(self):
        """The paths of the temporary files that the run has at the moment."""
        return sorted(set(_files([self._own["TMPDIR"]])) - set(self._before))

    def is_over(self):
        """Whether it has ended, with all that it has started."""
        return self.has_ended() and not self._processes()

    def client_runs(self):
        """Whether the client has been started and has not ended."""
        return os.path.exists(self._path("record.started")) and not self.client_has_ended()

    def client_has_ended(self):
        return os.path.exists(self._path("record")) and not self._processes()

    def finish(self, limit=LIMIT):
        """Waits for the end; the run must leave no file, no process and no complaint behind."""
        ended = self._wait(limit)
        result = Result(self._process.returncode, self._clients(), self._read("output"),
                        self.errors(), ended)
        files = sorted(set(_files(self._places())) - set(self._before))
        left = self._processes()
        self._report(result, files, left)
        assert not _SANITIZER.search(result.errors), result.errors
        assert not files, "left behind: %s" % files
        assert not left, "still running: %s" % left
        return result

    def _wait(self, limit):
        """The time at which a shell would see the end."""
        timer = threading.Timer(limit, self._process.kill)
        timer.start()
        begun = time.monotonic()
        self._process.wait()
        ended = time.monotonic_ns()
        timer.cancel()
        assert time.monotonic() - begun < limit, "still running after %.0f s" % limit
        return ended

    def _read(self, name):
        with open(self._path(name), errors="backslashreplace") as file:
            return file.read()

    def _clients(self):
        try:
            return [json.loads(line) for line in self._read("record").splitlines()]
        except FileNotFoundError:
            return []

    def _processes(self):
        """What is left of the run: its session, and what was taken in from it."""
        adopted = set(processes.children()) - set(self._known)
        return sorted(processes.commands(
            lambda pid, session: session == self.pid or pid in adopted - processes.OWN))

    def _report(self, result, files, left):
        print("    lpr %s\n      client: %s\n      status %s, files left: %s, processes left: %s" % (
            _shown(self._arguments),
            "; ".join(_shown(client["arguments"]) for client in result.clients) or "not run",
            result.status, files or "none", left or "none"), flush=True)

    def stop(self):
        """Ends what is still there of a case that failed."""
        if not self.has_ended():
            self._process.kill()
            self._process.wait()


def _feed(pipe, data):
    try:
        _write_all(pipe, memoryview(data))
        pipe.close()
    except BrokenPipeError:
        pass


def _write_all(pipe, data):
    while data:
        data = data[pipe.write(data):]


def _files(folders):
    """Every file below the folders, without the world itself, which may lie in one of them."""
    return [os.path.join(base, name) for folder in folders
            for base, _, names in os.walk(folder) if not base.startswith(place.WORLD + "/")
            or folder.startswith(place.WORLD + "/") for name in names]


def _shown(arguments):
    return " ".join(repr(os.fsdecode(argument)) for argument in arguments)
