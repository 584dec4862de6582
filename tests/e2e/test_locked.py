"""A server that tells nobody anything without root's password: what is asked of it first, too."""

import base64
import os
import socketserver
import struct
import threading

from harness import place, widgets
from test_password import READY, TITLE, PasswordCase

_EXPECTED = b"authorization: basic " + base64.b64encode(b"root:" + place.PASSWORD.encode()).lower()


def _attribute(tag, name, value):
    return struct.pack(">BH%dsH%ds" % (len(name), len(value)), tag, len(name), name, len(value), value)


#: To every question: one printer, idle and accepting jobs.
_ANSWER = (struct.pack(">BBHi", 2, 0, 0, 1) + b"\x01" +
           _attribute(0x47, b"attributes-charset", b"utf-8") +
           _attribute(0x48, b"attributes-natural-language", b"en") + b"\x04" +
           _attribute(0x42, b"printer-name", b"Far") +
           _attribute(0x23, b"printer-state", struct.pack(">i", 3)) +
           _attribute(0x22, b"printer-is-accepting-jobs", b"\x01") + b"\x03")


class _Connection(socketserver.StreamRequestHandler):
    """Answers with the challenge, or, to root with his password, with an answer."""

    def handle(self):
        while True:
            head = [line.strip().lower() for line in iter(self.rfile.readline, b"\r\n") if line]
            if not head:
                return
            length = next((int(line.split(b":")[1]) for line in head
                           if line.startswith(b"content-length:")), 0)
            self.rfile.read(length)
            body = _ANSWER if _EXPECTED in head else b""
            first = (b"200 OK" if body else
                     b"401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"CUPS\"")
            self.wfile.write(b"HTTP/1.1 %s\r\nContent-Type: application/ipp\r\n"
                             b"Content-Length: %d\r\n\r\n%s" % (first, len(body), body))


class _Server(socketserver.ThreadingMixIn, socketserver.UnixStreamServer):
    daemon_threads = True


class Locked(PasswordCase):
    def setUp(self):
        super().setUp()
        path = os.path.join(self.folder, "locked")
        lock = _Server(path, _Connection)
        self.addCleanup(lock.server_close)
        threading.Thread(target=lock.serve_forever).start()
        self.addCleanup(lock.shutdown)
        self.asking_run = self.start("-P", "Far", self.file(), environment={"CUPS_SERVER": path})

    def assert_opens(self, *destinations):
        dialog = self.dialog(self.asking_run)
        self.assertFalse(widgets.has_window(self.desktop, self.asking_run, TITLE))
        self.assertEqual(dialog.destinations, list(destinations))
        if destinations:
            self.assertEqual(dialog.status, READY)
        self.assert_cancels(dialog)

    def test_cancelled(self):
        # Once: nothing else of the same action asks again.
        self.answer(self.prompt(), "Escape")
        self.assert_opens()

    def test_given(self):
        self.answer(self.prompt(), "Return", text="wrong")
        self.answer(self.prompt(), "Return", text=place.PASSWORD)
        self.assert_opens("Far")
