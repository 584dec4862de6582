"""
The command vesk-server on a private server, compared with what others say of that server.
Run in a private world as: test_vesk_server.py PROGRAM
"""

import datetime
import os
import re
import socket
import struct
import subprocess
import sys
import tempfile
import time
import threading
import unittest

_PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(
    os.path.abspath(__file__)))))
sys.path[:0] = [os.path.join(_PROJECT, "world/lib"), os.path.join(_PROJECT, "tests/support")]

import ipp  # noqa: E402
import reply_log  # noqa: E402
from recording_proxy import RecordingProxy  # noqa: E402

PRINTED, FAILED, WRONG_ARGUMENTS, NOTHING_FOUND = range(4)
_PATIENCE = 60
_PROGRAM = sys.argv.pop(1)
_SERVER = os.environ["CUPS_SERVER"]
_LOGS = os.path.join(os.environ["VESK_RELOCATED_ROOT"], "var/tmp")

_ENUM, _KEYWORD, _URI = 0x23, 0x44, 0x45
_GET_PRINTERS, _GET_CLASSES, _GET_PPDS, _GET_JOBS = 0x4002, 0x4005, 0x400C, 0x000A
_GET_DEFAULT = 0x4001
_DUMPED = ("printer-info", "printer-location", "printer-make-and-model", "device-uri",
           "printer-uri-supported", "printer-type", "printer-state", "printer-is-accepting-jobs",
           "member-names")


def run(*arguments, server=_SERVER, **settings):
    environment = dict(os.environ, CUPS_SERVER=server, **settings)
    return subprocess.run([_PROGRAM, *arguments], capture_output=True, text=True,
                          timeout=_PATIENCE, env=environment)


def output_of(*command):
    # lpstat and its like show nothing of the saved options.
    with tempfile.TemporaryDirectory() as home:
        return subprocess.run(command, capture_output=True, text=True, check=True,
                              timeout=_PATIENCE, env=dict(os.environ, HOME=home)).stdout


def queue_job(queue, title):
    """Queues a job and returns its number."""
    text = output_of("lp", "-d", queue, "-t", title, __file__)
    return int(re.search(r"-(\d+) ", text).group(1))


def set_default(name):
    output_of("lpadmin", "-d", name)


def wait_until_done(number):
    limit = time.monotonic() + _PATIENCE
    while ipp.job(_SERVER, number)["job-state"][0] < 7:
        if time.monotonic() > limit:
            raise AssertionError("job %d does not end" % number)
        time.sleep(0.02)


def dump(kind, name, about, default):
    """What is printed of a queue that the server describes so."""
    state = {3: "idle", 4: "processing", 5: "stopped"}[about["printer-state"][0]]
    accepting = "accepting" if about["printer-is-accepting-jobs"][0] else "rejecting"
    uris = about["printer-uri-supported"]
    text = "%s %s: %s, %s jobs%s\n" % (kind, name, state, accepting, ", default" * default)
    text += "\tName/Description/Location: <%s/%s/%s>\n" % (
        name, about["printer-info"][0], about["printer-location"][0])
    text += "\tInfo/ModelInfo: </%s>\n" % about["printer-make-and-model"][0]
    text += "\tLocalURI: <%s>\n\tUri: <%s>\n\tURIs: <%s>\n" % (
        about["device-uri"][0], uris[0], "|".join(uris))
    text += "\tPrinterType: 0x%08x\n" % about["printer-type"][0]
    if kind == "Class":
        text += "\tprinters: <%s>\n" % "|".join(about["member-names"])
    return text


def as_printer(name, about, default):
    """What is printed of a queue among the printers: of a class all but its members."""
    kind = "Class" if "member-names" in about else "Printer"
    lines = dump(kind, name, about, default).splitlines(True)
    return "".join(line for line in lines if not line.startswith("\tprinters:"))


def names(text):
    return re.findall(r"^(?:Printer|Class) (.*?):", text, re.M)


