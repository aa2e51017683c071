#!/usr/bin/env python3
"""How long a program takes from the key to its painted window, beside javac and java called by hand.

Usage: running_bench.py PIROL PIROL_CLI [TESTS]      TESTS: how many of the later ones (default 15)

Looks at the screen's own memory, and so sees what is painted within a millisecond. Each later test replaces a program
that runs, as soon as the next Java is ready. Says the memory of the Java that waits, too.
"""
import mmap
import os
import pathlib
import statistics
import struct
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))
from designer import Designer, Display, Failure  # noqa: E402

EXAMPLE = ROOT / "examples" / "Taschenrechner.prl"
LEFT, TOP, RIGHT, BOTTOM = 10, 140, 320, 380  # lower buttons: nothing blinks there, and none has the focus
PATIENCE = 60


class Screen(Display):
    """A display whose pixels can be read at once."""

    def __init__(self, folder):
        os.environ["PATH"] = f"{folder}:{os.environ['PATH']}"
        server = pathlib.Path(folder) / "Xvfb"
        server.write_text(f'#!/bin/sh\nPATH="${{PATH#*:}}"\nexec Xvfb "$@" -fbdir "{folder}"\n')
        server.chmod(0o755)
        super().__init__()
        with open(pathlib.Path(folder) / "Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        head = struct.unpack(">25I", self.memory[:100])
        self.pixels, self.line, self.pixel = head[0] + 12 * head[19], head[12], head[11] // 8

    def part(self):
        return b"".join(self.memory[begin:begin + (RIGHT - LEFT) * self.pixel] for begin in
                        range(self.pixels + TOP * self.line + LEFT * self.pixel, self.pixels + BOTTOM * self.line, self.line))

    def settled(self):
        """What the part shows when something has been painted there and nothing has changed for a while."""
        last, since = self.part(), time.monotonic()
        before = last
        while last == before or time.monotonic() - since < 3:
            time.sleep(0.05)
            if (now := self.part()) != last:
                last, since = now, time.monotonic()
        return last

    def wait(self, condition):
        end = time.monotonic() + PATIENCE
        while not condition(self.part()):
            if time.monotonic() > end:
                raise Failure("nothing is painted")
            time.sleep(0.001)


def painted_by_hand(screen, pirol_cli, classes, folder):
    """Seconds of javac and java, and what the window shows then. The library's classes are compiled before."""
    source = folder / "SuMAnwendung.java"
    subprocess.run([pirol_cli, "generate", EXAMPLE, "-o", source], check=True)
    (folder / "Start.java").write_text("public class Start { public static void main(String[] a) { new SuMAnwendung(); } }\n")
    environment = os.environ | {"DISPLAY": screen.name}
    command = ["java", "-cp", f"{folder}:{classes}", "Start"]

    def run(reference=None):
        begin = time.monotonic()
        subprocess.run(["javac", "-encoding", "cp1252", "-cp", classes, "-d", folder, source, folder / "Start.java"], check=True)
        program = subprocess.Popen(command, env=environment)
        if reference is None:
            reference = screen.settled()
        else:
            screen.wait(lambda part: part == reference)
        taken = time.monotonic() - begin
        program.kill()
        program.wait()
        time.sleep(0.5)
        return taken, reference

    reference = run()[1]
    return [run(reference)[0] for _ in range(3)], reference


def javas(state):
    """Megabytes and processor time of the Javas that use this folder, the waiting one last."""
    found = {}
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            words = (process / "cmdline").read_bytes()
            if b"pirol_run.Server" in words and str(state).encode() in words:
                status = (process / "status").read_text()
                times = (process / "stat").read_text().rsplit(")", 1)[1].split()
                found[int(process.name)] = int(status.split("VmRSS:")[1].split()[0]) / 1024, int(times[11]) + int(times[12])
        except OSError:
            continue
    return [found[number] for number in sorted(found)]


def until_ready(state):
    """Waits until the next Java has made itself ready, which shows in its doing nothing."""
    before = None
    for _ in range(PATIENCE):
        time.sleep(1)
        now = javas(state)
        if before and len(now) == len(before) == 2 and now[-1][1] - before[-1][1] <= 1:
            return
        before = now


def press(screen, designer, reference):
    """Seconds from the key to the window that shows this."""
    designer.focus()  # the program's window has taken it
    wait_first = screen.part() == reference
    begin = time.monotonic()
    designer.key("F9")
    if wait_first:
        screen.wait(lambda part: part != reference)
    screen.wait(lambda part: part == reference)
    return time.monotonic() - begin


def main():
    pirol, pirol_cli = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 15
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        for folder in ("classes", "hand", "screen", "state"):
            (home / folder).mkdir()
        sources = [str(path) for path in (ROOT / "src/resources/java/sum").rglob("*.java")]
        subprocess.run(["javac", "-encoding", "UTF-8", "-d", home / "classes", *sources], check=True)
        with Screen(home / "screen") as screen:
            by_hand, reference = painted_by_hand(screen, pirol_cli, home / "classes", home / "hand")
            firsts = []
            for attempt in range(3):
                with Designer(pirol, screen, home, EXAMPLE, state=home / "state") as designer:
                    designer.use("Taschenrechner")
                    time.sleep(1)
                    firsts.append(press(screen, designer, reference))
                    later = []
                    for _ in range(count if attempt == 2 else 0):
                        until_ready(home / "state")
                        later.append(press(screen, designer, reference))
                    until_ready(home / "state")
                    memory = [size for size, _ in javas(home / "state")]
                time.sleep(0.5)
    hand, first, middle = (statistics.median(times) * 1000 for times in (by_hand, firsts, later))
    print(f"javac and java by hand: {hand:.0f} ms (middle of {len(by_hand)})")
    print(f"the first test:         {first:.0f} ms (middle of {len(firsts)}), {first / hand:.2f} times by hand")
    print(f"each later test:        {middle:.0f} ms (middle of {len(later)}; {min(later) * 1000:.0f} to {max(later) * 1000:.0f})")
    print(f"memory of the Javas:    {', '.join(f'{size:.0f} MB' for size in memory)}")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
