#!/usr/bin/env python3
"""Follows the guide's first chapter to the letter, with mouse and keyboard: from the start page to a calculator whose
Java, as the chapter prints it, adds 12 and 21; then draws one more button and brings that Java up to date.

Usage: first_program.py PIROL STANDINS [FOLDER]
    STANDINS    the folder of the compiled library stand-ins
    FOLDER      gets the chapter's pictures, and the whole way in motion
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import time

from designer import Display, Failure
from running import Pupil as Tester

GUIDE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "Handbuch.md"
POINTER, BUTTON, TEXT = -1, 1, 2  # places in the toolbox
SMALL_WINDOW = (206, 162)  # on the start page
NAME, CLICKED, LATER_CLICKED = (1120, 125), (1098, 280), (1098, 324)  # rows of the property list
CANVAS, LATER_CANVAS = (395, 288), (395, 223)  # the design's upper left corner; later above the panel "Ausgabe"
DISPLAY = (20, 20, 300, 50)
BUTTONS = {"1": (20, 80, 80, 120), "2": (90, 80, 150, 120), "+": (160, 80, 220, 120), "=": (230, 80, 290, 120),
           "3": (20, 140, 80, 180)}
BESIDE = (640, 420)  # where the program's window stands
RUNNER = """
public class Start {
    static String shown = "";

