"""A chapter's text as HTML, with its pictures."""

import copy
import html
from collections.abc import Callable

import markdown_it
from markdown_it.token import Token

from chapters import BookError, Chapter, text_of
from pictures import Picture

_WRITER = markdown_it.MarkdownIt("commonmark").enable("table")


def body(
    chapter: Chapter,
    pictures: list[Picture],
    scale: float,
    anchor: Callable[[str], str],
    address: Callable[[str], str],
) -> str:
    """`anchor` says how one of the chapter's own is called in the output, `address` where a link leads to there."""
    tokens = copy.deepcopy(chapter.tokens)
    for picture in reversed([p for p in pictures if p.chapter is chapter]):
        tokens.insert(_place(tokens, picture), _figure(picture, scale))
    for opening, inline in zip(tokens, tokens[1:]):
        if opening.type == "paragraph_open" and not opening.hidden and text_of(inline).endswith(":"):
            opening.attrSet("class", "leads")  # stays with what it leads to
    for token in [t for outer in tokens for t in (outer, *(outer.children or []))]:
        if token.attrGet("id") is not None:
            token.attrSet("id", anchor(str(token.attrs["id"])))
        if token.type == "link_open":
            token.attrSet("href", address(str(token.attrs["href"])))
    return _WRITER.renderer.render(tokens, _WRITER.options, {})


def _place(tokens: list[Token], picture: Picture) -> int:
    """Behind the block that begins with the picture's words, by default the first paragraph below its heading."""
    start = 0
    if picture.anchor:
        start = next(i for i, t in enumerate(tokens) if t.type == "heading_open" and t.attrs["id"] == picture.anchor) + 3
    if not picture.after:
        return start + 3 if tokens[start].type == "paragraph_open" else start
    for i in range(start, len(tokens)):
        if tokens[i].type == "inline" and text_of(tokens[i]).startswith(picture.after):
            return next(j for j in range(i, len(tokens)) if tokens[j].level == 0 and tokens[j].nesting == -1) + 1
    raise BookError(f"libro.toml: no paragraph for {picture.file.name} begins with: {picture.after}")


def _figure(picture: Picture, scale: float) -> Token:
    caption = html.escape(picture.caption)
    token = Token("html_block", "", 0)
    token.content = (
        f'<figure><img src="imagenes/{picture.name}" alt="{caption}" style="width: {round(picture.width * scale)}px">'
        f"<figcaption>Figura {picture.number}. {caption}</figcaption></figure>\n"
    )
    return token
