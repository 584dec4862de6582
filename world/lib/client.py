"""What lies under the names lpr and lpr.orig."""

import os
import shutil
import subprocess

_HERE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
_SOURCE = os.path.join(_HERE, "record-argv.c")
_BUILT = os.path.join(os.path.dirname(_HERE), ".cache/world/record-argv")
_KEPT_CLIENT = "lpr.orig"
_CLIENT = "lpr"


def place(options, root):
    """Puts the program and the client into the folder usr/bin of the world."""
    folder = os.path.join(root, "usr/bin")
    os.symlink(_program(options, root), os.path.join(folder, _CLIENT))
    target = os.path.join(folder, _KEPT_CLIENT)
    if options.client == "file":
        os.symlink(options.client_file, target)
    elif options.client == "system":
        os.symlink(system_client(), target)
    elif options.client == "record":
        _place_recorder(root, target)


def system_client():
    """The system's own client, also where this program has already taken its place."""
    for name in (_KEPT_CLIENT, _CLIENT):
        path = os.path.join("/usr/bin", name)
        if os.path.exists(path):
            return os.path.realpath(path)
    raise RuntimeError("no lpr on this system: the package cups-bsd is missing")


def _program(options, root):
    tree = os.path.join(root, "opt/Tarvel/mfp")
    os.makedirs(os.path.join(tree, "bin"))
    if options.install:
        _link_tree(options.install, tree)
    if options.program:
        _replace(options.program, os.path.join(tree, "bin/vesk"))
    return os.path.join(tree, "bin/vesk")


def _link_tree(source, target):
    """Links every entry of the installed tree, and of its folder bin."""
    for name in os.listdir(source):
        if name != "bin":
            os.symlink(os.path.join(source, name), os.path.join(target, name))
    for name in os.listdir(os.path.join(source, "bin")):
        os.symlink(os.path.join(source, "bin", name), os.path.join(target, "bin", name))


def _replace(source, target):
    if os.path.lexists(target):
        os.unlink(target)
    os.symlink(source, target)


def _place_recorder(root, target):
    if is_built():
        shutil.copy(_BUILT, target)
    else:
        _compile(target)
    with open(target + ".record", "w") as settings:
        settings.write("%s\n%s\n" % (os.path.join(root, "client-argv"), system_client()))


def is_built():
    return os.path.exists(_BUILT) and os.path.getmtime(_BUILT) >= os.path.getmtime(_SOURCE)


def build_once():
    """Builds the recorder into the project's cache, where that can be written."""
    if is_built() or not os.access(os.path.dirname(_HERE), os.W_OK):
        return
    os.makedirs(os.path.dirname(_BUILT), exist_ok=True)
    part = "%s.%d" % (_BUILT, os.getpid())
    _compile(part)
    os.rename(part, _BUILT)


def _compile(target):
    subprocess.run(["cc", "-O2", "-Wall", "-Wextra", "-Werror", "-o", target, _SOURCE], check=True)
