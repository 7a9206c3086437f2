#!/usr/bin/python3
"""The manual: help pages and chapters of its own as one book, in HTML and as a PDF.

make_book.py --version V --pictures FOLDER --out FOLDER    leaves html/ and zendara.pdf in that folder
make_book.py --terms                                          prints the alphabetical index, to look it over
"""

import argparse
import pathlib
import shutil
import sys

import chapters
import pictures
import printed
import terms
import web

ROOT = pathlib.Path(__file__).resolve().parent.parent


def main() -> None:
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--version", default="")
    options.add_argument("--pictures", type=pathlib.Path)
    options.add_argument("--out", type=pathlib.Path)
    options.add_argument("--terms", action="store_true")
    given = options.parse_args()
    book = chapters.read_book(ROOT)
    index = terms.Index(book)
    if given.terms:
        for letter, entries in index.groups():
            print(letter)
            for entry in entries:
                print("   ", entry.term, "→", entry.see or ", ".join(p.chapter.name for p in entry.places))
        return
    shown = pictures.find(book, given.pictures)
    shutil.rmtree(given.out / "html", ignore_errors=True)
    web.write(book, index, shown, given.version, given.out / "html")
    printed.write(book, index, shown, given.version, given.out / "zendara.pdf")


try:
    main()
except (chapters.BookError, OSError) as error:
    sys.exit(f"make_book: {error}")
