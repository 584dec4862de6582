"""The user that the command runs as."""

import os
import pwd
from typing import NamedTuple


class Account(NamedTuple):
    uid: int
    gid: int
    groups: list
    name: str
    home: str

    def become(self):
        """This process goes on as the account, for good."""
        if os.getuid() == self.uid:
            return
        os.setgroups(self.groups)
        os.setresgid(self.gid, self.gid, self.gid)
        os.setresuid(self.uid, self.uid, self.uid)


def _account(entry):
    return Account(entry.pw_uid, entry.pw_gid, os.getgrouplist(entry.pw_name, entry.pw_gid),
                   entry.pw_name, entry.pw_dir)


def named(name):
    return _account(pwd.getpwnam(name))


def current():
    """The account of this process; one that the user database does not know is possible."""
    try:
        return _account(pwd.getpwuid(os.getuid()))
    except KeyError:
        return Account(os.getuid(), os.getgid(), os.getgroups(), str(os.getuid()), "/")


def of_process(pid):
    """The account of another process, with the groups that it has."""
    ids = {}
    with open("/proc/%d/status" % pid) as status:
        for line in status:
            name, _, values = line.partition(":")
            if name in ("Uid", "Gid", "Groups"):
                ids[name] = [int(value) for value in values.split()]
    entry = pwd.getpwuid(ids["Uid"][0])
    return Account(ids["Uid"][0], ids["Gid"][0], ids["Groups"], entry.pw_name, entry.pw_dir)
