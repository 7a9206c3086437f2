"""The book as PDF."""

import html
import pathlib

import weasyprint

from body import body
from chapters import Book, Chapter, place
from pictures import Picture
from terms import Entry, Index

_FOLDER = pathlib.Path(__file__).parent
_SCALE = 0.58  # of pictures: the worker screen is as wide as the text


def write(book: Book, index: Index, pictures: list[Picture], version: str, out: pathlib.Path) -> None:
    """Laid out twice: the index names the pages that its terms have come to stand on, each once."""
    laid_out = _lay_out(book, pictures, version, "")
    pages = {anchor: number for number, page in enumerate(laid_out.pages, 1) for anchor in page.anchors}
    _lay_out(book, pictures, version, _index(index, pages)).write_pdf(out)


def _lay_out(book: Book, pictures: list[Picture], version: str, index: str) -> weasyprint.Document:
    def address(link: str) -> str:
        return "#" + _anchor(*place(book, link))

    files = {picture.name: picture.file for picture in pictures}

    def fetch(url: str) -> dict:
        return {"file_obj": open(files[pathlib.PurePosixPath(url).name], "rb")}

    text = [
        f"<!DOCTYPE html>\n<html lang='es'><head><title>{html.escape(book.about['title'])}</title></head><body>",
        f"<section class='cover'><h1>{html.escape(book.about['title'])}</h1><p>{html.escape(book.about['subtitle'])}"
        f"</p><p>Versión {html.escape(version)}</p></section>",
        _contents(book),
    ]
    for part in book.parts:
        for chapter in part.chapters:
            if chapter is part.chapters[0]:
                text.append(f"<p class='part'>{html.escape(part.title)}</p>")
            text.append(f"<h1 id='{_anchor(chapter)}'>{chapter.number}. {html.escape(chapter.title)}</h1>")
            text.append(body(chapter, pictures, _SCALE, lambda own, c=chapter: _anchor(c, own), address))
    text.append(f"<section class='index'><h1 id='indice'>Índice alfabético</h1>{index}</section></body></html>")
    document = weasyprint.HTML(string="\n".join(text), base_url="book:/", url_fetcher=fetch)
    return document.render(stylesheets=[weasyprint.CSS(_FOLDER / "printed.css")])


def _anchor(chapter: Chapter, own: str = "") -> str:
    return f"{chapter.name}--{own}" if own else chapter.name


def _contents(book: Book) -> str:
    lines = ["<section class='contents'><h1>Contenido</h1>"]
    for part in book.parts:
        lines.append(f"<p class='part'>{html.escape(part.title)}</p>")
        for chapter in part.chapters:
            title = f"{chapter.number}. {html.escape(chapter.title)}"
            lines.append(f"<p class='chapter'><a href='#{_anchor(chapter)}'>{title}</a></p>")
            lines += [
                f"<p><a href='#{_anchor(chapter, heading.anchor)}'>{html.escape(heading.text)}</a></p>"
                for heading in chapter.headings
                if heading.level == 2
            ]
    return "\n".join(lines) + "<p class='part'><a href='#indice'>Índice alfabético</a></p></section>"


def _index(index: Index, pages: dict[str, int]) -> str:
    lines = []
    for letter, entries in index.groups():
        lines.append(f"<h2>{letter or 'Signos y cifras'}</h2>")
        lines += [f"<p>{html.escape(entry.term)}{_pages(entry, pages)}</p>" for entry in entries]
    return "\n".join(lines)


def _pages(entry: Entry, pages: dict[str, int]) -> str:
    if entry.see:
        return f", <i>vea</i> {html.escape(entry.see)}"
    links = {}
    for found in entry.places:
        anchor = _anchor(found.chapter, found.anchor)
        links.setdefault(pages[anchor], anchor)
    return "".join(f", <a href='#{anchor}'>{page}</a>" for page, anchor in links.items())
