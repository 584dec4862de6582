"""Reads a help page: what it links to, what it shows, and which texts of the program it quotes."""

from html.parser import HTMLParser
from typing import NamedTuple

_EMPTY = {"meta", "link", "img", "source", "br"}
_SCRIPTS = {"script", "style", "iframe", "object", "embed", "form"}
_HEADINGS = {"h1": 1, "h2": 2, "h3": 3, "h4": 4}


def words(text):
    return " ".join(text.split())


class Picture(NamedTuple):
    """`others` are the picture's other sources, each with its scale."""

    source: str
    text: str
    others: list


class Page(HTMLParser):
    """One page. `mistakes` says what is wrong with its markup, `sections` are the anchors of its
    chapters, `quotes` the texts that it says the program shows, each after its heading's anchor."""

    def __init__(self, path):
        super().__init__()
        self.language = ""
        self.title = ""
        self.anchors = []
        self.sections = []
        self.headings = []
        self.links = []
        self.styles = []
        self.pictures = []
        self.quotes = []
        self.mistakes = []
        self._open = []
        self._others = []
        self._heading = None
        self._quote = ""
        self._quote_depth = 0
        with open(path, encoding="utf-8") as file:
            text = file.read()
        if not text.startswith("<!DOCTYPE html>\n"):
            self.mistakes.append("no document type")
        self.feed(text)
        self.close()
        self.mistakes += ["not closed: " + tag for tag in self._open]

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self._check(tag, attributes)
        if tag not in _EMPTY:
            self._open.append(tag)
        if tag == "html":
            self.language = attributes.get("lang")
        if "id" in attributes:
            self.anchors.append(attributes["id"])
        if tag in _HEADINGS:
            self.headings.append(_HEADINGS[tag])
            self._heading = attributes.get("id")
        if tag == "h2" and attributes.get("id") != "contents":
            self.sections.append(attributes.get("id"))
        if tag == "a":
            self.links.append(attributes["href"])
        if tag == "link":
            self.styles.append(attributes["href"])
        if tag in ("source", "img"):
            self._others += self._sources(attributes.get("srcset", ""))
        if tag == "img":
            self.pictures.append(Picture(attributes["src"], attributes.get("alt", ""), self._others))
            self._others = []
        if attributes.get("class") == "ui":
            self._quote = ""
            self._quote_depth = len(self._open)

    def handle_endtag(self, tag):
        if not self._open or self._open[-1] != tag:
            self.mistakes.append("closed, but not open: %s in line %d" % (tag, self.getpos()[0]))
            return
        if len(self._open) == self._quote_depth:
            self.quotes.append((self._heading, words(self._quote)))
            self._quote_depth = 0
        self._open.pop()

    def handle_data(self, data):
        if self._quote_depth:
            self._quote += data
        if self._open and self._open[-1] == "title":
            self.title += data

    def _check(self, tag, attributes):
        if tag in _SCRIPTS or any(name.startswith("on") for name in attributes):
            self.mistakes.append("active content: " + tag)
        if self._quote_depth:
            self.mistakes.append("markup in a quoted text: " + tag)
        if tag in ("h2", "h3") and "id" not in attributes:
            self.mistakes.append("a heading without an anchor in line %d" % self.getpos()[0])

    @staticmethod
    def _sources(text):
        """The sources of a srcset: "a.png, b.png 2x"."""
        sources = [part.split() for part in text.split(",") if part.strip()]
        return [(source[0], int(source[1].rstrip("x")) if source[1:] else 1) for source in sources]
