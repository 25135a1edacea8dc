#!/usr/bin/python3
"""Lets the site's search find more than the titles of pages: docs/site/search.py SITE/html

Doxygen's search compares what is typed with the beginnings of titles. Here it gets an entry for each word of titles,
headings, first cells of tables and first paragraphs, and for each function and value as programs write it. Pages in
which an entry is a title come first.
"""

from __future__ import annotations

import html
import json
import re
import sys
from html.parser import HTMLParser
from pathlib import Path

TITLE, HEADING, CELL, PARAGRAPH = range(4)
# Words that say nothing about a page.
COMMON = set("a all an and any are as at be but by can for from has have how if in into is it its no not of on one only or"
             " other so than that the their them then there they this to what when where which who with you your".split())
LONGEST = 70  # characters of an entry's text


class Page(HTMLParser):
    """The texts of a page that Doxygen wrote: (kind, text, anchor of its section)."""

    def __init__(self, name: str) -> None:
        super().__init__()
        self.name, self.title, self.anchor = name, "", ""
        self.texts: list[tuple[int, str, str]] = []
        self._kind: int | None = None
        self._text = ""
        self._is_first_cell = False

    def handle_starttag(self, tag: str, attributes: list[tuple[str, str | None]]) -> None:
        given = dict(attributes)
        if tag == "div" and given.get("class") == "title":
            self._begin(TITLE)
        elif tag in ("h1", "h2", "h3"):
            self._begin(HEADING)
        elif tag == "a" and given.get("class") == "anchor" and self._kind == HEADING:
            self.anchor = given.get("id") or ""
        elif tag == "tr":
            self._is_first_cell = True
        elif tag == "td" and self._is_first_cell and str(given.get("class")).startswith("markdownTableBody"):
            self._is_first_cell = False
            self._begin(CELL)
        elif tag == "p" and self._kind is None and not any(kind >= HEADING for kind, _, _ in self.texts):
            self._begin(PARAGRAPH)

    def handle_endtag(self, tag: str) -> None:
        kind = self._kind
        ends = {TITLE: ("div",), HEADING: ("h1", "h2", "h3"), CELL: ("td",), PARAGRAPH: ("p",)}
        if kind is not None and tag in ends[kind]:
            self._end(kind)

    def handle_data(self, data: str) -> None:
        self._text += data

    def _begin(self, kind: int) -> None:
        self._kind, self._text = kind, ""

    def _end(self, kind: int) -> None:
        text = " ".join(self._text.split())
        if kind == TITLE:
            self.title = text
        if text:
            self.texts.append((kind, text, self.anchor))
        self._kind = None


Entry = tuple[str, int, str, str, str]  # what is typed, kind, text, address, page


def entries_of(page: Page) -> list[Entry]:
    found = []
    for kind, text, anchor in page.texts:
        address = f"../{page.name}" + (f"#{anchor}" if anchor else "")
        for word in re.finditer(r"[A-Za-z0-9_]+", text):
            if word[0].lower() not in COMMON and len(word[0]) > 1:
                shown = page.title if kind == PARAGRAPH else text
                found.append((text[word.start():][:LONGEST].lower(), kind, shown, address, page.title))
    return found


def functions(api: dict) -> list[Entry]:  # type: ignore[type-arg]
    return [
        (f"{prefix}_{operation['name']}".lower(), TITLE, f"{prefix}_{operation['name']}", f"../{operation['name']}.html", "")
        for operation in api["operations"]
        for prefix in operation["families"]
    ]


def key(typed: str) -> str:
    """As convertToId() of Doxygen's search.js has it."""
    return "".join(c if re.match("[a-z0-9\u0080-\uffff]", c) else f"_{ord(c):02x}" for c in typed)


def row(number: int, entry: Entry) -> str:
    typed, _, text, address, page = entry
    shown = text if len(text) <= LONGEST else text[:LONGEST].rsplit(" ", 1)[0] + " ..."
    return json.dumps([f"{key(typed)}_{number}", [html.escape(shown), [address, 1, html.escape(page if page != text else "")]]])


def without_repetitions(entries: list[Entry]) -> list[Entry]:
    """The first of those that lead to one place by one word."""
    kept: dict[tuple[str, str], Entry] = {}
    for entry in sorted(entries, key=lambda entry: (entry[1], entry[0], entry[2:])):
        kept.setdefault((entry[0].split(" ")[0], entry[3]), entry)
    return list(kept.values())


def write(folder: Path, entries: list[Entry]) -> None:
    letters = "".join(sorted({entry[0][0] for entry in entries}))
    answer = (folder / "all_0.html").read_text(encoding="utf-8")
    for old in folder.glob("all_*"):
        old.unlink()
    for index, letter in enumerate(letters):
        rows = [row(number, entry) for number, entry in enumerate(e for e in entries if e[0][0] == letter)]
        (folder / f"all_{index:x}.js").write_text("var searchData=\n[\n  " + ",\n  ".join(rows) + "\n];\n", encoding="utf-8")
        (folder / f"all_{index:x}.html").write_text(answer.replace("all_0.js", f"all_{index:x}.js"), encoding="utf-8")
    sections = folder / "searchdata.js"
    text, count = re.subn(r'0: "[^"]*"', f'0: "{letters}"', sections.read_text(encoding="utf-8"), count=1)
    if count != 1:
        raise SystemExit("search.py does not know this Doxygen's search")
    sections.write_text(text, encoding="utf-8")


def main(site: Path) -> None:
    entries = functions(json.loads((Path(__file__).resolve().parents[2] / "bindings" / "api.json").read_text(encoding="utf-8")))
    for file in sorted(site.glob("*.html")):
        page = Page(file.name)
        page.feed(file.read_text(encoding="utf-8"))
        if not file.name.startswith("dir_") and file.name != "pages.html":
            entries += entries_of(page)
    write(site / "search", without_repetitions(entries))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(Path(sys.argv[1]))
