"""A small IPP client (RFC 8010, RFC 8011) over a local socket: enough to look at a server."""

import base64
import http.client
import socket
import struct

_GET_JOB_ATTRIBUTES = 0x0009
_PAUSE_PRINTER = 0x0010
_GET_JOBS = 0x000A
_CUPS_GET_DEFAULT = 0x4001
_CUPS_GET_PRINTERS = 0x4002

_OPERATION, _END = 0x01, 0x03
_DELIMITERS = range(0x00, 0x10)
_INTEGER, _BOOLEAN, _ENUM, _KEYWORD, _URI = 0x21, 0x22, 0x23, 0x44, 0x45
_CHARSET, _LANGUAGE, _NAME = 0x47, 0x48, 0x42
_RANGE = 0x33
_BEGIN_COLLECTION, _END_COLLECTION, _MEMBER = 0x34, 0x37, 0x4A
_NUMBERS = (_INTEGER, _ENUM)
_OUT_OF_BAND = range(0x10, 0x20)


class _Connection(http.client.HTTPConnection):
    def __init__(self, path):
        super().__init__("localhost", timeout=30)
        self._path = path

    def connect(self):
        self.sock = socket.socket(socket.AF_UNIX)
        self.sock.settimeout(self.timeout)
        self.sock.connect(self._path)


def request(socket_path, operation, attributes, resource="/", user="root", password=None):
    """
    Sends a request whose operation attributes are (tag, name, values), as `user`, and returns
    the status and the groups of the answer, each a map from a name to the list of its values.
    """
    body = struct.pack(">BBHI", 2, 0, operation, 1) + bytes([_OPERATION])
    for attribute in (*_FIRST, *attributes, (_NAME, "requesting-user-name", [user])):
        body += _encoded(*attribute)
    headers = {"Content-Type": "application/ipp"}
    if password is not None:
        login = base64.b64encode(("%s:%s" % (user, password)).encode()).decode()
        headers["Authorization"] = "Basic " + login
    connection = _Connection(socket_path)
    try:
        connection.request("POST", resource, body + bytes([_END]), headers)
        answer = connection.getresponse()
        if answer.status != 200:
            raise RuntimeError("HTTP status %d" % answer.status)
        return _decoded(answer.read())
    finally:
        connection.close()


def printers(socket_path, *names):
    """The wanted attributes of every queue, as a map from the queue's name."""
    wanted = (_KEYWORD, "requested-attributes", ["printer-name", *names])
    _, groups = request(socket_path, _CUPS_GET_PRINTERS, [wanted])
    return {group["printer-name"][0]: group for group in groups if "printer-name" in group}


def default_printer(socket_path):
    _, groups = request(socket_path, _CUPS_GET_DEFAULT, [])
    return groups[-1]["printer-name"][0]


def pause_printer(socket_path, name, user, password=None):
    """Asks as `user` to stop a queue. A refusal is raised."""
    request(socket_path, _PAUSE_PRINTER, [
        (_URI, "printer-uri", ["ipp://localhost/printers/" + name])], "/admin/", user, password)


def job(socket_path, number):
    """The attributes of a job."""
    _, groups = request(socket_path, _GET_JOB_ATTRIBUTES, [
        (_URI, "job-uri", ["ipp://localhost/jobs/%d" % number]),
        (_KEYWORD, "requested-attributes", ["all"]),
    ], "/jobs/")
    return groups[-1]


def jobs(socket_path):
    """The numbers of all jobs, ended ones too, in their order."""
    _, groups = request(socket_path, _GET_JOBS, [
        (_URI, "printer-uri", ["ipp://localhost/"]),
        (_KEYWORD, "which-jobs", ["all"]),
        (_KEYWORD, "requested-attributes", ["job-id"]),
    ])
    return sorted(group["job-id"][0] for group in groups if "job-id" in group)


_FIRST = (
    (_CHARSET, "attributes-charset", ["utf-8"]),
    (_LANGUAGE, "attributes-natural-language", ["en"]),
)


def _encoded(tag, name, values):
    result = b""
    for value in values:
        data = struct.pack(">i", value) if tag in _NUMBERS else value.encode()
        result += struct.pack(">BH", tag, len(name)) + name.encode()
        result += struct.pack(">H", len(data)) + data
        name = ""
    return result


def _decoded(data):
    status = struct.unpack(">H", data[2:4])[0]
    groups = []
    position = 8
    values = []
    while data[position] != _END:
        tag = data[position]
        position += 1
        if tag in _DELIMITERS:
            groups.append({})
            continue
        name, position = _field(data, position)
        content, position = _field(data, position)
        if name:
            values = groups[-1].setdefault(name.decode(), [])
        values.append(_value(tag, content))
    return status, groups


def _field(data, position):
    length = struct.unpack(">H", data[position:position + 2])[0]
    position += 2
    return data[position:position + length], position + length


#: A collection comes as a row of values: "{", a member's name with "=", its value, and so on, "}".
_BRACKETS = {_BEGIN_COLLECTION: "{", _END_COLLECTION: "}"}


def _value(tag, content):
    if tag in _NUMBERS:
        return struct.unpack(">i", content)[0]
    if tag == _BOOLEAN:
        return content != b"\0"
    if tag == _RANGE:
        return "%d-%d" % struct.unpack(">ii", content)
    if tag in _OUT_OF_BAND:
        return None
    if tag in _BRACKETS:
        return _BRACKETS[tag]
    if tag == _MEMBER:
        return content.decode() + "="
    return content.decode("utf-8", "replace")
