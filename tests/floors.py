"""Fails on the first file of the sources that includes a floor below its own, or that knows Qt and must not.

A floor's files include only files of their own floor and of those before it in the lists here.
Usage: floors.py SOURCES [NM CORE_LIBRARY]; with the library, its symbols must not need Qt either.
"""
import pathlib
import re
import subprocess
import sys

FLOORS = [{"base"}, {"menu"}, {"sql"}, {"controls"}, {"model"}, {"project"}, {"codegen"}, {"designer"}, {"app"},
          {"ui/parts"}, {"ui/canvas"}, {"ui/properties"}, {"ui/code"}, {"ui/dialogs"}, {"ui/main"}, {"programs"}]
# These do not include one another.
STRANGERS = [{"menu", "sql", "controls"}, {"ui/canvas", "ui/properties", "ui/code"}]


def floor_of(path):
    number = next((i for i, names in enumerate(FLOORS) if str(path.parent) in names), None)
    if number is None:
        sys.exit(f"{path}: this folder is no floor")
    return number


def check_file(path, text):
    own = path.parent
    for include in map(pathlib.PurePosixPath, re.findall(r'^\s*#\s*include\s*"([^"]+)"', text, re.M)):
        if floor_of(include) > floor_of(path):
            sys.exit(f"{path} includes {include}, which stands on a floor below")
        if own != include.parent and any({str(own), str(include.parent)} <= names for names in STRANGERS):
            sys.exit(f"{path} includes {include}; the two folders stand side by side")
    qt = re.search(r'^\s*#\s*include\s*<(Q[^>]*)>', text, re.M)
    if qt and own.parts[0] != "ui" and str(path) != "programs/pirol.cpp":
        sys.exit(f"{path} includes Qt: {qt[1]}")


def main(sources, nm=None, library=None):
    root = pathlib.Path(sources)
    files = sorted(file for end in ("*.h", "*.cpp") for file in root.rglob(end))
    if not files:
        sys.exit(f"{root}: no sources")
    for file in files:
        check_file(file.relative_to(root), file.read_text(encoding="utf-8"))
    if library:
        symbols = subprocess.check_output([nm, "--undefined-only", "--demangle", library], text=True)
        if qt := re.search(r"\s(Q[A-Z][A-Za-z]+|qt_[a-z]+)", symbols):
            sys.exit(f"The core library needs the Qt symbol {qt[1]}")
    print(f"{len(files)} files")


main(*sys.argv[1:])
