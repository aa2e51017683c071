#!/usr/bin/env python3
"""A pupil's whole piece of work in the real program, with mouse and keyboard only: places five kinds of component, sets
their properties, builds a menu with a submenu, goes through the SQL wizard, reads the code, exports a BlueJ project and
saves; starts again with the saved file and exports once more. Both exports must be equal byte for byte, and the exported
program must compile, start and answer as tests/data/pupil.txt says.

Usage: pupil.py PIROL STANDINS      STANDINS: the folder of the compiled library stand-ins
"""
import pathlib
import sys
import tempfile

TESTS = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS / "java"))
from designer import Designer, Display, Failure  # noqa: E402
from run_generated import check  # noqa: E402

# The toolbar's buttons from the top.
LABEL, BUTTON, TEXT, SWITCH, RADIO_GROUP, TABLE, PICTURE = 0, 1, 2, 6, 7, 11, 12


def place(designer, button, left, top, right, bottom):
    """Chooses a kind in the toolbar and draws a frame on the canvas; the new component is selected then."""
    lines = (button >= SWITCH) + (button >= PICTURE)  # between the groups of kinds
    designer.click(60, 133 + 32 * button + 9 * lines)  # below the pointer
    designer.drag(left, top, right, bottom)


def place_components(designer):
    """Into the list leads Return, to its first row Home; Down takes over what is typed."""
    designer.use("Neues Projekt")
    place(designer, BUTTON, 300, 198, 478, 244)
    designer.use(r"Neues Projekt\*")
    designer.do("Return Home Down Down Down 150 Down 45 Down Down Down Down Würfeln Down Down space")
    place(designer, LABEL, 300, 268, 500, 308)
    designer.do("Return Home Down Down Down Down Down Down Down Down Größe Down")
    place(designer, TEXT, 300, 328, 500, 358)
    designer.do("Return Home Down hatEingabe Down End space")
    place(designer, TABLE, 550, 198, 800, 308)
    designer.do("Return Home Down Down Down Down Down Down Down Down Down")
    edit_list(designer, "Spalten", "Name")
    place(designer, RADIO_GROUP, 300, 388, 500, 468)
    designer.do("Return Home Down Down Down Down Down Down Down Down")
    edit_list(designer, "Radioknöpfe", "Insert hatRot Tab Rot Tab 150 Tab 20 Tab 0 Tab 0 Tab "
                                       "Insert hatGruen Tab Grün Tab 150 Tab 20 Tab 0 Tab 40 Tab")


def edit_list(designer, caption, steps):
    designer.key("F4")
    designer.use(f"{caption} bearbeiten")
    designer.do(steps)
    width, height = designer.size()
    designer.click(width - 145, height - 22)  # OK, which takes over what is being typed
    designer.back_from(f"{caption} bearbeiten")


def build_menu(designer):
    designer.key("ctrl+m")
    designer.use("Menü-Generator")
    # Into the menu, and a submenu; into that, and an entry.
    designer.do("Datei Return alt+i Down alt+u alt+b")
    designer.type("Zuletzt geöffnet")
    designer.do("Return alt+i Down alt+e alt+b")
    designer.type("Übung 1")
    designer.do("Return alt+i Up alt+b")
    designer.type("Ende")
    designer.do("Return alt+i shift+Tab shift+Tab space")  # OK is the last but one
    designer.back_from("Menü-Generator")


def connect_database(designer):
    designer.key("ctrl+shift+d")
    designer.use("SQL Generator")
    for value in ("localhost", "anna", "geheim", "schule"):
        designer.type(value)
        designer.key("Tab")
    designer.do("alt+s Return")
    designer.type("schueler")
    designer.do("Return space Down Down space Return")  # the first and the last method
    designer.back_from("SQL Generator")


def switch_code_on(designer):
    designer.choose("alt+c", "m")
    designer.choose("alt+c", "d")


def read_code(designer):
    designer.key("F5")
    designer.use("SuMAnwendung")
    designer.key("ctrl+a", "ctrl+c")
    source = designer.wait_for(lambda: designer.clipboard("SuMAnwendung"), "a copied source")
    designer.key("Escape")
    designer.back_from("SuMAnwendung")
    return source


def export(designer, folder):
    designer.key("ctrl+b")
    designer.choose_file("BlueJ-Projekt exportieren", folder)


def work(pirol, display, home, project):
    """Both exported folders, the second one made from the saved file."""
    first, second = home / "Würfel 1", home / "Würfel 2"
    with Designer(pirol, display, home) as designer:
        place_components(designer)
        build_menu(designer)
        connect_database(designer)
        switch_code_on(designer)
        source = read_code(designer)
        export(designer, first)
        designer.save(project)
        designer.end()
    if source.split() != (first / "SuMAnwendung.java").read_text("cp1252").split():
        raise Failure("the viewer shows another source than the exported one:\n" + source)
    with Designer(pirol, display, home, project) as designer:
        designer.use(project.name)
        switch_code_on(designer)
        export(designer, second)
        designer.end()
    return first, second


def content(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def main():
    pirol, standins = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    with tempfile.TemporaryDirectory() as name, Display() as display:
        first, second = work(pirol, display, pathlib.Path(name), pathlib.Path(name) / "Würfel.prl")
        if len(content(first)) != 5 or content(first) != content(second):
            raise Failure(f"the exports differ: {content(first)}\n{content(second)}")
        check(standins, second / "SuMAnwendung.java", second, TESTS / "data" / "pupil.txt")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
