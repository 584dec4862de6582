"""The options of the `world` command."""

import argparse
import os

MODES = ("namespace", "relocated")


def _parser():
    parser = argparse.ArgumentParser(
        prog="world",
        usage="world [options] -- COMMAND [ARGS...]",
        description="Runs COMMAND beside a private CUPS server with sample queues and returns its "
        "exit status.",
    )
    add = parser.add_argument
    add("--relocated", dest="mode", action="store_const", const="relocated", default="namespace",
        help="no mounts: every path lies below the folder that VESK_RELOCATED_ROOT names")
    add("--probe", action="store_true",
        help="only tell by the exit status whether the kernel allows the private namespaces")
    add("--install", metavar="DIR",
        help="the program's installed tree, shown as /opt/Tarvel/mfp")
    add("--show", metavar="PATH", action="append", default=[],
        help="a file or folder that stays visible where private folders cover the machine's")
    add("--user", metavar="NAME", help="the user that COMMAND runs as (for root)")
    add("--queues", metavar="N", type=int, default=0, help="add N plain queues Queue0001...")
    add("--classes", metavar="N", type=int, default=0,
        help="add N classes Class0001... of two such queues each")
    add("--no-samples", dest="samples", action="store_false", help="without the sample queues")
    add("--no-server", dest="server", action="store_false", help="with the server down")
    add("--auth", action="store_true",
        help="administrative requests need the name root and the password 'secret'")
    add("--forbid", action="store_true",
        help="administrative requests are refused to everybody, root with his password included")
    add("--listen", metavar="ADDRESS:PORT",
        help="the server also answers there, whoever asks")
    add("--encryption", choices=("Never", "IfRequested", "Required"), default="IfRequested",
        help="whether what goes there is encrypted; unless Never, passwords always are")
    client = parser.add_mutually_exclusive_group()
    client.add_argument("--no-record", dest="client", action="store_const", const="system",
                        default="record", help="the system's client itself, without the recorder")
    client.add_argument("--client", dest="client_file", metavar="FILE",
                        help="FILE in the place of the system's client")
    client.add_argument("--no-client", dest="client", action="store_const", const="none",
                        help="without a client")
    # For the self-tests and for the way through sudo.
    add("--no-overlay", dest="overlay", action="store_false", help=argparse.SUPPRESS)
    add("--for-process", metavar="PID", type=int, help=argparse.SUPPRESS)
    add("command", nargs="*", metavar="COMMAND")
    return parser


def parse(arguments):
    """The parsed options; ends the process with a usage message when they make no sense."""
    parser = _parser()
    options = parser.parse_args(arguments)
    if options.probe:
        return options
    if not options.command:
        parser.error("no command")
    if not 0 <= options.queues <= 9999:
        parser.error("--queues: 0 to 9999")
    if not 0 <= options.classes <= 9999 or options.classes and not options.queues:
        parser.error("--classes: 0 to 9999, with --queues")
    if options.client_file:
        options.client = "file"
        options.client_file = _existing(parser, options.client_file)
    options.show = [_existing(parser, path) for path in options.show]
    if options.install:
        options.install = _existing(parser, options.install)
    if options.auth and options.mode == "relocated":
        parser.error("--auth needs the private namespaces")
    return options


def _existing(parser, path):
    if not os.path.exists(path):
        parser.error("no such file: " + path)
    return os.path.realpath(path)
