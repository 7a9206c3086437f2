#!/usr/bin/env python3
"""A host in Python with nothing but ctypes: it opens a company, shows the screen "Trabajadores" to a user made of
functions, changes a worker's street and sees that it was saved.

  host.py FOLDER             FOLDER holds DATOS; `zendara demo FOLDER` makes one to try
  host.py --windows FOLDER   shows the screen in windows, to whoever sits there

The structures are those of zendara/zendara.h, by their names there.
"""
import sys
from ctypes import (CDLL, CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_double, c_int32, c_uint32,
                    c_void_p, sizeof)

OK, FALSE = 0, 1
YES_NO, YES = 1, 1
END, HOME, SHIFT = 35, 36, 1  # of zendara/keys.hpp
STREET_FIELD, STREET = b"Text1(11)", "Calle de la Peña"

# ---- What of zendara/zendara.h is used here ----


class Error(Structure):
    _fields_ = [("size", c_uint32), ("number", c_int32), ("text", c_char_p), ("detail", c_char_p)]


class Box(Structure):
    _fields_ = [("size", c_uint32), ("buttons", c_uint32), ("icon", c_uint32), ("default_button", c_uint32),
                ("text", c_char_p), ("title", c_char_p), ("detail", c_void_p), ("detail_count", c_uint32)]


Getter = CFUNCTYPE(c_int32, c_void_p, c_void_p)  # self, variant
TextTaker = CFUNCTYPE(c_int32, c_void_p, c_char_p)
OnScreen = CFUNCTYPE(c_int32, c_void_p, c_void_p)  # self, screen
OnBox = CFUNCTYPE(c_int32, c_void_p, POINTER(Box), POINTER(c_uint32))


class Session(Structure):
    _fields_ = [("size", c_uint32), ("self", c_void_p), ("CodigoEmpresa", Getter), ("NombreEmpresa", Getter),
                ("Retorno", Getter), ("Ejercicio", Getter), ("PonRetorno", TextTaker), ("Valor8", Getter),
                ("Valor1", Getter), ("Cambio", Getter), ("ValorEntero", Getter), ("FechaTrabajo", Getter),
                ("Programa", Getter)]


class User(Structure):
    _fields_ = [("size", c_uint32), ("self", c_void_p), ("Screen", OnScreen), ("Box", OnBox), ("List", c_void_p),
                ("Listing", c_void_p)]


class Platform(Structure):
    _fields_ = [("size", c_uint32), ("engine", c_void_p), ("application_folder", c_char_p), ("screens", c_void_p)] + \
               [(name, c_void_p) for name in ("dialogs", "pick_list", "banner", "listing_viewer", "files", "shell",
                                              "clock", "log")]


library = CDLL("libzendara.so.1")
library.zendara_version.restype = c_char_p
library.zendara_free.argtypes = library.zendara_release.argtypes = [c_void_p]
library.zendara_free.restype = library.zendara_release.restype = None
library.zendara_engine_open.argtypes = [c_char_p, c_uint32, POINTER(c_void_p)]
library.zendara_company_open.argtypes = [c_void_p, c_char_p, c_char_p, c_char_p, POINTER(c_void_p)]
library.zendara_automation.argtypes = [POINTER(User), POINTER(c_void_p)]
library.zendara_install.argtypes = [POINTER(Platform)]
library.zendara_show.argtypes = [c_void_p, c_char_p, POINTER(Session)]
library.zendara_variant_set_text.argtypes = [c_void_p, c_char_p]
library.zendara_variant_set_date.argtypes = [c_void_p, c_double]
library.zendara_screen_read.argtypes = [c_void_p, c_char_p, POINTER(c_void_p)]
library.zendara_screen_press.argtypes = [c_void_p, c_int32, c_int32, c_char_p]
library.zendara_screen_unsaved.argtypes = [c_void_p]
for act in ("type", "focus", "paste", "click"):
    getattr(library, "zendara_screen_" + act).argtypes = [c_void_p, c_char_p]


class Failure(Exception):
    pass


def check(result):
    """The result of a call; the last failure as an exception when it is one."""
    if result < 0:
        error = Error(size=sizeof(Error))
        library.zendara_last_error(byref(error))
        raise Failure(f"{error.number} {error.text.decode()} ({error.detail.decode()})")
    return result


