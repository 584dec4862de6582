"""The private print server: its settings, its programs, its start."""

import os
import shutil
import socket
import time

import accounts
from processes import exit_code
from root import write

_HERE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
_SCHEDULER = "/usr/sbin/cupsd"
_PROGRAMS = "/usr/lib/cups"
_START_LIMIT = 30.0

_FILES = """ServerRoot {root}/etc/cups
ServerBin {root}/lib/cups
RequestRoot {root}/var/spool/cups
TempDir {root}/var/spool/cups/tmp
CacheDir {root}/var/cache/cups
StateDir {root}/var/run/cups
AccessLog {root}/var/log/cups/access_log
ErrorLog {root}/var/log/cups/error_log
PageLog {root}/var/log/cups/page_log
Printcap
User {user}
SystemGroup root
"""

_SETTINGS = """LogLevel info
LogDebugHistory 999
MaxLogSize 0
Listen {root}/var/run/cups/cups.sock
Browsing No
BrowseLocalProtocols none
WebInterface No
DefaultAuthType Basic
DefaultPaperSize A4
IdleExitTimeout 0
MaxJobs 1000
PreserveJobHistory Yes
PreserveJobFiles Yes

<Location />
  Order allow,deny
  Allow {clients}
  Encryption {encryption}
</Location>

<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess default
  SubscriptionPrivateValues default
  <Limit {administration}>
    AuthType {auth}
    Require user {administrators}
    Order deny,allow
  </Limit>
  <Limit Validate-Job Cancel-Job Cancel-My-Jobs Close-Job CUPS-Get-Document All>
    AuthType None
    Order deny,allow
  </Limit>
</Policy>
"""

_LOGIN = """auth required pam_exec.so expose_authtok quiet {check}
account required pam_permit.so
"""

#: Raw data is taken, as Debian sets its servers up.
_RAW_TYPES = "application/octet-stream\n"
_RAW_CONVERSIONS = "application/octet-stream application/vnd.cups-raw 0 -\n"

#: What a distribution's policy demands an administrator for. Everything else is open here.
_ADMINISTRATION = (
    "CUPS-Add-Modify-Printer CUPS-Delete-Printer CUPS-Add-Modify-Class CUPS-Delete-Class "
    "CUPS-Set-Default CUPS-Get-Devices Pause-Printer Resume-Printer Enable-Printer "
    "Disable-Printer Pause-Printer-After-Current-Job Hold-New-Jobs Release-Held-New-Jobs "
    "Deactivate-Printer Activate-Printer Restart-Printer Shutdown-Printer Startup-Printer "
    "Promote-Job Schedule-Job-After Cancel-Jobs CUPS-Accept-Jobs CUPS-Reject-Jobs")


def socket_path(root):
    return os.path.join(root, "var/run/cups/cups.sock")


def _server_user():
    if os.getuid() == 0:
        return accounts.named("lp")
    return accounts.current()


def write_settings(root, options):
    """Writes the server's settings and gathers its programs below `root`."""
    user = _server_user()
    etc = os.path.join(root, "etc/cups")
    write(os.path.join(etc, "cups-files.conf"), _FILES.format(root=root, user=user.name))
    write(os.path.join(etc, "cupsd.conf"), _listening(options) + _SETTINGS.format(
        root=root, clients="all" if options.listen else "localhost",
        encryption=options.encryption, administration=_ADMINISTRATION,
        auth="Basic" if options.auth or options.forbid else "None",
        administrators="nobody-at-all" if options.forbid else "@SYSTEM root"))
    write(os.path.join(etc, "raw.types"), _RAW_TYPES)
    write(os.path.join(etc, "raw.convs"), _RAW_CONVERSIONS)
    _gather_programs(root)
    if os.getuid() == 0:
        for name in ("pages", "var/cache/cups", "var/spool/cups", "var/spool/cups/tmp"):
            os.chown(os.path.join(root, name), 0, user.gid)


def _listening(options):
    """The settings of a server that others reach over the network."""
    if not options.listen:
        return ""
    passwords = "Never" if options.encryption == "Never" else "Required"
    return "Listen %s\nServerAlias *\nDefaultEncryption %s\n" % (options.listen, passwords)


def write_login(root):
    """
    Writes the login rules that know one user, root, with the password "secret", and returns their
    path. They are to be shown as those of the service "cups".
    """
    check = os.path.join(root, "bin/check-password")
    _copy_program(os.path.join(_HERE, "server/check-password"), check)
    rules = os.path.join(root, "login")
    write(rules, _LOGIN.format(check=check))
    return rules


def _gather_programs(root):
    programs = os.path.join(root, "lib/cups")
    for name in ("daemon", "driver", "filter", "monitor", "notifier"):
        os.symlink(os.path.join(_PROGRAMS, name), os.path.join(programs, name))
    os.mkdir(os.path.join(programs, "backend"), 0o755)
    _copy_program(os.path.join(_HERE, "server/tofile"), os.path.join(programs, "backend/tofile"))
    # A copy, because the security module of some distributions confines the original to the
    # machine's own folders.
    _copy_program(_SCHEDULER, os.path.join(root, "bin/cupsd"))


def _copy_program(source, target):
    shutil.copyfile(source, target)
    os.chmod(target, 0o755)


def start(root):
    """Starts the server and waits until it answers; returns its process number."""
    etc = os.path.join(root, "etc/cups")
    program = os.path.join(root, "bin/cupsd")
    arguments = [program, "-f", "-c", etc + "/cupsd.conf", "-s", etc + "/cups-files.conf"]
    # No system bus: the machine's colour manager is not told of these queues.
    environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8",
                   "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent"}
    output = os.path.join(root, "var/log/cups/output")
    pid = os.posix_spawn(program, arguments, environment, setsid=True, file_actions=(
        (os.POSIX_SPAWN_OPEN, 0, os.devnull, os.O_RDONLY, 0),
        (os.POSIX_SPAWN_OPEN, 1, output, os.O_WRONLY | os.O_CREAT | os.O_APPEND, 0o644),
        (os.POSIX_SPAWN_DUP2, 1, 2),
    ))
    _wait_until_ready(root, pid)
    return pid


def _wait_until_ready(root, pid):
    limit = time.monotonic() + _START_LIMIT
    while not _answers(socket_path(root)):
        ended, status = os.waitpid(pid, os.WNOHANG)
        if ended:
            raise RuntimeError("the print server ended with status %d\n%s"
                               % (exit_code(status), _complaints(root)))
        if time.monotonic() > limit:
            raise RuntimeError("the print server does not answer\n" + _complaints(root))
        time.sleep(0.002)


def _answers(path):
    with socket.socket(socket.AF_UNIX) as client:
        try:
            client.connect(path)
            return True
        except OSError:
            return False


def _complaints(root):
    text = ""
    for name in ("output", "error_log"):
        try:
            with open(os.path.join(root, "var/log/cups", name), errors="replace") as log:
                text += log.read()
        except OSError:
            pass
    return text
