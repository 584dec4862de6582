"""What lies under the names lpr and lpr.orig."""

import os
import shutil
import subprocess

_HERE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
_SOURCE = os.path.join(_HERE, "record-argv.c")
_BUILT = os.path.join(os.path.dirname(_HERE), ".cache/world/record-argv")
_KEPT_CLIENT = "lpr.orig"
_CLIENT = "lpr"


def place(options, root, folder, system, program):
    """
    Puts a link to the program and the client into `folder`. The machine's own programs are seen
    in the folder `system`.
    """
    original = _system_client(system)
    _replace(os.path.join(folder, _CLIENT))
    os.symlink(program, os.path.join(folder, _CLIENT))
    target = os.path.join(folder, _KEPT_CLIENT)
    _replace(target)
    if options.client == "file":
        shutil.copy(_brought(root), target)
    elif options.client == "system":
        os.symlink(original, target)
    elif options.client == "record":
        _place_recorder(root, target, original)


def link_tree(options, tree):
    """Links the installed tree's entries into `tree`, with the relocated program as bin/vesk."""
    programs = os.path.join(tree, "bin")
    os.makedirs(programs)
    if not options.install:
        return
    _link_entries(options.install, tree)
    _link_entries(os.path.join(options.install, "bin"), programs)
    relocated = os.path.join(options.install, "bin", "vesk-relocated")
    if os.path.exists(relocated):
        _replace(os.path.join(programs, "vesk"))
        os.symlink(relocated, os.path.join(programs, "vesk"))


def _link_entries(source, target):
    for name in os.listdir(source):
        path = os.path.join(target, name)
        if not os.path.exists(path):
            os.symlink(os.path.join(source, name), path)


def _replace(path):
    if os.path.lexists(path):
        os.unlink(path)


def _system_client(system):
    """The system's own client, also where this program has already taken its place."""
    for name in (_KEPT_CLIENT, _CLIENT):
        path = os.path.join(system, name)
        if os.path.exists(path):
            return os.path.realpath(path)
    raise RuntimeError("no lpr on this system: the package cups-bsd is missing")


def bring(options, root):
    """Puts a copy of the client into the world, before the view of the file system changes."""
    target = _brought(root)
    if options.client == "file":
        shutil.copy(options.client_file, target)
    elif options.client == "record" and _is_built():
        shutil.copy(_BUILT, target)
    elif options.client == "record":
        _compile(target)


def _brought(root):
    return os.path.join(root, "bin/client")


def _place_recorder(root, target, original):
    shutil.copy(_brought(root), target)
    with open(target + ".record", "w") as settings:
        settings.write("%s\n%s\n" % (os.path.join(root, "client-argv"), original))


def _is_built():
    return os.path.exists(_BUILT) and os.path.getmtime(_BUILT) >= os.path.getmtime(_SOURCE)


def build_once():
    """Builds the recorder into the project's cache, where that can be written."""
    if _is_built() or not os.access(os.path.dirname(_HERE), os.W_OK):
        return
    os.makedirs(os.path.dirname(_BUILT), exist_ok=True)
    part = "%s.%d" % (_BUILT, os.getpid())
    _compile(part)
    os.rename(part, _BUILT)


def _compile(target):
    subprocess.run(["cc", "-O2", "-Wall", "-Wextra", "-Werror", "-o", target, _SOURCE], check=True)
