"""The chapters of the book: read from Markdown, every link, picture and place of a term checked."""

import dataclasses
import pathlib
import tomllib
import urllib.parse

import markdown_it
from markdown_it.token import Token


class BookError(Exception):
    pass


@dataclasses.dataclass
class Heading:
    level: int
    text: str
    anchor: str  # in its chapter


@dataclasses.dataclass(eq=False)
class Chapter:
    name: str  # of its page, without an ending
    path: str  # from the project's folder
    title: str
    number: int
    tokens: list[Token]
    headings: list[Heading]  # below the title


@dataclasses.dataclass
class Part:
    title: str
    chapters: list[Chapter]


@dataclasses.dataclass
class Book:
    about: dict  # libro.toml
    parts: list[Part]

    @property
    def chapters(self) -> list[Chapter]:
        return [chapter for part in self.parts for chapter in part.chapters]


def anchor_of(heading: str) -> str:
    """As code hosts and the help window make it: small letters, a hyphen for each blank, no punctuation."""
    signs = []
    for sign in heading.strip().lower():
        if sign.isalnum() or sign in "-_":
            signs.append(sign)
        elif sign.isspace():
            signs.append("-")
    return "".join(signs)


def text_of(inline: Token) -> str:
    return "".join(" " if child.type == "softbreak" else child.content for child in inline.children or [])


def read_book(root: pathlib.Path) -> Book:
    about = tomllib.loads((root / "manual/libro.toml").read_text("utf-8"))
    book = Book(about, [])
    for part in about["part"]:
        book.parts.append(Part(part["title"], []))
        for entry in part["chapters"]:
            number = len(book.chapters) + 1
            book.parts[-1].chapters.append(_read_chapter(root, entry, about["titles"].get(entry), number))
    _check_that_none_is_left_out(root, book)
    _resolve_links(root, book)
    return book


def place(book: Book, address: str) -> tuple[Chapter, str]:
    """The chapter and the anchor of "help/x.md" or "help/x.md#heading"."""
    path, _, anchor = address.partition("#")
    for chapter in book.chapters:
        if chapter.path == path and (not anchor or anchor in [h.anchor for h in chapter.headings]):
            return chapter, anchor
    raise BookError(f"{address}: there is no such chapter or heading")


def _read_chapter(root: pathlib.Path, path: str, title: str | None, number: int) -> Chapter:
    tokens = markdown_it.MarkdownIt("commonmark").enable("table").parse((root / path).read_text("utf-8"))
    if tokens[0].tag != "h1":
        raise BookError(f"{path}: does not begin with its title")
    chapter = Chapter(pathlib.PurePath(path).stem, path, title or text_of(tokens[1]), number, tokens[3:], [])
    for opening, inline in zip(chapter.tokens, chapter.tokens[1:]):
        if opening.type == "heading_open":
            heading = Heading(int(opening.tag[1]), text_of(inline), anchor_of(text_of(inline)))
            if heading.anchor in [h.anchor for h in chapter.headings]:
                raise BookError(f"{path}: two headings {heading.text}")
            opening.attrSet("id", heading.anchor)
            chapter.headings.append(heading)
    return chapter


def _check_that_none_is_left_out(root: pathlib.Path, book: Book) -> None:
    there = {p.relative_to(root).as_posix() for folder in ("help", "manual") for p in (root / folder).glob("*.md")}
    left_out = there - {chapter.path for chapter in book.chapters}
    if left_out:
        raise BookError(f"not in libro.toml: {', '.join(sorted(left_out))}")


def _resolve_links(root: pathlib.Path, book: Book) -> None:
    """A link's address becomes what `place` takes."""
    for chapter in book.chapters:
        folder = (root / chapter.path).parent
        for inline in chapter.tokens:
            for token in inline.children or []:
                if token.type != "link_open":
                    continue
                path, mark, anchor = token.attrs["href"].partition("#")
                # Accents come percent-encoded out of the parser.
                anchor = urllib.parse.unquote(anchor)
                target = (folder / path).resolve().relative_to(root).as_posix() if path else chapter.path
                token.attrSet("href", target + mark + anchor)
                try:
                    place(book, token.attrs["href"])
                except BookError as error:
                    raise BookError(f"{chapter.path}: {error}") from None
