"""What a catalogue has to have, and a translation in common with its English text."""

import re
from collections import Counter

PLACEHOLDER = re.compile(r"%(?:L?\d+|[nsd%])")
TAG = re.compile(r"</?[A-Za-z][^>]*>")
MNEMONIC = re.compile(r"&(.)", re.DOTALL)
EDGES = re.compile(r"^(\s*).*?(\s*)$", re.DOTALL)

COLONS = (":", "\uff1a")
ELLIPSES = ("...", "\u2026")

# In English all three are %1 and show what was typed; the program offers more, in this order.
NUMBERED = {
    'Invalid page ranges "%1"\nError at position %1: invalid range value "%1"': ["%1", "%2", "%3"],
}

LAYOUT_DIRECTION = "QT_LAYOUT_DIRECTION"
RIGHT_TO_LEFT = {"ar"}
# Without letters of their own that a key could type: the mnemonic is a Latin letter.
WITH_LATIN_MNEMONICS = {"ja", "ko", "zh_CN"}


def of_catalogue(wanted, there, language):
    """What is wrong with the messages `there`, by their keys, if the sources have those `wanted`."""
    for key in (key for key in wanted if key not in there):
        yield f"{_described(wanted[key])}: is missing: run translations/update"
    for key in (key for key in there if key not in wanted):
        yield f"{_described(there[key])}: is in no source any more: run translations/update"
    for key, message in there.items():
        if key in wanted and wanted[key].comment != message.comment:
            yield f"{_described(message)}: the comment is another: run translations/update"
        for complaint in _of_message(message, language):
            yield f"{_described(message)}: {complaint}"


def of_translation(source, translation, language):
    """What is wrong with a translation that is there."""
    if source == LAYOUT_DIRECTION:
        wanted = "RTL" if language in RIGHT_TO_LEFT else "LTR"
        return [] if translation == wanted else [f"has to be {wanted}"]
    found = [
        _differing("placeholders", NUMBERED.get(source, PLACEHOLDER.findall(source)),
                   PLACEHOLDER.findall(translation)),
        _differing("tags", TAG.findall(source), TAG.findall(translation)),
        _differing("line breaks", source.count("\n") * ["\\n"], translation.count("\n") * ["\\n"]),
        _edges(source, translation),
        _mnemonic(source, translation, language),
        _ending("a colon", COLONS, source, translation),
        _ending("three dots", ELLIPSES, source, translation),
    ]
    return [complaint for complaint in found if complaint]


def _of_message(message, language):
    if message.state in ("obsolete", "vanished"):
        yield f"is {message.state}: run translations/update"
    elif not all(message.translations):
        yield "is empty"
    elif message.state == "unfinished":
        yield "is unfinished"
    for translation in filter(None, message.translations):
        yield from of_translation(message.source, translation, language)


def _described(message):
    text = message.source.replace("\n", "\\n")
    return f"{message.context}: “{text if len(text) <= 60 else text[:57] + '...'}”"


def _differing(what, wanted, there):
    if Counter(wanted) == Counter(there):
        return None
    return f"{what}: {' '.join(there) or 'none'} instead of {' '.join(wanted) or 'none'}"


def _edges(source, translation):
    if EDGES.match(source).groups() == EDGES.match(translation).groups():
        return None
    return "begins or ends with other white space"


def _mnemonics(text):
    return [letter for letter in MNEMONIC.findall(text.replace("&&", "")) if not letter.isspace()]


def _mnemonic(source, translation, language):
    wanted = len(_mnemonics(source))
    there = _mnemonics(translation)
    if len(there) != wanted or translation.replace("&&", "").count("&") != wanted:
        return f"{len(there)} mnemonics (&) instead of {wanted}"
    if not all(letter.isalnum() for letter in there):
        return "the mnemonic (&) is neither a letter nor a digit"
    if language in WITH_LATIN_MNEMONICS and not all(letter.isascii() for letter in there):
        return "the mnemonic (&) is not a Latin letter: use the form (&X)"
    return None


def _ending(what, marks, source, translation):
    wanted = source.rstrip().endswith(marks)
    if translation.rstrip().endswith(marks) == wanted:
        return None
    return f"does not end with {what}" if wanted else f"ends with {what}"
