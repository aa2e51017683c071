#!/usr/bin/env python3
"""A pupil's whole piece of work in the real program, with mouse and keyboard only: places five kinds of component, sets
their properties, builds a menu with a submenu, goes through the SQL wizard, reads the code, exports a BlueJ project and
saves; starts again with the saved file and exports once more. Both exports must be equal byte for byte, and the exported
program must compile, start and answer.

Usage: pupil.py PIROL PIROL_CLI STANDINS      STANDINS: the folder of the compiled library stand-ins
"""
import pathlib
import subprocess
import sys
import tempfile

from designer import Designer, Display, Failure

JAVA = pathlib.Path(__file__).resolve().parents[1] / "java"
sys.path.insert(0, str(JAVA))
from run_generated import Expectation  # noqa: E402

# The toolbar's buttons from the top.
LABEL, BUTTON, TEXT, RADIO_GROUP, TABLE = 0, 1, 2, 7, 11

# The rows of the property list that every component has.
NAME_ROW, WIDTH_ROW, FIRST_OWN_ROW = 1, 3, 8

# Name -> class, width, height, text, handlers. Frames snap to the grid of ten pixels.
COMPONENTS = {
    "hatKnopf1": ("Knopf", 150, 45, "Würfeln", ["hatKnopf1Geklickt"]),
    "hatEtikett1": ("Etikett", 200, 40, "Größe", []),
    "hatEingabe": ("Textfeld", 200, 30, "Textfeld 1", ["hatEingabeFokusVerloren"]),
    "hatTabelle1": ("Tabelle", 250, 110, "5\1Name\1Spalte 2\1Spalte 3", []),
    "hatRot": ("Radioknopf", 150, 20, "Rot", ["hatRotGeklickt"]),
    "hatGruen": ("Radioknopf", 150, 20, "Grün", ["hatGruenGeklickt"]),
}
MENU = [(0, 0, "Datei"), (1, 1, "Zuletzt geöffnet"), (2, 2, "Übung 1"), (1, 2, "Ende")]
METHODS = {"AnzahlDerTabellen": True, "NameDerTabelle": False, "AnzahlDerEintraege": True}


def place(designer, button, left, top, right, bottom):
    """Chooses a kind in the toolbar and draws a frame on the canvas; the new component is selected then."""
    designer.click(60, 55 + 30 * button)
    designer.drag(left, top, right, bottom)


def to_row(designer, row):
    """From the canvas to a row of the property list."""
    designer.key("Return", "Home", *["Down"] * row)


def place_components(designer):
    designer.use("Neues Projekt")
    place(designer, BUTTON, 300, 150, 478, 196)
    designer.use(r"Neues Projekt\*")
    to_row(designer, WIDTH_ROW)
    for value in ("150", "45"):
        designer.write(value)
        designer.key("Down")
    designer.key(*["Down"] * 3)
    designer.write("Würfeln")
    designer.key("Down", "Down", "space")

    place(designer, LABEL, 300, 220, 500, 260)
    to_row(designer, FIRST_OWN_ROW)
    designer.write("Größe")
    designer.key("Down")

    place(designer, TEXT, 300, 280, 500, 310)
    to_row(designer, NAME_ROW)
    designer.write("hatEingabe")
    designer.key("Down", "End", "space")

    place(designer, TABLE, 550, 150, 800, 260)
    to_row(designer, FIRST_OWN_ROW + 1)
    edit_list(designer, "Spalten", lambda: designer.write("Name"))

    place(designer, RADIO_GROUP, 300, 340, 500, 420)
    to_row(designer, FIRST_OWN_ROW)
    edit_list(designer, "Radioknöpfe", lambda: add_radio_buttons(designer))


def edit_list(designer, caption, edit):
    designer.key("F4")
    designer.use(f"{caption} bearbeiten")
    edit()
    width, height = designer.size()
    designer.click(width - 145, height - 22)  # OK, which takes over what is being typed
    designer.wait_until_gone(f"{caption} bearbeiten")
    designer.use("Pirol$")


