"""The world's print server: what it says, and its end and return."""

import os
import plistlib
import re
import shlex
import signal
import subprocess
import urllib.parse

from . import place, processes
from .waiting import until

#: The socket's path as the server itself knows it.
LISTENS_AT = place.WORLD + "/var/run/cups/cups.sock"
_PID = place.WORLD + "/var/run/cups/cupsd.pid"
#: For an older version of the protocol the server leaves the collections out.
_JOB_TEST = """{
    NAME "job"
    VERSION 2.0
    OPERATION Get-Job-Attributes
    GROUP operation-attributes-tag
    ATTR charset attributes-charset utf-8
    ATTR language attributes-natural-language en
    ATTR uri job-uri ipp://localhost/jobs/%d
    STATUS successful-ok
}
"""
_SAVED = os.path.expanduser("~/.cups/lpoptions")
_ETC = place.WORLD + "/etc/cups/"


def command(*words):
    """Runs a command of the print system and returns what it prints."""
    return subprocess.run(words, check=True, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL, env=dict(os.environ, LC_ALL="C.UTF-8")).stdout


def pid():
    with open(_PID) as file:
        return int(file.read())


def _is_there(process):
    try:
        with open("/proc/%d/stat" % process) as file:
            return file.read().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


def stop():
    process = pid()
    os.kill(process, signal.SIGKILL)
    until(lambda: not _is_there(process), "the server's end")


def start():
    """Starts the server again after stop()."""
    program = place.WORLD + "/bin/cupsd"
    process = subprocess.Popen(
        [program, "-f", "-c", _ETC + "cupsd.conf", "-s", _ETC + "cups-files.conf"],
        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        start_new_session=True)
    processes.OWN.add(process.pid)
    until(lambda: subprocess.run(["lpstat", "-r"], check=False, capture_output=True,
                                 text=True).stdout.startswith("scheduler is running"), "the server")


def options(destination):
    """The options that the print system itself has for a destination.

    lpoptions prints a value with blanks between single quotes, and escapes nothing.
    """
    found = re.findall(r"(\S+?)=(?:'(.*?)'|(\S*))(?: |$)",
                       command("lpoptions", "-p", destination).rstrip("\n"))
    return {name: quoted or plain for name, quoted, plain in found}


def _saved_lines():
    with open(_SAVED) as file:
        return file.read().splitlines()


def keep_saved_options():
    """What brings the user's saved options back as they are now."""
    lines = _saved_lines()

    def restore():
        with open(_SAVED, "w") as file:
            file.writelines(line + "\n" for line in lines)
    return restore


def saved_options():
    """The user's own options by destination, as they lie in the file of saved options."""
    lines = [shlex.split(line) for line in _saved_lines()]
    return {words[1]: dict(word.partition("=")[::2] for word in words[2:]) for words in lines}


def job_attributes(number):
    """The attributes of a job, read back over the network protocol."""
    path = os.path.join(place.WORLD, "job.test")
    with open(path, "w") as file:
        file.write(_JOB_TEST % number)
    address = "ipp://%s/jobs/%d" % (urllib.parse.quote(place.SOCKET, safe=""), number)
    # Its status also says what it thinks of the values, such as a name with a line break.
    answer = subprocess.run(["ipptool", "-X", address, path], check=False, capture_output=True,
                            stdin=subprocess.DEVNULL).stdout
    test, = plistlib.loads(answer)["Tests"]
    attributes = {}
    for group in test["ResponseAttributes"]:
        attributes.update(group)
    assert "job-state" in attributes, test
    return attributes
