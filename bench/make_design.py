#!/usr/bin/env python3
"""Writes one design of COUNT components for Pirol (.prl), for Qt (.ui) and for FLTK (.fl).

The fifteen kinds take turns. All three files hold the same components with the same names, boxes, texts and items; what
Qt or FLTK lacks (sound, film) stands there as a plain label. Only the project file has events: the other two get no
callbacks, which spares their compilers work that Pirol does.

    make_design.py COUNT FOLDER       writes FOLDER/design-COUNT.prl, .ui and .fl
"""

import argparse
import hashlib
from pathlib import Path
from typing import NamedTuple

WINDOW_WIDTH, WINDOW_HEIGHT = 640, 480


class Component(NamedTuple):
    kind: int  # 1 to 15, the project file's kind code
    name: str
    left: int
    top: int
    width: int
    height: int
    text: str
    items: list


class Kind(NamedTuple):
    prefix: str
    text: str  # caption or content; "#" stands for the number
    items: tuple
    prl: str  # the fields behind the object name: T text, I items, W and F flags, anything else as it is
    qt: str
    fltk: str


ENTRIES = ("Äpfel", "Birnen", "Süßkirschen", "Weintrauben")
COLUMNS = ("Spalte 1", "Spalte 2", "Größe")
KINDS = {
    1: Kind("hatEtikett", "Etikett #: Übung", (), "T 1 12", "QLabel", "Fl_Box"),
    2: Kind("hatKnopf", "Drück mich # €", (), "T W W W", "QPushButton", "Fl_Button"),
    3: Kind("hatTextfeld", "Textfeld #", (), "T 0 W W F W", "QLineEdit", "Fl_Input"),
    4: Kind("hatZeichenbereich", "Viel Text in #", (), "T W F F W", "QTextEdit", "Fl_Text_Editor"),
    5: Kind("hatZeilenbereich", "Mehr Text in #", (), "T W F F W", "QPlainTextEdit", "Fl_Text_Editor"),
    6: Kind("hatPasswortfeld", "*", (), "T W F F W", "QLineEdit", "Fl_Input"),
    7: Kind("hatSchalter", "Schalter #", (), "T W F F", "QCheckBox", "Fl_Check_Button"),
    8: Kind("hatOptionsgruppe", "Gruppe #", ("rot", "grün", "blau"), "I", "QGroupBox", "Fl_Group"),
    9: Kind("hatAuswahl", "", ENTRIES, "I W W F", "QComboBox", "Fl_Choice"),
    10: Kind("hatRegler", "", (), "10 0 100 W F F", "QSlider", "Fl_Slider"),
    11: Kind("hatFortschrittsbalken", "", (), "0 100", "QProgressBar", "Fl_Progress"),
    12: Kind("hatTabelle", "", COLUMNS, "5 I W W F F", "QTableWidget", "Fl_Table"),
    13: Kind("hatBild", r"C:\Bilder\bild#.jpg", (), "T", "QLabel", "Fl_Box"),
    14: Kind("hatTon", r"C:\Töne\ton#.wav", (), "T", "QLabel", "Fl_Box"),
    15: Kind("hatFilm", r"C:\Filme\film#.mpg", (), "T", "QLabel", "Fl_Box"),
}
RADIO_GROUP, PASSWORD = 8, 6


def components(count):
    for index in range(count):
        code = index % len(KINDS) + 1
        kind, number = KINDS[code], index // len(KINDS) + 1
        yield Component(
            code, f"{kind.prefix}{number}", index % 50 * 10, index // 50 % 3000 * 10, 120, 40 + code,
            kind.text.replace("#", str(number)), list(kind.items))


def radio_buttons(group):
    """Name, caption, width, height, left and top within the group."""
    for place, caption in enumerate(group.items):
        yield f"{group.name}Knopf{place + 1}", caption, 100, 20, 10, 10 * place


# Pirol

FLAGS = {"W": "Wahr", "F": "Falsch"}


def prl_items(component):
    if component.kind != RADIO_GROUP:
        return "\1".join(component.items)
    return "\1".join("\1".join(map(str, button)) + "\1Falsch" for button in radio_buttons(component))


def prl_line(component):
    fields = [str(value) for value in (component.kind, *component[2:6], component.name)]
    for field in KINDS[component.kind].prl.split():
        if field == "T":
            fields.append(component.text)
        elif field == "I":
            fields.append(prl_items(component))
        else:
            fields.append(FLAGS.get(field, field))
    return "\0".join(fields)


