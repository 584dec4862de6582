"""Where things are in the world that the cases run in."""

import os

WORLD = os.environ["VESK_WORLD"]
RELOCATED = "VESK_RELOCATED_ROOT" in os.environ
#: Mounts are seen by the world alone.
MAY_MOUNT = not RELOCATED and os.geteuid() == 0
#: The server asks others than root for root's password, and knows it in the world with namespaces.
IS_ROOT = os.geteuid() == 0
PASSWORD = "secret"
MAY_ADMINISTRATE = IS_ROOT or not RELOCATED
_ROOT = WORLD if RELOCATED else ""

PROGRAM = _ROOT + "/usr/bin/lpr"
CLIENT = _ROOT + "/usr/bin/lpr.orig"
LOGS = _ROOT + "/var/tmp"
TEMPORARY = _ROOT + "/tmp"
SOCKET = _ROOT + "/var/run/cups/cups.sock"
PAGES = WORLD + "/pages"
RECORDED = WORLD + "/client-argv"

#: The tree that is installed as /opt/Tarvel/mfp.
TREE = os.environ["VESK_E2E_TREE"]
#: Its program: relocated, where the installed one is not used.
TREE_PROGRAM = os.path.join(TREE, "bin", "vesk-relocated" if RELOCATED else "vesk")


def description():
    if RELOCATED:
        return "the relocated program, vesk-relocated as " + PROGRAM
    return "the installed program, vesk as %s in a private mount namespace" % PROGRAM
