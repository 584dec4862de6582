"""What the diagnostic logs must hold of an IPP message (RFC 8010), told from its bytes alone."""

import struct

_END = 0x03
_PRINTER_GROUP = 0x04
_DELIMITERS = range(0x00, 0x10)
_BEGIN_COLLECTION, _END_COLLECTION = 0x34, 0x37
_INTEGER, _OCTETS = 0x21, 0x30
_TEXTS = (_OCTETS, 0x41, 0x42, 0x45, 0x49)
_MEMBERS = (b"member-uris", b"member-names")


def _field(data, position):
    length = struct.unpack(">H", data[position:position + 2])[0]
    position += 2
    return data[position:position + length], position + length


def attributes(message):
    """
    The attributes in order as (group, name, values); a value is (tag, bytes). Where a group follows
    one of its own kind stands one without a name. A collection is one value, without its members.
    """
    found = []
    group = depth = 0
    position = 8
    while message[position] != _END:
        tag = message[position]
        position += 1
        if tag in _DELIMITERS:
            if tag == group:
                found.append((0, None, []))
            group = tag
            continue
        name, position = _field(message, position)
        value, position = _field(message, position)
        if tag == _END_COLLECTION:
            depth -= 1
        elif depth == 0:
            if name:
                found.append((group, name, []))
            found[-1][2].append((tag, value))
        if tag == _BEGIN_COLLECTION:
            depth += 1
    return found


def _entry(name, values):
    if name is None:
        return b"\n----------\nProperty with no name!\n\r\n"
    text = b"\n*************\nProperty name: %s\r\nValues: %d\r\n" % (name, len(values))
    tag, value = values[0]
    text += b"Value tag: 0x%x\r\n" % tag
    if tag == _INTEGER:
        text += b"Integer: %d\r\n" % struct.unpack(">i", value)
    elif tag in _TEXTS and (value or tag != _OCTETS):  # octets without octets are a null pointer
        text += b"String: %s\r\n" % value.split(b"\0")[0]
    return text


def of_all(message):
    """The entries of a reader that is handed everything."""
    return b"".join(_entry(name, values) for _, name, values in attributes(message))


def of_class_in_printer_log(message):
    """What the reader of classes hands on to that of printers."""
    return b"".join(_entry(name, values) for group, name, values in attributes(message)
                    if group == _PRINTER_GROUP and name not in _MEMBERS)