def prl(design):
    lines = ["#Begin.Pirol.Window", str(WINDOW_WIDTH), str(WINDOW_HEIGHT), "Jörg Müller", "#Begin.Pirol.Components"]
    lines += [prl_line(component) for component in sorted(design, key=lambda component: component.kind)]
    lines += ["#Begin.Pirol.Menu", "#Begin.Pirol.SQL", "", "", "", "", "", "0;0;0", "#Begin.Pirol.Hash", ""]
    text = "\r\n".join(lines).encode("cp1252")
    return text + hashlib.sha1(text).hexdigest().upper().encode()


# Qt

def ui_property(name, kind, value):
    return f'<property name="{name}"><{kind}>{value}</{kind}></property>\n'


def ui_box(left, top, width, height):
    return (f'<property name="geometry"><rect><x>{left}</x><y>{top}</y>'
            f"<width>{width}</width><height>{height}</height></rect></property>\n")


def ui_widget(kind, name, box, content):
    return f'<widget class="{kind}" name="{name}">\n{ui_box(*box)}{content}</widget>\n'


def ui_content(component):
    text = component.text
    if component.kind == 8:
        return ui_property("title", "string", text) + "".join(
            ui_widget("QRadioButton", name, (left, top, width, height), ui_property("text", "string", caption))
            for name, caption, width, height, left, top in radio_buttons(component))
    if component.kind == 9:
        return "".join(f'<item>{ui_property("text", "string", item)}</item>\n' for item in component.items)
    if component.kind == 10:
        return (ui_property("maximum", "number", 100) + ui_property("value", "number", 10) +
                ui_property("orientation", "enum", "Qt::Horizontal"))
    if component.kind == 11:
        return ui_property("maximum", "number", 100) + ui_property("value", "number", 0)
    if component.kind == 12:
        return ui_property("rowCount", "number", 5) + "".join(
            f'<column>{ui_property("text", "string", item)}</column>\n' for item in component.items)
    if component.kind in (4, 5):
        return ui_property("plainText", "string", text)
    if component.kind == PASSWORD:
        return ui_property("echoMode", "enum", "QLineEdit::Password")
    if component.kind == 13:
        return ui_property("pixmap", "pixmap", text)
    return ui_property("text", "string", text)


def ui(design):
    body = "".join(
        ui_widget(KINDS[component.kind].qt, component.name, component[2:6], ui_content(component))
        for component in design)
    window = ui_widget("QWidget", "Design", (0, 0, WINDOW_WIDTH, WINDOW_HEIGHT), body)
    return f'<?xml version="1.0" encoding="UTF-8"?>\n<ui version="4.0">\n<class>Design</class>\n{window}</ui>\n'.encode()


# FLTK

FLTK_TYPES = {PASSWORD: " type Secret", 10: " type Horizontal maximum 100 value 10"}


def fl_text(text):
    return "{" + text.replace("\\", "\\\\").replace("{", "\\{").replace("}", "\\}") + "}"


def fl_widget(kind, name, box, label, detail=""):
    left, top, width, height = box
    return f"{kind} {name} {{\nlabel {fl_text(label)}\nxywh {{{left} {top} {width} {height}}}{detail}\n}}"


def fl_component(component):
    kind = KINDS[component.kind].fltk
    detail = FLTK_TYPES.get(component.kind, "")
    children = ""
    if component.kind == RADIO_GROUP:
        children = "\n".join(
            fl_widget("Fl_Round_Button", name, (component.left + left, component.top + top, width, height), caption,
                      " type Radio") for name, caption, width, height, left, top in radio_buttons(component))
    elif component.kind == 9:
        children = "\n".join(fl_widget("MenuItem", "{}", (0, 0, 100, 20), item) for item in component.items)
    elif component.kind == 12:
        children = " "
    text = fl_widget(kind, component.name, component[2:6], component.text, detail + " open" * bool(children))
    return text + (f" {{\n{children}\n}}" if children else "") + "\n"


def fl(design):
    body = "".join(map(fl_component, design))
    return ("# data file for the Fltk User Interface Designer (fluid)\n"
            "version 1.0308\nheader_name {.h}\ncode_name {.cxx}\n"
            "Function {make_window()} {open\n} {\n"
            f"Fl_Window {{}} {{\nlabel Design open\nxywh {{0 0 {WINDOW_WIDTH} {WINDOW_HEIGHT}}} type Double visible\n}} {{\n"
            f"{body}}}\n}}\n").encode()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("count", type=int)
    parser.add_argument("folder", type=Path)
    arguments = parser.parse_args()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    design = list(components(arguments.count))
    for writer in (prl, ui, fl):
        (arguments.folder / f"design-{arguments.count}.{writer.__name__}").write_bytes(writer(design))


if __name__ == "__main__":
    main()
