"""The private folder of a world: made at the start, removed at the end."""

import fcntl
import glob
import os
import shutil
import tempfile
import time

PREFIX = "vesk-world-"
#: Room for "<root>/var/run/cups/cups.sock" in the 108 bytes of a socket address.
_LONGEST = 80
#: A folder younger than this many seconds may be one that is about to be locked.
_SETTLED = 10

_FOLDERS = (
    ("bin", 0o755), ("etc/cups/ppd", 0o755), ("etc/cups/ssl", 0o700), ("home", 0o755), ("lib/cups", 0o755),
    ("opt/Tarvel", 0o755), ("pages", 0o1777), ("pictures", 0o1777),
    ("tmp", 0o1777), ("tmp/.X11-unix", 0o1777), ("usr/bin", 0o755), ("var/cache/cups", 0o775),
    ("var/log/cups", 0o755), ("var/run/cups", 0o755), ("var/spool/cups/tmp", 0o1770), ("var/tmp", 0o1777),
)


def base():
    """The folder that holds the worlds: the first temporary one from which programs may run."""
    for path in ("/tmp", "/var/tmp"):
        if os.access(path, os.W_OK | os.X_OK) and not os.statvfs(path).f_flag & os.ST_NOEXEC:
            return path
    raise RuntimeError("no temporary folder from which programs may run")


def reserve():
    """A new empty folder and its open descriptor, whose lock shows that it is in use."""
    path = tempfile.mkdtemp(prefix=PREFIX, dir=base())
    assert len(path) <= _LONGEST
    os.chmod(path, 0o755)
    lock = os.open(path, os.O_RDONLY | os.O_DIRECTORY | os.O_CLOEXEC)
    fcntl.flock(lock, fcntl.LOCK_EX)
    return path, lock


def furnish(root):
    """Makes the folders of a world."""
    for name, mode in _FOLDERS:
        path = os.path.join(root, name)
        os.makedirs(path, exist_ok=True)
        os.chmod(path, mode)
    write(os.path.join(root, "client-argv"), "")


def write(path, text, mode=0o644):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, mode)


def give_to(root, user, names):
    """Makes `user` the owner of the folder itself and of the named entries, with all below."""
    os.chown(root, user.uid, user.gid)
    for name in names:
        _give(os.path.join(root, name), user)


def _give(path, user):
    os.chown(path, user.uid, user.gid)
    for folder, folders, files in os.walk(path):
        for entry in folders + files:
            os.chown(os.path.join(folder, entry), user.uid, user.gid, follow_symlinks=False)


def remove(root):
    """Removes a world's folder; what cannot be removed is left, never an error."""
    shutil.rmtree(root, ignore_errors=True)


def save(root, target, user):
    """Copies pages, logs and the client's arguments of the world to the folder `target`."""
    os.makedirs(target, exist_ok=True)
    for name, source in (("pages", "pages"), ("pictures", "pictures"),
                         ("server-logs", "var/log/cups"), ("logs", "var/tmp")):
        shutil.copytree(os.path.join(root, source), os.path.join(target, name),
                        dirs_exist_ok=True)
    shutil.copy(os.path.join(root, "client-argv"), target)
    _give(target, user)


def sweep():
    """Removes folders of worlds whose every process was killed at one blow."""
    for path in glob.glob(os.path.join(base(), PREFIX + "*")):
        if _is_abandoned(path):
            remove(path)


def _is_abandoned(path):
    try:
        lock = os.open(path, os.O_RDONLY | os.O_DIRECTORY | os.O_NOFOLLOW | os.O_CLOEXEC)
    except OSError:
        return False
    try:
        about = os.fstat(lock)
        if os.getuid() not in (0, about.st_uid) or time.time() - about.st_mtime < _SETTLED:
            return False
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        return True
    except OSError:
        return False
    finally:
        os.close(lock)