    public static void main(String[] words) throws Exception {
        SuMAnwendung program = new SuMAnwendung();
        for (String last = ""; ; Thread.sleep(50)) {
            javax.swing.SwingUtilities.invokeAndWait(() -> shown = program.hatAnzeige.text());
            if (!shown.equals(last)) System.out.println(shown);
            last = shown;
        }
    }
}
"""


class Pupil(Tester):
    frames = None  # the folder for them; none unless pictures are wanted

    def choose_kind(self, place):
        self.click(60, 133 + 32 * place if place >= 0 else 92)
        self.frame()

    def draw(self, box, corner=CANVAS):
        left, top, right, bottom = box
        self.drag(corner[0] + left, corner[1] + top, corner[0] + right, corner[1] + bottom)

    def picture(self, folder, name, window=None):
        if folder:
            time.sleep(1)
            subprocess.run(["import", "-window", window or self.window, "-define", "png:exclude-chunks=date,time",
                            str(folder / name)], env=self.environment, check=True)


    def frame(self):
        if self.frames:
            time.sleep(0.5)
            subprocess.run(["import", "-window", "root", "-crop", "1200x800+0+0", "+repage",
                            str(self.frames / f"{len(list(self.frames.iterdir())):02}.png")], env=self.environment, check=True)

    def save_frames(self, folder):
        if folder:
            subprocess.run(["convert", "-delay", "90", *sorted(map(str, self.frames.iterdir())), "-resize", "800x", "+dither",
                            "-colors", "96", "-layers", "optimize", str(folder / "Rechner.gif")], check=True)
            self.frames = None


def draw_calculator(pupil, folder):
    pupil.use("Neues Projekt")
    time.sleep(1)  # the start page fills itself
    pupil.frame()
    pupil.click(*SMALL_WINDOW)
    pupil.choose_kind(TEXT)
    pupil.draw(DISPLAY)
    pupil.do("0 Return")
    pupil.frame()
    pupil.click(*NAME)
    pupil.xdotool("click", "--repeat", "2", "--delay", "60", "1")
    pupil.type("hatAnzeige")
    pupil.key("Return")
    pupil.choose_kind(BUTTON)
    for caption in "12+=":
        pupil.draw(BUTTONS[caption])
        pupil.do(f"{caption} Return")
        pupil.frame()
    pupil.picture(folder, "Rechner-gezeichnet.png")
    pupil.choose_kind(POINTER)
    pupil.draw((10, 65, 310, 130))
    pupil.frame()
    pupil.click(*CLICKED)
    pupil.frame()


def try_out(pupil):
    window = pupil.test()
    pupil.xdotool("windowmove", "--sync", window, *BESIDE)
    left, top, right, bottom = BUTTONS["1"]

    def click():
        pupil.xdotool("mousemove", "--window", window, (left + right) // 2, (top + bottom) // 2, "click", 1)
    pupil.output("hatKnopf1Geklickt", click)
    pupil.frame()
    pupil.focus()
    pupil.key("shift+F9")
    pupil.wait_for(lambda: not pupil.program_windows(), "the end of the test")


def save_and_export(pupil, home):
    pupil.key("ctrl+s")
    pupil.choose_file("Projekt speichern", home / "Rechner")
    pupil.use("^Rechner.prl -")
    pupil.key("ctrl+b")
    pupil.choose_file("BlueJ-Projekt exportieren", home / "RechnerProjekt")
    java = home / "RechnerProjekt" / "SuMAnwendung.java"
    pupil.wait_for(java.exists, "the project")
    return java


def write_program(java):
    """As the chapter says: the fields below the comment, the methods in the place of the empty ones."""
    chapter = GUIDE.read_text().split("\n## ")[1]
    fields, methods = re.findall(r"```java\n(.*?)```", chapter, re.DOTALL)
    source = java.read_text("cp1252").replace("\r\n", "\n")
    source = source.replace("    // Objekte\n", "    // Objekte\n" + fields, 1)
    for method in re.split(r"\n(?=    p)", methods):
        if heading := re.match(r"    public void \w+\(\)\n", method):
            source = re.sub(re.escape(heading[0]) + r".*?\n    }\n", lambda _, text=method: text, source, 1, re.DOTALL)
        else:
            source = source[:source.rindex("}")] + method + "}\n"
    java.write_bytes(source.replace("\n", "\r\n").encode("cp1252"))


def run_calculator(pupil, java, standins, folder):
    """Calculates 12 + 21 in the program's own window; gives what the display showed."""
    (java.parent / "Start.java").write_text(RUNNER)
    subprocess.run(["javac", "-encoding", "cp1252", "-cp", standins, "-d", java.parent, java, java.parent / "Start.java"],
                   check=True)
    program = subprocess.Popen(["java", "-cp", f"{standins}:{java.parent}", "Start"], stdout=subprocess.PIPE, text=True,
                               env=pupil.environment)
    try:
        window = pupil.wait_for(pupil.program_windows, "the calculator")[0]
        pupil.xdotool("windowmove", "--sync", window, *BESIDE)
        shown = [program.stdout.readline().strip()]
        for key in "12+21=":
            left, top, right, bottom = BUTTONS[key]
            pupil.xdotool("mousemove", "--window", window, (left + right) // 2, (top + bottom) // 2)
            time.sleep(0.3)
            pupil.xdotool("click", 1)
            time.sleep(0.3)
            pupil.frame()
        pupil.picture(folder, "Rechner-laeuft.png", window)
    finally:
        program.terminate()
    return shown + program.communicate()[0].split()


def draw_on(pupil, java):
    """One more button, which the Java gets while the pupil's lines stay."""
    before = java.read_text("cp1252")
    pupil.use("Rechner")
    pupil.choose_kind(BUTTON)
    pupil.draw(BUTTONS["3"], LATER_CANVAS)
    pupil.do("3 Return")
    pupil.click(*LATER_CLICKED)
    pupil.key("ctrl+u")
    pupil.use("Java-Datei aktualisieren")
    pupil.key("Return")
    pupil.back_from("Java-Datei aktualisieren")
    after = java.read_text("cp1252")
    lost = [line for line in before.splitlines() if line not in after.splitlines()]
    if lost or "(20, 140, 60, 40," not in after or "public void hatKnopf5Geklickt()" not in after or after.count("addiere();") != 2:
        raise Failure(f"the update made this of the pupil's Java, without {lost}:\n{after}")


def main():
    program, standins = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    folder = pathlib.Path(sys.argv[3]).resolve() if len(sys.argv) > 3 else None
    with tempfile.TemporaryDirectory(prefix="pirol-first-") as scratch, Display() as display:
        home = pathlib.Path(scratch)
        with Pupil(program, display, home) as pupil:
            if folder:
                pupil.frames = home / "frames"
                pupil.frames.mkdir()
            draw_calculator(pupil, folder)
            try_out(pupil)
            java = save_and_export(pupil, home)
            write_program(java)
            shown = run_calculator(pupil, java, standins, folder)
            if shown != ["0", "1", "12", "2", "21", "33"]:
                raise Failure(f"the calculator showed {shown}")
            pupil.save_frames(folder)
            draw_on(pupil, java)


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
