"""The pictures of the screens, at their places in the chapters."""

import dataclasses
import pathlib
import struct

from chapters import Book, BookError, Chapter, place


@dataclasses.dataclass
class Picture:
    number: int
    file: pathlib.Path
    width: int  # as on a screen
    caption: str
    chapter: Chapter
    anchor: str  # of the heading that it stands below; empty: the chapter's title
    after: str  # how the block begins that it stands behind; empty: the first one

    @property
    def name(self) -> str:
        """In the book."""
        return f"figura-{self.number:02}.png"


def find(book: Book, folder: pathlib.Path) -> list[Picture]:
    """Those of libro.toml in the order of the book. They have a number before their names."""
    there = {f"{file.parent.name}/{file.stem.partition('-')[2]}": file for file in sorted(folder.glob("*/*.png"))}
    found = []
    for entry in book.about["picture"]:
        if entry["file"] not in there:
            raise BookError(f"libro.toml: there is no picture {entry['file']}")
        chapter, anchor = place(book, entry["at"])
        file = there[entry["file"]]
        width = _width(file) // book.about["pixels"]
        found.append(Picture(0, file, width, entry["caption"], chapter, anchor, entry.get("after", "")))
    where = {(c, a): i for i, (c, a) in enumerate((c, a) for c in book.chapters for a in _anchors(c))}
    found.sort(key=lambda picture: where[picture.chapter, picture.anchor])
    for number, picture in enumerate(found, 1):
        picture.number = number
    return found


def _anchors(chapter: Chapter) -> list[str]:
    return ["", *(heading.anchor for heading in chapter.headings)]


def _width(png: pathlib.Path) -> int:
    return struct.unpack(">I", png.read_bytes()[16:20])[0]
