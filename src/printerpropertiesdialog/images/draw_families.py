#!/usr/bin/env python3
"""Writes the SVG sources of the pictures that come in families: paper orientation, duplex, pages
per side, text columns and pretty printing. The build draws the PNG files from them.
"""

from pathlib import Path

OUTLINE = "#5f6b7a"
TEXT = "#c3cad3"
PALE = "#dce1e7"
ARROW = "#d9662b"
BLUE = "#1f5fbf"
DIGIT_COLOURS = {1: BLUE, 2: "#18794e", 3: "#b4470f", 4: "#7a3fa8"}
DIGIT_PATHS = {  # drawn in a box of 8 by 12
    1: "M2.4 3.4 5.6 1V11",
    2: "M1 3.6C1 0.2 7 0.2 7 3.7 7 6.2 1 8.3 1 11H7.2",
    3: "M1.2 1H6.8L3.6 5C5.8 4.9 7.2 6.1 7.2 8 7.2 11.4 2.6 12 1 9.8",
    4: "M5.4 11V1L1 7.8H7.4",
}
PAGE_LONG = 62.5
PAGE_SHORT = 44.5


def picture(width, height, title, *parts):
    lines = "\n".join(f"  {part}" for part in parts)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}">\n  <title>{title}</title>\n{lines}\n</svg>\n')


def group(transform, *parts):
    return f'<g transform="{transform}">{"".join(parts)}</g>'


def stroke(path, colour, width, transform=""):
    place = f' transform="{transform}"' if transform else ""
    return (f'<path d="{path}"{place} fill="none" stroke="{colour}" stroke-width="{width:g}" '
            'stroke-linecap="round" stroke-linejoin="round"/>')


def leaf(path, fill="#ffffff"):
    return (f'<path d="{path}" fill="{fill}" stroke="{OUTLINE}" stroke-width="1.5" '
            'stroke-linejoin="round"/>')


def sheet(x, y, width, height, colour=OUTLINE):
    return (f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="2.5" '
            f'fill="#ffffff" stroke="{colour}" stroke-width="1.5"/>')


def centred_sheet(width, height, canvas=72):
    return sheet((canvas - width) / 2, (canvas - height) / 2, width, height)


def digit(number, x, y, size=1.0, colour=None):
    """The digit with its middle at x, y."""
    path = DIGIT_PATHS[number]
    place = f"translate({x - 4 * size:g} {y - 6 * size:g}) scale({size:g})"
    return stroke(path, colour or DIGIT_COLOURS[number], 2, place)


def text_lines(x, y, width, count, pitch=5.5, colour=TEXT, last=0.6):
    """Lines of text, the last one shorter, as the end of a paragraph is."""
    lengths = [width] * (count - 1) + [width * last]
    path = "".join(f"M{x:g} {y + pitch * i:g}h{length:g}" for i, length in enumerate(lengths))
    return stroke(path, colour, 2)


def arrow_head(x, y, angle):
    """A head whose point is 3.5 ahead of x, y; angle 0 points to the right."""
    return (f'<path d="M3.5 0-4-4.5V4.5Z" transform="translate({x:g} {y:g}) rotate({angle:g})" '
            f'fill="{ARROW}"/>')


def arrow(path, x, y, angle):
    return stroke(path, ARROW, 2.5) + arrow_head(x, y, angle)


