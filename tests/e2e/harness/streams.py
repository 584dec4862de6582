"""What comes on standard input, and displays that are none."""

import contextlib
import os
import socket
import threading

#: An answer of the display protocol: refused, no reason given, version 11.0.
_REFUSAL = bytes([0, 0, 11, 0, 0, 0, 0, 0])


def pattern(size):
    """`size` bytes that are the same in every run and do not repeat in step with a chunk."""
    block = bytes((index * 7 + index // 251) % 256 for index in range(65521))
    return (block * (size // len(block) + 1))[:size]


@contextlib.contextmanager
def silent_pipe():
    """The reading end of a pipe into which nothing is ever written, and the other end."""
    reading, writing = os.pipe()
    try:
        yield reading, writing
    finally:
        for end in (reading, writing):
            with contextlib.suppress(OSError):
                os.close(end)


@contextlib.contextmanager
def slow_pipe(pieces, first, between):
    """The reading end of a pipe that gets the pieces late: `first` seconds, then `between`."""
    reading, writing = os.pipe()
    stop = threading.Event()

    def write():
        pause = first
        for piece in pieces:
            if stop.wait(pause):
                break
            os.write(writing, piece)
            pause = between
        os.close(writing)
    writer = threading.Thread(target=write)
    writer.start()
    try:
        yield reading
    finally:
        stop.set()
        writer.join()
        os.close(reading)


@contextlib.contextmanager
def false_display(path, refuses):
    """A display that takes connections and refuses, or never answers; its name."""
    with socket.socket(socket.AF_UNIX) as server:
        server.bind(path)
        server.listen()
        taken = []
        taker = threading.Thread(target=_take, args=(server, taken, refuses))
        taker.start()
        try:
            yield "unix:" + path
        finally:
            server.shutdown(socket.SHUT_RDWR)
            taker.join()
            for connection in taken:
                connection.close()


def _take(server, taken, refuses):
    while True:
        try:
            connection = server.accept()[0]
        except OSError:
            return
        taken.append(connection)
        if refuses:
            connection.sendall(_REFUSAL)