def add_radio_buttons(designer):
    for name, caption, top in (("hatRot", "Rot", "0"), ("hatGruen", "Grün", "40")):
        designer.key("Insert")
        for value in (name, caption, "150", "20", "0", top):
            designer.write(value)
            designer.key("Tab")


def build_menu(designer):
    designer.key("ctrl+m")
    designer.use("Menü-Generator")
    designer.write("Datei")
    designer.key("Return")
    designer.key("alt+i", "Down", "alt+b", "Tab", "Tab", "Down", "alt+b")  # into the menu; a submenu
    designer.type("Zuletzt geöffnet")
    designer.key("Return")
    designer.key("alt+i", "Down", "alt+b", "Tab", "Down", "alt+b")  # into the submenu; an entry
    designer.type("Übung 1")
    designer.key("Return")
    designer.key("alt+i", "Up", "alt+b")
    designer.type("Ende")
    designer.key("Return")
    designer.key("alt+i", "shift+Tab", "shift+Tab", "space")  # OK is the last but one
    designer.wait_until_gone("Menü-Generator")
    designer.use("Pirol$")


def connect_database(designer):
    designer.key("ctrl+d")
    designer.use("SQL Generator")
    for value in ("localhost", "anna", "geheim", "schule"):
        designer.type(value)
        designer.key("Tab")
    designer.key("alt+s", "Return")
    designer.type("schueler")
    designer.key("Return")
    designer.key("space", "Down", "Down", "space", "Return")  # the first and the last method
    designer.wait_until_gone("SQL Generator")
    designer.use("Pirol$")


def switch_code_on(designer):
    designer.choose("alt+c", "m")
    designer.choose("alt+c", "d")


def read_code(designer):
    designer.key("F5")
    designer.use("SuMAnwendung")
    designer.key("ctrl+a", "ctrl+c")
    source = designer.wait_for(lambda: designer.clipboard("SuMAnwendung"), "a copied source")
    designer.key("Escape")
    designer.wait_until_gone("SuMAnwendung")
    designer.use("Pirol$")
    return source


def export(designer, folder):
    designer.key("ctrl+b")
    designer.choose_file("BlueJ-Projekt exportieren", folder)


def save(designer, path):
    designer.key("ctrl+s")
    designer.choose_file("Projekt speichern", path)
    designer.use(f"^{path.name} –")


def end(designer):
    designer.key("ctrl+q")
    if status := designer.wait_for_end():
        raise Failure(f"the program ended with status {status}")


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
        save(designer, project)
        end(designer)
    if source.split() != (first / "SuMAnwendung.java").read_text("cp1252").split():
        raise Failure("the viewer shows another source than the exported one:\n" + source)
    with Designer(pirol, display, home, project) as designer:
        designer.use(project.name)
        switch_code_on(designer)
        export(designer, second)
        end(designer)
    return first, second


def check_project(project):
    """What was saved is what the pupil did."""
    saved = Expectation(project)
    found = {name: (row[0], *row[3:]) for name, row in saved.components.items()}
    for what, is_now, should_be in (("components", found, COMPONENTS), ("menu", saved.menu_lines, MENU),
                                    ("methods", saved.methods, METHODS)):
        if is_now != should_be:
            raise Failure(f"the saved {what}: {is_now}\ninstead of:     {should_be}")


def content(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def main():
    pirol, pirol_cli, standins = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    with tempfile.TemporaryDirectory() as name, Display() as display:
        home = pathlib.Path(name)
        project = home / "Würfel.prl"
        first, second = work(pirol, display, home, project)
        check_project(project)
        if len(content(first)) != 5 or content(first) != content(second):
            raise Failure(f"the exports differ: {content(first)}\n{content(second)}")
        return subprocess.run([sys.executable, JAVA / "run_generated.py", pirol_cli, project, "--strict", "--standins",
                               standins, "--java", second / "SuMAnwendung.java"], check=False).returncode


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        sys.exit(str(failure))
