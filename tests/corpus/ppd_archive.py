"""The PPDs of the package openprinting-ppds.

They are read out of the installed package with its own driver program, which is loaded as a module
so that its archive is unpacked once.
"""

import base64
import collections
import importlib.machinery
import importlib.util
import lzma
import subprocess
import sys

_DRIVER = "/usr/lib/cups/driver/openprinting-ppds"


class Archive:
    """The driver program's PPDs by name."""

    def __init__(self):
        driver = self._load(_DRIVER)
        index = driver.load()
        self._bytes = lzma.decompress(base64.b64decode(index.pop("ARCHIVE")))
        self._index = index
        self.names = sorted(index)

    @staticmethod
    def _load(path):
        loader = importlib.machinery.SourceFileLoader("driver", path)
        module = importlib.util.module_from_spec(importlib.util.spec_from_loader("driver", loader))
        sys.dont_write_bytecode = True
        loader.exec_module(module)
        return module

    def text(self, name):
        """The bytes of one PPD."""
        start, length = self._index[name][:2]
        return self._bytes[start:start + length]

    def maker(self, name):
        """The maker that the driver program lists the PPD under, in lower case."""
        return self._index[name][2][0].split('"')[3].lower()

    @staticmethod
    def printed(name):
        """The bytes that the driver program itself prints for one PPD; it unpacks all again."""
        return subprocess.run([_DRIVER, "cat", "openprinting-ppds:" + name], check=True,
                              stdout=subprocess.PIPE).stdout

    def largest(self):
        """The name of the largest PPD."""
        return max(self.names, key=self.size)

    def size(self, name):
        """The length of the PPD in bytes."""
        return self._index[name][1]


def sample(archive, count):
    """At least `count` names, every maker's share as even as its number of PPDs allows.

    The choice depends on the archive alone. The largest PPD is always in it.
    """
    by_maker = collections.defaultdict(list)
    for name in archive.names:
        by_maker[archive.maker(name)].append(name)
    for share in range(1, len(archive.names) + 1):
        chosen = {archive.largest()}
        for names in by_maker.values():
            taken = min(share, len(names))
            chosen.update(names[i * len(names) // taken] for i in range(taken))
        if len(chosen) >= count:
            break
    return sorted(chosen)
