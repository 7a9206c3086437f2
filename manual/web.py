"""The book as HTML: a page a chapter, one of contents, one for the alphabetical index."""

import collections
import html
import pathlib
import shutil

from body import body
from chapters import Book, Chapter, place
from pictures import Picture
from terms import Entry, Index

_FOLDER = pathlib.Path(__file__).parent


def write(book: Book, index: Index, pictures: list[Picture], version: str, out: pathlib.Path) -> None:
    (out / "imagenes").mkdir(parents=True)
    shutil.copy(_FOLDER / "web.css", out)
    for picture in pictures:
        shutil.copy(picture.file, out / "imagenes" / picture.name)

    def address(link: str) -> str:
        chapter, anchor = place(book, link)
        return f"{_page(chapter)}#{anchor}" if anchor else _page(chapter)

    def page(name: str, title: str, content: str, beside: str = "") -> None:
        (out / name).write_text(
            f"""<!DOCTYPE html>
<html lang="es">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{html.escape(title)} - {html.escape(book.about["title"])}</title>
<link rel="stylesheet" href="web.css">
</head>
<body>
<nav><a href="index.html">Contenido</a> <a href="indice.html">Índice alfabético</a> {beside}</nav>
<main>
{content}</main>
<nav>{beside}</nav>
</body>
</html>
""",
            "utf-8",
        )

    page("index.html", "Contenido", _contents(book, version))
    page("indice.html", "Índice alfabético", _index(index))
    order = book.chapters
    for i, chapter in enumerate(order):
        beside = ""
        if i:
            beside += f'<a rel="prev" href="{_page(order[i - 1])}">← {html.escape(order[i - 1].title)}</a> '
        if i + 1 < len(order):
            beside += f'<a rel="next" href="{_page(order[i + 1])}">{html.escape(order[i + 1].title)} →</a>'
        heading = f"<h1>{chapter.number}. {html.escape(chapter.title)}</h1>\n"
        page(_page(chapter), chapter.title, heading + body(chapter, pictures, 1, str, address), beside)


def _page(chapter: Chapter) -> str:
    return f"{chapter.number:02}-{chapter.name}.html"


def _contents(book: Book, version: str) -> str:
    lines = [f"<h1>{html.escape(book.about['title'])}</h1>\n<p>{html.escape(book.about['subtitle'])}"]
    lines.append(f"<br>Versión {html.escape(version)}. Para imprimir: <a href='../zendara.pdf'>zendara.pdf</a></p>\n")
    for part in book.parts:
        lines.append(f"<h2>{html.escape(part.title)}</h2>\n<ol start=\"{part.chapters[0].number}\">\n")
        for chapter in part.chapters:
            page = _page(chapter)
            sections = ", ".join(
                f'<a href="{page}#{heading.anchor}">{html.escape(heading.text)}</a>'
                for heading in chapter.headings
                if heading.level == 2
            )
            lines.append(f'<li><a href="{page}">{html.escape(chapter.title)}</a><div>{sections}</div></li>\n')
        lines.append("</ol>\n")
    return "".join(lines)


def _index(index: Index) -> str:
    lines = ["<h1>Índice alfabético</h1>\n"]
    for letter, entries in index.groups():
        lines.append(f"<h2>{letter or 'Signos y cifras'}</h2>\n<ul>\n")
        lines += [f"<li>{html.escape(entry.term)}: {_places(entry)}</li>\n" for entry in entries]
        lines.append("</ul>\n")
    return "".join(lines)


def _places(entry: Entry) -> str:
    if entry.see:
        return f"vea {html.escape(entry.see)}"
    several = collections.Counter(found.chapter.title for found in entry.places)
    links = {}
    for found in entry.places:
        title, page = found.chapter.title, _page(found.chapter)
        if several[title] > 1 and found.section:
            title += f" ({found.section})"
        links.setdefault(title, f"{page}#{found.anchor}" if found.anchor else page)
    return ", ".join(f'<a href="{address}">{html.escape(title)}</a>' for title, address in links.items())
