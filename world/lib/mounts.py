"""The private view of the file system: what a world puts over the machine's own folders."""

import os
import shutil

import processes
import server
from processes import mount

_NOSUID = 2
_NODEV = 4
_NOEXEC = 8
_BIND = 4096
_REC = 16384
_PRIVATE = 1 << 18

_PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
_PROGRAMS = "/usr/bin"
#: The machine's folder and the world's folder that takes its place.
_COVERED = (
    ("/etc/cups", "etc/cups"), ("/run/cups", "var/run/cups"), ("/var/run/cups", "var/run/cups"),
    ("/var/spool/cups", "var/spool/cups"), ("/var/cache/cups", "var/cache/cups"),
    ("/var/log/cups", "var/log/cups"), ("/var/tmp", "var/tmp"), ("/opt", "opt"), ("/tmp", "tmp"),
)


def are_possible():
    """Whether the kernel allows this process the namespaces and mounts of a world."""
    def attempt():
        processes.unshare(processes.CLONE_NEWNS | processes.CLONE_NEWPID)
        os._exit(os.waitstatus_to_exitcode(os.waitpid(processes.fork(_try_mounts), 0)[1]))

    def silently():
        try:
            attempt()
        except OSError:
            return 1

    return os.waitpid(processes.fork(silently), 0)[1] == 0


def _try_mounts():
    try:
        _isolate()
        mount("tmpfs", "/tmp", "tmpfs")
        return 0
    except OSError:
        return 1


def enter(options, root, user):
    """Gives this process, the first of its process namespace, the private view."""
    processes.unshare(processes.CLONE_NEWNS)
    _isolate()
    _copy_display_key(root, user)
    if options.auth or options.forbid:
        _bind(server.write_login(root), "/etc/pam.d/cups")
    if options.install:
        _bind(options.install, _folder(root, "opt/Tarvel/mfp"))
    place = os.getcwd()
    _show_display(root)
    _show((place, _PROJECT, *options.show), root)
    _cover_programs(options, root)
    _cover_saved_options(root, user)
    _cover_folders(root)
    os.chdir(place)


def original_programs(root):
    """The machine's own /usr/bin, as it lies under the world's."""
    return _original(root, _PROGRAMS)


def _isolate():
    mount("none", "/", None, _REC | _PRIVATE)
    mount("proc", "/proc", "proc", _NOSUID | _NODEV | _NOEXEC)


def _folder(*parts):
    path = os.path.join(*parts)
    os.makedirs(path, exist_ok=True)
    return path


def _bind(source, target):
    mount(source, target, None, _BIND | _REC)


def _inside(path):
    """The name, below the world's folder, of what is seen as `path` in the private view."""
    for target, name in _COVERED:
        if path.startswith(target + "/"):
            return name + path[len(target):]
    return None


def _show(paths, root):
    """Keeps files and folders visible that lie below covered ones, such as a project in /tmp."""
    shown = []
    for path in sorted({os.path.realpath(path) for path in paths}, key=len):
        name = _inside(path)
        if name and not any(path.startswith(other + "/") for other in shown):
            _bind(path, _place_for(path, os.path.join(root, name)))
            shown.append(path)


def _place_for(path, target):
    """An empty folder or file `target`, as `path` is one or the other."""
    if os.path.isdir(path):
        return _folder(target)
    _folder(os.path.dirname(target))
    open(target, "w").close()
    return target


def _show_display(root):
    """Keeps the socket of the user's own display visible; no other display's."""
    number = os.environ.get("DISPLAY", "").rpartition(":")[2].partition(".")[0]
    socket = "/tmp/.X11-unix/X" + number
    if not number or not os.path.exists(socket):
        return
    _bind(socket, _place_for(socket, os.path.join(root, "tmp/.X11-unix", "X" + number)))


def _cover_programs(options, root):
    _keep_original(_PROGRAMS, root)
    if not (options.overlay and _overlay(_PROGRAMS, root)):
        _fill_with_links(_PROGRAMS, root)


def _cover_saved_options(root, user):
    own = os.path.join(user.home, ".cups")
    if os.path.isdir(own):
        _bind(_folder(root, "home/.cups"), own)


def _cover_folders(root):
    def holds_world(folder):
        return root.startswith(folder + "/")

    # The folder that holds the world comes last, and the world stays visible in it.
    for target, name in sorted(_COVERED, key=lambda pair: holds_world(pair[0])):
        if holds_world(target):
            _bind(root, _folder(root, _inside(root)))
        _cover(os.path.join(root, name), target, root)


def _cover(source, target, root):
    """Shows `source` as `target`, which need not exist."""
    if not os.path.isdir(target):
        parent = os.path.dirname(target)
        _keep_original(parent, root)
        _fill_with_links(parent, root)
        os.makedirs(target)
    _bind(source, target)


def _original(root, path):
    return os.path.join(root, "system", path.strip("/").replace("/", "-"))


def _keep_original(path, root):
    _bind(path, _folder(_original(root, path)))


def _overlay(path, root):
    """A writable layer in memory over `path`; False where the kernel has no overlays."""
    layer = _folder(root, "layer")
    mount("tmpfs", layer, "tmpfs", 0, "mode=0755")
    upper, work = _folder(layer, "upper"), _folder(layer, "work")
    try:
        mount("overlay", path, "overlay", 0,
              "lowerdir=%s,upperdir=%s,workdir=%s" % (path, upper, work))
        return True
    except OSError:
        return False


def _fill_with_links(path, root):
    """A folder in memory over `path`, with links to everything that was there."""
    original = _original(root, path)
    mount("tmpfs", path, "tmpfs", 0, "mode=0755")
    for entry in os.scandir(original):
        target = os.path.join(path, entry.name)
        if entry.is_symlink():
            os.symlink(os.readlink(entry.path), target)
        else:
            os.symlink(entry.path, target)


def _copy_display_key(root, user):
    """Copies the key of the user's display into the world: the original may be out of sight."""
    source = os.environ.get("XAUTHORITY") or os.path.join(user.home, ".Xauthority")
    if not os.environ.get("DISPLAY") or not os.path.isfile(source):
        return
    target = os.path.join(root, "display-key")
    shutil.copyfile(source, target)
    os.chmod(target, 0o600)
    os.chown(target, user.uid, user.gid)
    os.environ["XAUTHORITY"] = target
