#!/usr/bin/env python3
"""Proves that the Java of a project runs: generates it, compiles it without warnings, starts it on a display of its own
and lets Driver.java use it like a person would.

Usage: run_generated.py PIROL_CLI STANDINS PROJECT EXPECTED [--write]
    STANDINS    the folder of the compiled library stand-ins and their driver
    EXPECTED    what the driver prints about the window and its use; or a PNG that gets what the window shows, with
                which the tests compare the designer's drawing
    --write     makes EXPECTED instead of comparing with it
"""

import difflib
import os
import pathlib
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from designer import Display, Failure  # noqa: E402


def run(command, text="", **options):
    """Runs a command that reads the text and gives back its standard output."""
    done = subprocess.run(list(map(str, command)), input=text.encode(), capture_output=True, timeout=600, check=False,
                          **options)
    output = done.stdout.decode("utf-8", "replace")
    if done.returncode != 0:
        raise Failure(f"{command[0]} ended with status {done.returncode}:\n{output}{done.stderr.decode()}")
    return output


def generate(pirol_cli, project, folder, options):
    """The source of a project, in a folder of its own."""
    source = pathlib.Path(folder) / "SuMAnwendung.java"
    run([pirol_cli, "generate", project, *options, "-o", source])
    return source


def drive(standins, classes, folder, *words):
    """Starts a compiled program in a folder, and gives back what its driver printed."""
    with Display("4000x3000") as display:
        return run(["java", "-XX:TieredStopAtLevel=1", "-cp", f"{standins}:{classes}", "Driver", *words],
                   env=os.environ | {"DISPLAY": display.name, "LC_ALL": "C.UTF-8"}, cwd=folder)


def check(standins, source, folder, expected, write=False):
    """Compiles and starts a program. Raises a Failure that says what it does otherwise than expected."""
    with tempfile.TemporaryDirectory(prefix="pirol-java-") as classes:
        run(["javac", "-Werror", "-Xlint:all,-serial", "-d", classes, "-encoding", "cp1252", "-cp", standins, source])
        printed = drive(standins, classes, folder, *[expected] * (expected.suffix == ".png"))
    if expected.suffix == ".png":
        return
    if write:
        expected.write_text(printed)
    differences = difflib.unified_diff(expected.read_text().split("\n"), printed.split("\n"), "expected", "printed")
    if text := "\n".join(differences):
        raise Failure(text)


def main():
    pirol_cli, standins, project, expected = (pathlib.Path(word).resolve() for word in sys.argv[1:5])
    options = ["--menu"] if b"#Begin.Pirol.SQL\r\n\r\n" in project.read_bytes() else ["--menu", "--sql"]
    with tempfile.TemporaryDirectory(prefix="pirol-java-") as folder:
        source = generate(pirol_cli, project, folder, options)
        check(standins, source, project.parent, expected, sys.argv[5:] == ["--write"])


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
