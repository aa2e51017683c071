#!/usr/bin/env python3
"""Tests a program from the designer as a pupil does: starts it with F9, clicks in its window, reads the panel "Ausgabe",
starts it again and ends it; then with Java installations that misbehave. Folders have blanks, umlauts and quotes.

Usage: running.py PIROL PIROL_CLI
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from designer import Designer, Display, Failure  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = "^SuM$"
# What a Java may do that is none, and what the panel shows of it.
FAKES = {
    "endless": ("while :; do echo Zeile; done", "Zeilen ausgelassen"),
    "gone": ("echo kaputt; exit 3", "Java hat sich beendet, bevor das Programm laufen konnte."),
    "hanging": ("sleep 1000", ""),
    "forking": ("(sleep 1000 &) ; sleep 1000", ""),
    "runtime only": ("printf '\\001R17\\t\\n'; sleep 1000", "hat keinen Compiler"),
}


class Pupil(Designer):
    def program_windows(self):
        return [number for number, name in self.windows().items() if name == "SuM"]

    def test(self):
        """Starts the program; gives the number of its window, which is another one than before."""
        before = self.program_windows()
        self.focus()
        self.key("F9")
        return self.wait_for(lambda: [window for window in self.program_windows() if window not in before],
                             "the program's window")[0]

    def end(self):
        """A program's window takes the keyboard when it comes, perhaps between turning to Pirol and the key."""
        def ended():
            self.xdotool("windowfocus", self.window)
            self.key("ctrl+q")
            time.sleep(1)
            return self.program.poll() is not None
        wait_for(ended, "Pirol's end")
        super().end()

    def output(self, part, cause=lambda: None):
        """Does what causes it until the panel holds this. A program's window takes the keyboard when it comes, perhaps
        meanwhile, and clicks only when it is painted."""
        width, height = self.size()

        def copied():
            cause()
            self.focus()
            self.click(width / 2, height - 40)
            self.key("ctrl+a", "ctrl+c")
            return self.clipboard(part)
        return self.wait_for(copied, f"{part!r} in the panel")


def javas_of(home):
    """The processes of Pirol's Java that use this home."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            words = (process / "cmdline").read_bytes()
        except OSError:
            continue
        if b"pirol_run.Server" in words and str(home).encode() in words:
            found.append(process.name)
    return found


def wait_for(condition, what):
    end = time.monotonic() + Designer.PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise Failure(f"waited in vain for {what}")
        time.sleep(0.05)


def test_programs(pirol, display, home):
    project = home / 'Übung "1" (neu)' / "Rechner 'A'.prl"
    project.parent.mkdir()
    project.write_bytes((ROOT / "examples" / "Taschenrechner.prl").read_bytes())
    with Pupil(pirol, display, home, project, state=home / "state") as pupil:
        pupil.use("Rechner 'A'.prl")
        first = pupil.test()
        pupil.output("Pirols Ersatzklassen")
        pupil.output("→ hatKnopf7Geklickt", lambda: pupil.xdotool("mousemove", "--window", first, 50, 112, "click", 1))
        second = pupil.test()
        wait_for(lambda: pupil.program_windows() == [second], "the first program's end")
        with Pupil(pirol, display, home, ROOT / "examples" / "Quiz.prl", state=home / "state") as other:  # two at once
            other.use("Quiz.prl")
            third = other.test()
            if not {second, third} <= set(pupil.program_windows()):
                raise Failure("two Pirols disturb one another")
        wait_for(lambda: pupil.program_windows() == [second], "the end of the killed Pirol's program")
        pupil.focus()
        pupil.key("shift+F9")
        pupil.wait_until_gone(PROGRAM)
        pupil.output("Das Programm wurde beendet.")
        pupil.test()
        pupil.focus()
        pupil.end()
    wait_for(lambda: not javas_of(home), "the end of all Javas")


def fake_java(home, name, script):
    jdk = home / "jdks" / name
    (jdk / "bin").mkdir(parents=True)
    (jdk / "release").write_text('JAVA_VERSION="17"\nMODULES="java.desktop jdk.compiler"\n')
    program = jdk / "bin" / "java"
    program.write_text("#!/bin/sh\n" + script + "\n")
    program.chmod(0o755)
    return jdk


def test_bad_javas(pirol, display, home):
    """The designer stays usable, and what was started ends with it."""
    for name, (script, said) in FAKES.items():
        os.environ["JAVA_HOME"] = str(fake_java(home, name, script))
        with Pupil(pirol, display, home, ROOT / "examples" / "Quiz.prl") as pupil:
            pupil.use("Quiz.prl")
            pupil.key("F9")
            if said:
                pupil.output(said)
            pupil.key("F9", "F9")  # while one is at work
            pupil.end()
    del os.environ["JAVA_HOME"]


def test_tool(pirol_cli, display, home):
    """A program that ends at its start; the tool says so and where."""
    design = next(path for path in (ROOT / "tests" / "data" / "hints").glob("*/design.prl")
                  if (path.parent / "effect.txt").read_text().startswith("runs: ended with status 3"))
    environment = os.environ | {"XDG_STATE_HOME": str(home), "DISPLAY": display.name}
    done = subprocess.run([pirol_cli, "run", design], env=environment, capture_output=True, text=True, timeout=60, check=False)
    if done.returncode != 1 or "Fehler in Zeile" not in done.stderr or "Exception)" not in done.stderr:
        raise Failure(f"{done.returncode}: {done.stdout}{done.stderr}")
    done = subprocess.run([pirol_cli, "run", design], env=environment | {"DISPLAY": ":99999"}, capture_output=True,
                          text=True, timeout=60, check=False)
    if done.returncode != 1 or "Es fehlt ein Bildschirm" not in done.stderr:
        raise Failure(f"without a screen: {done.returncode}: {done.stderr}")


def main():
    pirol, pirol_cli = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="Häuschen 'x' ") as name, Display() as display:
        home = pathlib.Path(name)
        test_tool(pirol_cli, display, home)
        test_programs(pirol, display, home)
        test_bad_javas(pirol, display, home)


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
