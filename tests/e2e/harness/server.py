"""The world's print server: what it says, and its end and return."""

import os
import plistlib
import re
import signal
import subprocess
import urllib.parse

from . import place, processes
from .waiting import until

#: The socket's path as the server itself knows it.
LISTENS_AT = place.WORLD + "/var/run/cups/cups.sock"
_PID = place.WORLD + "/var/run/cups/cupsd.pid"
_JOB_TEST = """{
    NAME "job"
    OPERATION Get-Job-Attributes
    GROUP operation-attributes-tag
    ATTR charset attributes-charset utf-8
    ATTR language attributes-natural-language en
    ATTR uri job-uri ipp://localhost/jobs/%d
    STATUS successful-ok
}
"""
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