class Listings(unittest.TestCase):
    def assert_printed(self, expected, *arguments):
        found = run(*arguments)
        self.assertEqual((found.stdout, found.stderr), (expected, ""))
        self.assertEqual(found.returncode, PRINTED if expected else NOTHING_FOUND)

    def test_default(self):
        name = output_of("lpstat", "-d").strip().split(": ")[1]
        self.assertEqual(name, "Laser")
        self.assert_printed("Default: %s\n" % name, "default")

    def test_printers(self):
        queues = ipp.printers(_SERVER, *_DUMPED)
        self.assertEqual(len(queues), 6)
        self.assert_printed("".join(as_printer(name, queues[name], name == "Laser")
                                    for name in sorted(queues)), "printers")

    def test_classes(self):
        about = ipp.printers(_SERVER, *_DUMPED)["Office"]
        self.assert_printed(dump("Class", "Office", about, False), "classes")
        self.assertEqual(output_of("lpstat", "-c", "Office").split()[4:],
                         about["member-names"])

    def test_default_class(self):
        self.addCleanup(set_default, "Laser")
        set_default("Office")
        about = ipp.printers(_SERVER, *_DUMPED)["Office"]
        self.assert_printed(dump("Class", "Office", about, True), "classes")

    def test_everything(self):
        self.assertEqual(run().stdout, run("default", "printers", "classes", "jobs").stdout)

    def test_names(self):
        for pattern, expected in (("Laser", ["Laser"]), ("laser", []), ("P*", ["Photo", "Plain"]),
                                  ("?la*", ["Plain"]), ("Office", ["Office", "Office"])):
            with self.subTest(pattern):
                found = run("--name", pattern, "printers", "classes")
                self.assertEqual(names(found.stdout), expected)
                self.assertEqual(found.returncode, PRINTED if expected else NOTHING_FOUND)

    def test_types(self):
        for type_bits, mask in ((1, 1), (0, 1), (8, 8), (0, 8), (0x10, 0x11), (0, 0)):
            with self.subTest(type=type_bits, mask=mask):
                _, groups = ipp.request(_SERVER, _GET_PRINTERS, [
                    (_ENUM, "printer-type", [type_bits]), (_ENUM, "printer-type-mask", [mask]),
                    (_KEYWORD, "requested-attributes", ["printer-name"])])
                expected = [group["printer-name"][0] for group in groups[1:]]
                self.assertTrue(expected)
                found = run("--type", hex(type_bits), "--mask", str(mask), "printers")
                self.assertEqual(names(found.stdout), sorted(expected))

    def test_models(self):
        queues = ipp.printers(_SERVER, "printer-make-and-model")
        for part in ("TARVEL", "px", "raw", "nobody's"):
            with self.subTest(part):
                expected = sorted(name for name, about in queues.items()
                                  if part.lower() in about["printer-make-and-model"][0].lower())
                self.assertEqual(names(run("--model", part, "printers").stdout), expected)

    def test_by_uri(self):
        queues = ipp.printers(_SERVER, *_DUMPED)
        self.assert_printed(dump("Printer", "Photo", queues["Photo"], False),
                            "--uri", "ipp://localhost/printers/Photo", "printers")
        self.assert_printed(as_printer("Office", queues["Office"], False),
                            "--uri", "ipp://localhost/classes/Office", "printers")
        self.assert_printed(dump("Printer", "Laser", queues["Laser"], True),
                            "--uri", "ipp://localhost/printers/Laser", "printers")
        self.assert_printed("", "--uri", "ipp://localhost/printers/nobody", "printers")

    def test_drivers(self):
        _, groups = ipp.request(_SERVER, _GET_PPDS, [(_URI, "printer-uri", ["ipp://localhost/"])])
        drivers = [group for group in groups if "ppd-name" in group]
        makes = {driver["ppd-make"][0] for driver in drivers}
        self.assertGreater(len(makes), 1)

        def text(wanted):
            return "".join(
                "Manufacturer=<%s> Model=<%s> DriverFile=<%s> Language=<%s>\n" % tuple(
                    driver[name][0] for name in ("ppd-make", "ppd-make-and-model", "ppd-name",
                                                 "ppd-natural-language"))
                for driver in drivers if wanted(driver))
        self.assert_printed(text(lambda driver: True), "drivers")
        make = sorted(makes)[0]
        self.assert_printed(text(lambda driver: driver["ppd-make"][0] == make),
                            "drivers", "--make", make)
        name = drivers[-1]["ppd-name"][0]
        self.assert_printed(text(lambda driver: driver["ppd-name"][0] == name),
                            "drivers", "--name", name)
        self.assert_printed("", "drivers", "--make", "nobody's")


