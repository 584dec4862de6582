"""Which catalogues of texts there are, from which sources each takes its texts, and its files."""

import dataclasses
import pathlib
import shutil
import subprocess
import xml.etree.ElementTree as xml

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent

FOLDERS = {
    "vesk": ["src/app"],
    "CupsInt": ["src/cups", "src/base"],
    "ppdwidgets": ["src/ppdwidgets", "src/widgets"],
    "printdialog": ["src/printdialog", "src/printerpropertiesdialog"],
}


@dataclasses.dataclass
class Message:
    context: str
    source: str
    disambiguation: str
    comment: str
    translations: list
    state: str

    @property
    def key(self):
        return self.context, self.source, self.disambiguation


def languages():
    """The languages, in the order of the file."""
    lines = (HERE / "languages").read_text().splitlines()
    return [line for line in lines if line and not line.startswith("#")]


def source_file(catalogue, language, folder=HERE):
    return folder / f"{catalogue}_{language}.ts"


def messages(file):
    """The texts in a file of the toolkit's translation tools."""
    return [_message(context.findtext("name"), element)
            for context in xml.parse(file).getroot().iter("context")
            for element in context.iter("message")]


def lupdate(catalogue, language, folder=HERE):
    """Brings the file of a catalogue up to date with the sources; a missing one is made."""
    tool = shutil.which("lupdate", path=_toolkit_programs())
    subprocess.run(
        [tool, "-silent", "-locations", "none", "-no-obsolete",
         *(ROOT / source for source in FOLDERS[catalogue]),
         "-source-language", "en", "-target-language", language,
         "-ts", source_file(catalogue, language, folder)],
        check=True)


def _message(context, element):
    translation = element.find("translation")
    forms = translation.findall("numerusform") or [translation]
    return Message(context, element.findtext("source"), element.findtext("comment", ""),
                   element.findtext("extracomment", ""), [form.text or "" for form in forms],
                   translation.get("type", "finished"))


def _toolkit_programs():
    return subprocess.run(["qtpaths6", "--query", "QT_INSTALL_BINS"], check=True, text=True,
                          stdout=subprocess.PIPE).stdout.strip()
