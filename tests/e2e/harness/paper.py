"""Where things lie on printed pages."""

import os
import re
import subprocess
from typing import NamedTuple


class Word(NamedTuple):
    """A word on a page: its edges in points from the page's left and top."""

    text: str
    left: float
    top: float
    right: float
    bottom: float


def as_document(path, folder):
    """A printed file as PDF, with its pages as they come out of the printer."""
    if path.endswith(".pdf"):
        return path
    result = os.path.join(folder, "printed.pdf")
    subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-dAutoRotatePages=/None",
                    "-sDEVICE=pdfwrite", "-o", result, path], check=True, capture_output=True)
    return result


def words(document):
    """The words of each page."""
    text = subprocess.run(["pdftotext", "-bbox", document, "-"], check=True, capture_output=True,
                          text=True).stdout
    return [[Word(word[4], *map(float, word[:4])) for word in re.findall(
        r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>', page)]
            for page in text.split("<page ")[1:]]


def ink(document):
    """Left, bottom, right and top of what is on each page, in points from the left and the bottom."""
    text = subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=bbox", document],
                          check=True, capture_output=True, text=True).stderr
    return [tuple(map(float, box.split()))
            for box in re.findall(r"^%%HiResBoundingBox: (.*)$", text, re.MULTILINE)]
