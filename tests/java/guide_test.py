#!/usr/bin/env python3
"""Compiles the lines of Java that the guide gives for each kind of component, each kind's in a method of its own.

Usage: guide_test.py STANDINS
"""
import pathlib
import re
import sys
import tempfile

from run_generated import Failure, run

ROOT = pathlib.Path(__file__).resolve().parents[2]
IMPORTS = "import sum.ereignis.*; import sum.komponenten.*; import sum.multimedia.*;\n"
ROW = re.compile(r'\{ComponentKind::\w+, +"\w+", +"\w+", +"\w+", +"(\w+)", +"[^"]*", +"[^"]*", +"[^"]*", +"(\w+)"')


def main():
    kinds = ROW.findall((ROOT / "src" / "controls" / "ComponentKind.h").read_text())
    guide = (ROOT / "docs" / "Handbuch.md").read_text()
    fields = "".join(f"    {java} {prefix}1;\n" for java, prefix in kinds) + "    Radioknopf hatLeicht, hatSchwer;\n"
    methods = ""
    for java, _ in kinds:
        page = re.search(rf"\n### {java}\n.*?```java\n(.*?)```", guide, re.DOTALL)
        if page is None or len(page[1].splitlines()) != 2:
            raise Failure(f"the guide has no two lines of Java for {java}")
        methods += f"    void {java}Zeilen() {{\n{page[1]}    }}\n"
    with tempfile.TemporaryDirectory(prefix="pirol-guide-") as folder:
        source = pathlib.Path(folder) / "Handbuch.java"
        source.write_text(f"{IMPORTS}class Handbuch extends EBAnwendung {{\n{fields}{methods}}}\n")
        run(["javac", "-Werror", "-Xlint:all,-serial", "-d", folder, "-cp", sys.argv[1], source])
    print(f"{len(kinds)} kinds")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
