"""A print server's stand-in that passes everything on to the real one and keeps it."""

import os
import socket
import tempfile
import threading


class Exchange:
    """One request and its answer."""

    def __init__(self, resource, request, answer):
        self.resource = resource
        self.request = request
        self.answer = answer
        self.operation = int.from_bytes(request[2:4], "big")
        self.status = int.from_bytes(answer[2:4], "big")


class RecordingProxy:
    """Listens on the local socket `path`. The exchanges are complete when a client has ended."""

    def __init__(self, server):
        self._server = server
        self._folder = tempfile.TemporaryDirectory()
        self.path = os.path.join(self._folder.name, "socket")
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(self.path)
        self._listener.listen()
        self._connections = []
        self._acceptor = threading.Thread(target=self._accept)
        self._acceptor.start()

    def exchanges(self):
        """What has gone through, in order of the connections, which must have ended."""
        found = []
        for connection in self._connections:
            connection.join()
            found += connection.exchanges()
        return found

    def close(self):
        self._listener.shutdown(socket.SHUT_RDWR)
        self._acceptor.join()
        self._listener.close()
        for connection in self._connections:
            connection.join()
        self._folder.cleanup()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _accept(self):
        while True:
            try:
                client, _ = self._listener.accept()
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX)
            server.connect(self._server)
            self._connections.append(_Connection(client, server))


class _Connection:
    def __init__(self, client, server):
        self._sockets = (client, server)
        self._sent = bytearray()
        self._received = bytearray()
        self._threads = [
            threading.Thread(target=_pass_on, args=(client, server, self._sent)),
            threading.Thread(target=_pass_on, args=(server, client, self._received)),
        ]
        for thread in self._threads:
            thread.start()

    def join(self):
        for thread in self._threads:
            thread.join()
        for end in self._sockets:
            end.close()

    def exchanges(self):
        sent = _messages(bytes(self._sent))
        received = [message for message in _messages(bytes(self._received))
                    if message[0].split()[1] != b"100"]
        return [Exchange(request[0].split()[1].decode(), request[1], answer[1])
                for request, answer in zip(sent, received)]


def _pass_on(source, target, record):
    try:
        while data := source.recv(65536):
            record += data
            target.sendall(data)
    except OSError:
        pass
    for end, how in ((target, socket.SHUT_WR), (source, socket.SHUT_RD)):
        try:
            end.shutdown(how)
        except OSError:
            pass


def _messages(stream):
    """The HTTP messages of one direction as (first line, body)."""
    found = []
    while stream:
        head, _, stream = stream.partition(b"\r\n\r\n")
        lines = head.split(b"\r\n")
        headers = {name.lower(): value.strip()
                   for name, _, value in (line.partition(b":") for line in lines[1:])}
        if headers.get(b"transfer-encoding") == b"chunked":
            body, stream = _unchunked(stream)
        else:
            length = int(headers.get(b"content-length", 0))
            body, stream = stream[:length], stream[length:]
        found.append((lines[0], body))
    return found


def _unchunked(stream):
    body = b""
    while True:
        size, _, stream = stream.partition(b"\r\n")
        length = int(size, 16)
        body += stream[:length]
        stream = stream[length + 2:]
        if length == 0:
            return body, stream
