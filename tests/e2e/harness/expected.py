"""The client's arguments after a dialog, from what the print system says of the destination."""

from . import server

_ESCAPED = "\"\\` $"


def escaped(value):
    return "".join("\\" + letter if letter in _ESCAPED else letter for letter in value)


def arguments(destination, changes=None, loaded=None, others=()):
    """All arguments in front of the files.

    `changes`: job options that the dialog or the command line adds. `loaded`: where the options come
    from, when not from the destination itself. `others`: options of the command line that stay, such
    as ("-T", "title").
    """
    options = {"scaling": "100", **server.options(loaded or destination), **(changes or {})}
    table = {"-P": destination, **dict(others)}
    if "copies" in options:
        table["-#"] = options.pop("copies")
    if options.get("job-sheets") in ("none", "none,none"):
        del options["job-sheets"]
        table["-h"] = None
    table["-o"] = " ".join("%s=%s" % (name, escaped(options[name])) for name in sorted(options))
    return [word for key in sorted(table) for word in (key, table[key]) if word is not None]