class Jobs(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.waiting = [queue_job("Stopped", "first"), queue_job("Stopped", "B\u00fcro <%s>")]
        cls.ended = queue_job("Plain", "ended")
        wait_until_done(cls.ended)

    @classmethod
    def tearDownClass(cls):
        output_of("cancel", "-a", "Stopped")

    def text(self, number, **changes):
        about = ipp.job(_SERVER, number)
        created = datetime.datetime.fromtimestamp(about["time-at-creation"][0],
                                                  datetime.timezone.utc)
        fields = {"printer": about["job-printer-uri"][0].split("/")[-1], "uri": "", **changes}
        return "Job=<%d> State=<%s> Name=<%s> Printer=<%s> User=<%s> Uri=<%s> Size=<%dk> " \
               "Created=<%s>\n" % (
                   number, {3: "pending", 9: "completed"}[about["job-state"][0]],
                   about["job-name"][0], fields["printer"],
                   about["job-originating-user-name"][0], fields["uri"], about["job-k-octets"][0],
                   created.strftime("%Y-%m-%dT%H:%M:%SZ"))

    def listed(self, which):
        """The numbers that lpstat lists."""
        text = output_of("lpstat", "-W", which, "-o")
        return sorted(int(line.split()[0].split("-")[-1]) for line in text.splitlines())

    def test_lists(self):
        for which, theirs in (("active", "not-completed"), ("completed", "completed"),
                              ("all", "all")):
            with self.subTest(which):
                numbers = self.listed(theirs)
                self.assertEqual(self.ended in numbers, which != "active")
                self.assertEqual(self.waiting[0] in numbers, which != "completed")
                expected = "".join(self.text(number) for number in numbers)
                self.assertEqual(run("jobs", "--which", which).stdout, expected)

    def test_active_ones_are_listed_by_default(self):
        found = run("jobs")
        self.assertEqual(found.stdout, "".join(self.text(number) for number in self.waiting))
        self.assertEqual(found.returncode, PRINTED)

    def test_of_a_destination(self):
        self.assertEqual(run("jobs", "--which", "all", "--name", "Pl*").stdout,
                         self.text(self.ended))
        self.assertEqual(run("jobs", "--name", "Plain").returncode, NOTHING_FOUND)

    def test_with_uris(self):
        def uris(number):
            about = ipp.job(_SERVER, number)
            return {"printer": about["job-printer-uri"][0], "uri": about["job-uri"][0]}
        expected = "".join(self.text(number, **uris(number)) for number in self.waiting)
        found = run("jobs", "--uris")
        self.assertEqual((found.stdout, found.returncode), (expected, PRINTED))
        self.assertEqual(run("jobs", "--uris", "--name", "Stopped").stdout, expected)
        self.assertEqual(run("jobs", "--uris", "--name", "Laser").returncode, NOTHING_FOUND)


def reads_everything(exchange):
    """Whether a record reader gets the answer: not the library, nor the first look at the server."""
    if exchange.operation == _GET_DEFAULT:
        return b"printer-location" in exchange.request
    return is_own(exchange)


def is_own(exchange):
    """Whether the request is the program's own and not one of the library."""
    if exchange.operation == _GET_JOBS:
        return b"job-uri" in exchange.request
    return exchange.operation == _GET_PPDS or exchange.resource in ("/printers/", "/classes/")


class Logs(unittest.TestCase):
    """The five logs of a run, byte for byte, told from what has gone over the wire."""

    TEXTS = {0: b"OK", 0x0406: b"IPP_NOT_FOUND - Not found"}

    def expected(self, exchanges):
        logs = dict.fromkeys(("request", "printer", "driver", "job", "class"), b"")
        kinds = {_GET_PRINTERS: "printer", _GET_DEFAULT: "printer", _GET_CLASSES: "class",
                 _GET_PPDS: "driver", _GET_JOBS: "job"}
        for exchange in filter(is_own, exchanges):
            logs["request"] += b"Requesting operation 0x%x...\r\nResult status: %s\n\r\n" % (
                exchange.operation, self.TEXTS[exchange.status])
            if not reads_everything(exchange):
                continue
            logs[kinds[exchange.operation]] += reply_log.of_all(exchange.answer)
            if exchange.operation == _GET_CLASSES:
                logs["printer"] += reply_log.of_class_in_printer_log(exchange.answer)
        return logs

    def assert_logged(self, *arguments):
        with RecordingProxy(_SERVER) as proxy:
            found = run(*arguments, server=proxy.path)
            exchanges = proxy.exchanges()
        self.assertEqual((found.returncode, found.stderr), (PRINTED, ""))
        expected = self.expected(exchanges)
        for name, text in expected.items():
            with self.subTest(log=name), open(os.path.join(_LOGS, "ipp_%s.log" % name), "rb") as log:
                self.assertEqual(log.read(), text)
        return expected

    def test_listings(self):
        logs = self.assert_logged("default", "printers", "classes", "jobs")
        self.assertGreater(len(logs["printer"]), 1000)
        self.assertIn(b"Property with no name!", logs["printer"])
        self.assertIn(b"Property name: member-names\r\nValues: 2\r\n", logs["class"])
        self.assertEqual(logs["driver"] + logs["job"], b"")

    def test_jobs_with_uris(self):
        queue_job("Stopped", "first")
        queue_job("Stopped", "second")
        self.addCleanup(output_of, "cancel", "-a", "Stopped")
        logs = self.assert_logged("jobs", "--uris")
        self.assertIn(b"Property with no name!", logs["job"])
        self.assertIn(b"String: second\r\n", logs["job"])
        self.assertEqual(logs["printer"] + logs["class"] + logs["driver"], b"")

    def test_drivers(self):
        logs = self.assert_logged("drivers")
        self.assertGreater(logs["driver"].count(b"Property name: ppd-name\r\n"), 1)
        self.assertEqual(logs["printer"] + logs["class"] + logs["job"], b"")


class BadServer:
    """
    A server that answers the first request with an empty success, the others with the HTTP and IPP
    status `later`. It closes each connection without an answer where the status is None.
    """

    def __init__(self, first, later):
        self._statuses = [first]
        self._later = later
        self._folder = tempfile.TemporaryDirectory()
        self.path = os.path.join(self._folder.name, "socket")
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(self.path)
        self._listener.listen()
        self._thread = threading.Thread(target=self._serve)
        self._thread.start()

    def _serve(self):
        while True:
            try:
                client = self._listener.accept()[0]
            except OSError:
                return
            with client, client.makefile("rwb") as stream:
                while self._answer(stream):
                    pass

    def _answer(self, stream):
        """Whether the connection stays open."""
        status = self._statuses[0] if self._statuses else self._later
        if status is None or not self._read(stream):
            return False
        self._statuses[:1] = []
        http_status, ipp_status = status
        body = struct.pack(">BBHiB", 2, 0, ipp_status, 1, 3)
        try:
            stream.write(b"HTTP/1.1 %d Answer\r\nContent-Type: application/ipp\r\n"
                         b"Content-Length: %d\r\n\r\n%s" % (http_status, len(body), body))
            stream.flush()
        except OSError:
            return False
        return True

    @staticmethod
    def _read(stream):
        length = 0
        try:
            if not stream.readline():
                return False
            for line in iter(stream.readline, b"\r\n"):
                if line.lower().startswith(b"content-length:"):
                    length = int(line.split(b":")[1])
            return len(stream.read(length)) == length
        except OSError:
            return False

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._listener.shutdown(socket.SHUT_RDWR)
        self._thread.join()
        self._listener.close()
        self._folder.cleanup()


OK = (200, 0)
SECTIONS = (["default"], ["printers"], ["printers", "--uri", "ipp://localhost/printers/x"],
            ["classes"], ["jobs"], ["jobs", "--which", "all"], ["jobs", "--uris"], ["drivers"])
NO_ANSWER = "the print server does not answer"
NOT_AUTHENTICATED = "IPP_NOT_AUTHENTICATED - Not authenticated. Perhaps wrong password"
FORBIDDEN = "IPP_FORBIDDEN - Operation forbidden"


class Statuses(unittest.TestCase):
    def assert_complaint(self, found, status, complaint):
        self.assertEqual((found.returncode, found.stdout, found.stderr),
                         (status, "", "vesk-server: %s\n" % complaint))

    def test_help(self):
        found = run("--help", server="/nonexistent")
        self.assertEqual((found.returncode, found.stderr), (PRINTED, ""))
        self.assertTrue(found.stdout.startswith("Usage: vesk-server "))

    def test_wrong_arguments(self):
        for arguments, complaint in ((["queues"], "unknown word: queues"),
                                     (["--what"], "Unknown option 'what'."),
                                     (["--type", "x"], "--type: not understood: x")):
            with self.subTest(arguments):
                self.assert_complaint(run(*arguments), WRONG_ARGUMENTS,
                                      complaint + " (try --help)")

    def test_without_server(self):
        with BadServer(None, None) as closing:
            for server in ("/nonexistent", closing.path):
                with self.subTest(server):
                    self.assert_complaint(run(server=server), FAILED, NO_ANSWER)

    def assert_each_section(self, first, later, status, complaint, sections=SECTIONS):
        for section in sections:
            with self.subTest(section), BadServer(first, later) as server:
                found = run(*section, server=server.path)
                if complaint:
                    self.assert_complaint(found, status, complaint)
                else:
                    self.assertEqual((found.returncode, found.stdout, found.stderr),
                                     (status, "", ""))

    def test_server_that_knows_nothing(self):
        self.assert_each_section(OK, OK, NOTHING_FOUND, None)
        self.assert_each_section(OK, (200, 0x0406), NOTHING_FOUND, None)

    def test_server_that_refuses(self):
        for status, complaint in ((0x0403, "IPP_NOT_AUTHORIZED - Not authorized"),
                                  (0x0500, "IPP_INTERNAL_ERROR - Internal error"),
                                  (0x0502, "IPP_SERVICE_UNAVAILABLE - Serice unavailable")):
            with self.subTest(hex(status)):
                self.assert_each_section(OK, (200, status), FAILED, complaint)

    def test_server_that_goes_away(self):
        self.assert_each_section(OK, None, FAILED, NO_ANSWER)
        self.assert_each_section(OK, (500, 0), FAILED, NO_ANSWER)

    def test_server_that_lets_nobody_in(self):
        for first in (OK, (401, 0)):
            self.assert_each_section(first, (401, 0), FAILED, NOT_AUTHENTICATED)
        for first in (OK, (403, 0)):
            self.assert_each_section(first, (403, 0), FAILED, FORBIDDEN)

    def test_no_stale_complaint(self):
        # The first look is refused, the list is not.
        self.assert_each_section((200, 0x0403), OK, NOTHING_FOUND, None)

    def test_full_output(self):
        with open("/dev/full", "w") as full:
            found = subprocess.run([_PROGRAM, "printers"], stdout=full, stderr=subprocess.PIPE,
                                   text=True, timeout=_PATIENCE)
        self.assertEqual((found.returncode, found.stderr),
                         (FAILED, "vesk-server: the output cannot be written\n"))

    def test_without_log_folder(self):
        found = run("printers", VESK_RELOCATED_ROOT="/nonexistent")
        self.assertEqual((found.returncode, found.stderr), (PRINTED, ""))
        self.assertEqual(found.stdout, run("printers").stdout)


if __name__ == "__main__":
    unittest.main()