def orientation_content(width, height):
    letter = "M7 26 14.5 7.5 22 26M9.8 19.5H19.2"
    return (stroke(letter, BLUE, 3)
            + text_lines(27.5, 9, width - 35, 3, 8)
            + text_lines(7.5, 33.5, width - 15, int((height - 41) // 6.5) + 1, 6.5))


def orientation(landscape, reverse):
    width, height = (PAGE_LONG, PAGE_SHORT) if landscape else (PAGE_SHORT, PAGE_LONG)
    content = group(f"translate({(72 - width) / 2:g} {(72 - height) / 2:g})",
                    orientation_content(width, height))
    parts = [centred_sheet(width, height)]
    if reverse:
        turn = arrow("M8.5 22C4.5 31 4.5 38 7 45", 8.2, 47.5, 68)
        side = "rotate(90 36 36)" if landscape else "rotate(0)"
        content = group("rotate(180 36 36)", content)
        parts += [group(side, turn), group(f"{side} rotate(180 36 36)", turn)]
    name = ("landscape" if landscape else "portrait") + ("_rev" if reverse else "")
    title = f"A {'landscape' if landscape else 'portrait'} page{', upside down' if reverse else ''}"
    return name, picture(72, 72, title, *parts, content)


def rings(*places, across):
    """Binding rings at the places, each reaching over the fold."""
    reach = "m-3.5 0h7" if across == "x" else "m0-3.5v7"
    return stroke("".join(f"M{x:g} {y:g}{reach}" for x, y in places), "#47525f", 2)


def book(title, back, front):
    """A pad bound at its left edge; the leaf that is being turned shows its back."""
    return picture(
        96, 80, title,
        sheet(50.75, 26.75, 38.5, 50.5), sheet(48.75, 24.75, 38.5, 50.5),
        leaf("M48 24.75 12 15.5C10.9 15.2 10 16 10 17V77C10 78 10.9 78.8 12 78.6L48 75.25Z"),
        front, text_lines(55, 58, 26, 3), back,
        rings((48, 34), (48, 50), (48, 66), across="x"),
        arrow("M76 18C68 4 46 1 33 8", 31.5, 9, 150))


def tablet(title, back, front):
    """A pad bound at its upper edge; the leaf that is being turned shows its back."""
    return picture(
        96, 80, title,
        sheet(28.75, 30.75, 34.5, 46.5), sheet(26.75, 28.75, 34.5, 46.5),
        leaf("M26.75 28 19 5C18.6 3.8 19.3 2.75 20.5 2.75H67.5C68.7 2.75 69.4 3.8 69 5L61.25 28Z"),
        front, text_lines(32.5, 58, 23, 3), back,
        rings((33, 28.5), (44, 28.5), (55, 28.5), across="y"),
        arrow("M70 56C83 48 86 32 79 19", 78, 17.5, 239))


def duplex():
    big = 1.5
    lines = text_lines(16, 57, 26, 3)
    mirrored = group("translate(58 0) scale(-1 1)", digit(1, 29, 38, big, PALE),
                     text_lines(16, 57, 26, 3, colour=PALE))
    yield "dupl_none", book("The back of page 1 stays empty", mirrored, digit(2, 68, 42, big))
    yield "dupl_long", book("Pages on both sides, turned like a book",
                            digit(2, 29, 38, big) + lines, digit(3, 68, 42, big))
    yield "dupl_short", tablet("Pages on both sides, turned up like a writing pad",
                               digit(2, 44, 14.5, 1.2), digit(3, 44, 45, big))


def n_up(columns, rows, digit_size):
    """A sheet with its pages in reading order; two pages lie side by side on a turned sheet."""
    width, height = (PAGE_LONG, PAGE_SHORT) if columns > rows else (PAGE_SHORT, PAGE_LONG)
    count = columns * rows
    gap = 4
    page_width = (width - gap * (columns + 1)) / columns
    page_height = (height - gap * (rows + 1)) / rows
    parts = [centred_sheet(width, height)]
    for index in range(count):
        x = (72 - width) / 2 + gap + (page_width + gap) * (index % columns)
        y = (72 - height) / 2 + gap + (page_height + gap) * (index // columns)
        parts += mini_page(index + 1, x, y, page_width, page_height, digit_size)
    title = "One page on a sheet" if count == 1 else f"{count} pages on one sheet"
    return f"nup{count}", picture(72, 72, title, *parts)


def mini_page(number, x, y, width, height, digit_size):
    lines, pitch = (3, 5.5) if height > 40 else (2, 4.5)
    first = y + height - 4.5 - pitch * (lines - 1)
    frame = (f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="1.5" '
             f'fill="#f3f5f8" stroke="{TEXT}"/>')
    return [frame, digit(number, x + width / 2, (y + first - 1) / 2, digit_size),
            text_lines(x + 4, first, width - 8, lines, pitch)]


def text_columns(count):
    """A page of plain text; what is read first in a column is blue."""
    left, top, gap = 20, 12.5, 4.5
    width = (32 - gap * (count - 1)) / count
    parts = [centred_sheet(PAGE_SHORT, PAGE_LONG)]
    for index in range(count):
        x = left + (width + gap) * index
        ends = index == count - 1
        parts += [stroke(f"M{x:g} {top:g}h{width:g}", BLUE, 2),
                  text_lines(x, top + 5.2, width, 7 if ends else 9, 5.2, last=0.6 if ends else 1)]
    title = f"A page with {count} text column{'' if count == 1 else 's'}"
    return f"columns{count}", picture(72, 72, title, *parts)


def pretty():
    """A page with a heading bar, a page number, and a program in colours."""
    code = {
        BLUE: "M20 28h9M24.5 38.4h7M20 59.2h6",
        TEXT: "M33 28h13M24.5 33.2h17M35.5 38.4h14M29 43.6h8M24.5 48.8h12M20 54h2M30 59.2h9",
        "#18794e": "M41 43.6h10",
        "#b4470f": "M40.5 48.8h8",
    }
    heading = f'<rect x="18" y="9" width="36" height="11" rx="1.5" fill="{BLUE}"/>'
    return "pretty", picture(
        72, 72, "A page with a heading and coloured words", centred_sheet(PAGE_SHORT, PAGE_LONG),
        heading, stroke("M22 14.5h14", "#ffffff", 2), digit(1, 48.5, 14.5, 0.6, "#ffffff"),
        *(stroke(path, colour, 2) for colour, path in code.items()))


def families():
    for landscape in (False, True):
        for reverse in (False, True):
            yield orientation(landscape, reverse)
    yield from duplex()
    for layout in ((1, 1, 2), (2, 1, 1.4), (2, 2, 1)):
        yield n_up(*layout)
    for count in range(1, 5):
        yield text_columns(count)
    yield pretty()


def main():
    folder = Path(__file__).resolve().parent / "svg"
    for name, source in families():
        (folder / f"{name}.svg").write_text(source, encoding="utf-8")


if __name__ == "__main__":
    main()
