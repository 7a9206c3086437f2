"""The alphabetical index: which terms stand where, and their Spanish order."""

import dataclasses
import re
import unicodedata

import icu
from markdown_it.token import Token

from chapters import Book, BookError, Chapter, place, text_of


@dataclasses.dataclass(frozen=True)
class Place:
    chapter: Chapter
    anchor: str
    section: str  # heading that it stands below; empty: the chapter's title


@dataclasses.dataclass
class Entry:
    term: str
    places: list[Place]  # in the order of the book
    see: str = ""  # another term, in place of places


class Index:
    def __init__(self, book: Book):
        self._rules = book.about["index"]
        self._entries: dict[str, Entry] = {}
        self._anchors = 0
        collator = icu.Collator.createInstance(icu.Locale("es"))
        collator.setAttribute(icu.UCollAttribute.NUMERIC_COLLATION, icu.UCollAttributeValue.ON)  # F2 before F10
        self._order = collator.getSortKey
        for chapter in book.chapters:
            self._read(chapter)
        for term, addresses in book.about["terms"].items():
            for address in addresses:
                chapter, anchor = place(book, address)
                section = next((h.text for h in chapter.headings if h.anchor == anchor), "")
                self._add(term, Place(chapter, anchor, section))
        for entry in self._entries.values():
            entry.places.sort(key=lambda found: found.chapter.number)
        for term, see in book.about["see"].items():
            if see.casefold() not in self._entries:
                raise BookError(f"libro.toml: {term} refers to {see}, which is no term")
            self._entries[term.casefold()] = Entry(term, [], see)

    def groups(self) -> list[tuple[str, list[Entry]]]:
        """Under their first letters; what begins with none comes first."""
        groups: dict[str, list[Entry]] = {}
        for entry in sorted(self._entries.values(), key=self._key):
            groups.setdefault(_initial(entry.term), []).append(entry)
        return list(groups.items())

    def _read(self, chapter: Chapter) -> None:
        """Headings; what is set in bold where a paragraph, an item or a row begins; messages that rows begin with."""
        tokens = chapter.tokens
        section = ""
        for i, token in enumerate(tokens):
            before = tokens[i - 1]
            if token.type != "inline":
                continue
            if before.type == "heading_open":
                section = text_of(token)
                self._take(section, Place(chapter, before.attrs["id"], section))
            elif before.type == "paragraph_open":
                if not token.children[0].content:  # an empty text stands before bold
                    self._read_bold(token.children[:3], chapter, section)
            elif before.type == "td_open" and tokens[i - 2].type == "tr_open":
                self._read_bold(token.children, chapter, section)
                for message in re.findall(r"«[^»]+»", text_of(token)):
                    if before.attrGet("id") is None:
                        before.attrSet("id", self._new_anchor())
                    self._take(f"«{message[1:-1].strip(' ,')}»", Place(chapter, before.attrs["id"], section))

    def _read_bold(self, inline: list[Token], chapter: Chapter, section: str) -> None:
        for i, token in enumerate(inline):
            if token.type == "strong_open":
                token.attrSet("id", self._new_anchor())
                self._take(_bare(inline[i + 1].content), Place(chapter, token.attrs["id"], section))

    def _new_anchor(self) -> str:
        self._anchors += 1
        return f"t{self._anchors}"

    def _take(self, term: str, where: Place) -> None:
        """A term as the text has it: without an article, with a capital, unless it is none."""
        if term in self._rules["skip"] or term.split()[0] in self._rules["skip_beginning_with"]:
            return
        term = re.sub(r"^(El|La|Los|Las|Un|Una) (?=\w)", "", " ".join(term.split()))
        self._add(term if term[0] == "«" else term[0].upper() + term[1:], where)

    def _add(self, term: str, where: Place) -> None:
        entry = self._entries.setdefault(term.casefold(), Entry(term, []))
        if where not in entry.places:
            entry.places.append(where)

    def _key(self, entry: Entry) -> tuple[bool, bytes]:
        return _initial(entry.term) != "", self._order(_plain(entry.term))


def _bare(field: str) -> str:
    """Without the colon and the dots of a label; those of abbreviations stay."""
    field = field.rstrip(" .:") + "." * field.rstrip(" :").endswith(".")
    return field if re.search(r"\b\w(\.\w)+\.$", field) else field.rstrip(".")


def _plain(term: str) -> str:
    """What counts for the order."""
    return term.strip("«» ,¿(")


def _initial(term: str) -> str:
    """The letter without an accent, but Ñ is one of its own; nothing for what is no letter."""
    first = _plain(term)[:1].upper()
    if not first.isalpha():
        return ""
    return first if first == "Ñ" else unicodedata.normalize("NFD", first)[0]