def expect(holds, what):
    if not holds:
        raise Failure("not as expected: " + what)


def read(screen, control):
    text = c_void_p()
    check(library.zendara_screen_read(screen, control, byref(text)))
    read_text = c_char_p(text.value).value.decode()
    library.zendara_free(text)
    return read_text


# ---- The session: what the component asks about company, year and currency ----

currency = ["P"]


def text_getter(text):
    return Getter(lambda _, variant: library.zendara_variant_set_text(variant, text()))


def take_currency(_, text):
    currency[:] = [text.decode()]
    return OK


# ---- The user: what a clerk would do. An exception that leaves a function would be lost: it is kept here. ----

failures = []
boxes = []
saved = []


def on_screen(_, screen):
    try:
        check(library.zendara_screen_type(screen, b"15\n"))
        print("number:", read(screen, b"Text1(1)"))
        print("name:", read(screen, b"Text1(4)"))
        check(library.zendara_screen_click(screen, b"CmdCalcular"))  # asks in a box
        print("rate:", read(screen, b"Text1(135)"))
        check(library.zendara_screen_focus(screen, STREET_FIELD))
        check(library.zendara_screen_press(screen, END, 0, None))
        check(library.zendara_screen_press(screen, HOME, SHIFT, None))  # all of it is selected
        check(library.zendara_screen_paste(screen, STREET.encode()))
        expect(library.zendara_screen_unsaved(screen) == OK, "there is something to save")
        check(library.zendara_screen_click(screen, b"Grabar"))
        expect(library.zendara_screen_unsaved(screen) == FALSE, "it is saved")
        check(library.zendara_screen_type(screen, b"15\n"))  # the same worker again
        saved.append(read(screen, STREET_FIELD))
    except Exception as failure:
        failures.append(failure)
    return OK  # and the screen closes


def on_box(_, box, answer):
    boxes.append(box.contents.text.decode())
    print("box:", boxes[-1])
    if box.contents.buttons == YES_NO:
        answer[0] = YES  # it comes with the answer of the default button
    return OK


def main(arguments):
    windows = arguments[:1] == ["--windows"]
    if len(arguments) != 1 + windows:
        print("usage: host.py [--windows] FOLDER", file=sys.stderr)
        return 2
    folder = arguments[-1].encode()
    print("zendara", library.zendara_version().decode())

    # Once, at the start: what the component stands on. Python keeps what the structures point to.
    engine, screens, company = c_void_p(), c_void_p(), c_void_p()
    check(library.zendara_engine_open(None, 0, byref(engine)))
    user = User(size=sizeof(User), Screen=OnScreen(on_screen), Box=OnBox(on_box))
    if windows:
        check(CDLL("libzendara-windows.so.1").zendara_windows(1, byref(screens)))
    else:
        check(library.zendara_automation(byref(user), byref(screens)))
    check(library.zendara_install(byref(Platform(size=sizeof(Platform), engine=engine, screens=screens,
                                                 application_folder=folder))))

    # Once a company and year: its files, and the recordsets that the screens work on.
    check(library.zendara_company_open(engine, folder, b"00001", b"01", byref(company)))

    # Once a screen. What is left out leaves the value of the call before.
    session = Session(size=sizeof(Session), CodigoEmpresa=text_getter(lambda: b"00001"),
                      Ejercicio=text_getter(lambda: b"2001"), Retorno=text_getter(lambda: currency[0].encode()),
                      PonRetorno=TextTaker(take_currency), Cambio=text_getter(lambda: b"166,386"),
                      FechaTrabajo=Getter(lambda _, variant: library.zendara_variant_set_date(variant, 36965)),
                      Programa=text_getter(lambda: b"01"))
    check(library.zendara_show(company, b"Trabajadores", byref(session)))
    for failure in failures:
        raise failure
    expect(windows or saved == [STREET], "the street is saved")
    expect(windows or len(boxes) == 1, "one box asked about the rate")
    expect(currency == ["P"], "the currency came back")

    # What was got is released, what was installed is taken away.
    library.zendara_release(company)
    library.zendara_release(screens)
    check(library.zendara_install(None))
    library.zendara_release(engine)
    expect(library.DllCanUnloadNow() == OK, "nothing is in use")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except Failure as failure:
        print("host.py:", failure, file=sys.stderr)
        sys.exit(1)
