#!/usr/bin/env python3
"""Kills the real program with SIGKILL at random moments while somebody works in it, starts it again, restores the design
that it offers, saves it, and compares the saved file with what had been done: every design must be back whole, at most a
few seconds old. Every third kill waits until the program is just writing its recovery file. At the end the display dies,
which is no normal end either, and the program ends normally, which must leave nothing.

Usage: recovery.py PIROL PROJECT [KILLS [SEED]]      PROJECT: what the work begins with
"""
import hashlib
import pathlib
import random
import signal
import statistics
import sys
import tempfile
import threading
import time

from designer import Designer, Display, Failure

OLDEST = 6  # seconds of work that a kill may cost: two until it is kept, the rest for a busy machine
LONGEST_ROUND = 9
LABEL, CHAR_FIELD, ROW_FIELD = 1, 4, 5
COMPONENTS, MENU = "#Begin.Pirol.Components\r\n", "#Begin.Pirol.Menu\r\n"


class Project:
    """What a project file holds; the components as lists of fields."""

    def __init__(self, data):
        text = data[:-40].decode("cp1252")
        self.before, rest = text.split(COMPONENTS)
        lines, self.behind = rest.split(MENU)
        self.components = [line.split("\0") for line in lines.split("\r\n")[:-1]]

    def copy(self):
        return Project(self.data())

    def data(self):
        self.components.sort(key=lambda fields: int(fields[0]))
        lines = "".join("\0".join(fields) + "\r\n" for fields in self.components)
        data = (self.before + COMPONENTS + lines + MENU + self.behind).encode("cp1252")
        return data + hashlib.sha1(data).hexdigest().upper().encode()

    def labels(self):
        return [fields for fields in self.components if int(fields[0]) == LABEL]

    def place(self, box):
        number = len(self.labels()) + 1
        self.components.append([str(LABEL), *map(str, box), f"hatEtikett{number}", f"Etikett {number}", "0", "8"])

    def grow(self, field):
        """Moves or enlarges the last label by a step of the grid."""
        fields = self.labels()[-1]
        fields[field] = str(int(fields[field]) + 10)


class Work:
    """A row of random key presses, and the design as it was after each of them."""

    GROWING_KEYS = {"Right": 1, "Down": 2, "shift+Right": 3, "shift+Down": 4}

    def __init__(self, start, boxes):
        self.states = [start.data()]
        self.times = []
        self.design = start
        self.boxes = boxes
        self.placed = 0

    def go_on(self, designer, until):
        while not until.is_set():
            key = random.choice([*self.GROWING_KEYS, *["Insert"] * 4]) if self.placed else "Insert"
            if key == "Insert":
                self.design.place(self.boxes[self.placed % len(self.boxes)])
                self.placed += 1
            else:
                self.design.grow(self.GROWING_KEYS[key])
            self.states.append(self.design.data())
            self.times.append(time.monotonic())
            designer.key(key)
            time.sleep(random.uniform(0, 0.2))

    def seconds_lost(self, data, killed):
        if data not in self.states:
            pathlib.Path("lost.prl").write_bytes(data)
            raise Failure("the restored design is none that there ever was; see lost.prl")
        lost = self.times[self.states.index(data):]
        return killed - lost[0] if lost else 0


class Killer(threading.Thread):
    """Kills the program after a while, or while it writes its recovery file for the first to third time."""

    def __init__(self, program, recovery, while_writing):
        super().__init__()
        self.program, self.recovery, self.while_writing = program, recovery, while_writing
        self.done = threading.Event()
        self.writes_to_see = random.randint(1, 3)
        self.caught_writing = False
        self.delay = random.uniform(0.2, LONGEST_ROUND)

    def run(self):
        deadline = time.monotonic() + (LONGEST_ROUND if self.while_writing else self.delay)
        seen = set()
        while time.monotonic() < deadline and not self.caught_writing:
            time.sleep(0.0005 if self.while_writing else 0.01)
            seen.update(self.recovery.glob(".*.tmp"))
            self.caught_writing = self.while_writing and len(seen) == self.writes_to_see
        self.program.send_signal(signal.SIGKILL)
        self.killed = time.monotonic()
        self.done.set()


def save(designer, path):
    designer.key("ctrl+s")
    designer.choose_file("Projekt speichern", path)
    designer.use(f"^{path.name} –")
    return path.read_bytes()


class Recovery:
    """One user's programs, one after another."""

    def __init__(self, pirol, home, project):
        self.pirol, self.home = pirol, home
        self.recovery = home / "state" / "pirol" / "recovery"
        self.project = home / "0.prl"
        self.project.write_bytes(project.data())
        self.runs = 0

    def left(self):
        return list(self.recovery.glob("*.design"))

    def start(self, display):
        self.runs += 1
        return Designer(self.pirol, display, self.home, self.project, state=self.home / "state")

    def restore(self, designer):
        """What the program offers, saved; the last saved project when nothing had to be kept."""
        if not self.left():
            designer.use(f"^{self.project.name} –")
            return self.project.read_bytes()
        designer.use("Wiederherstellung")
        designer.key("Return")
        designer.wait_until_gone("Wiederherstellung")
        designer.use("Pirol$")
        if list(self.recovery.glob("*.damaged")):
            raise Failure("a damaged recovery file")
        self.project = self.home / f"{self.runs}.prl"
        return save(designer, self.project)


def keyboard_boxes(recovery, display):
    """Where the labels come that are placed by keyboard, one after another."""
    with recovery.start(display) as designer:
        count = 40
        designer.key(*["Insert"] * count)
        placed = Project(save(designer, recovery.home / "boxes.prl")).labels()[-count:]
        designer.key("ctrl+q")
        designer.wait_for_end()
    return [fields[1:5] for fields in placed]


def kill_again_and_again(recovery, display, kills, boxes):
    lost, caught, offered, work = [], 0, 0, None
    for kill in range(kills + 1):
        with recovery.start(display) as designer:
            offered += bool(recovery.left())
            data = recovery.restore(designer)
            if work:
                lost.append(work.seconds_lost(data, killer.killed))
                print(f"kill {kill}: {len(work.times)} keys, {len(data)} bytes back, {lost[-1]:.1f} s lost", flush=True)
                if lost[-1] > OLDEST:
                    raise Failure("the restored design is too old")
            if kill == kills:
                break
            work = Work(Project(data), boxes)
            killer = Killer(designer.program, recovery.recovery, kill % 3 == 2)
            killer.start()
            work.go_on(designer, killer.done)
            killer.join()
            caught += killer.caught_writing
    print(f"{kills} kills, {caught} of them while the recovery file was being written; {offered} designs offered and "
          f"restored, {kills - offered} times nothing had been changed for two seconds; lost: "
          f"{statistics.median(lost):.1f} s in the middle, {max(lost):.1f} s at most")


def keep_changes(recovery, designer):
    designer.key("Insert")
    designer.wait_for(recovery.left, "a kept design")


def lose_the_display(recovery):
    with Display() as display, recovery.start(display) as designer:
        keep_changes(recovery, designer)
        display.server.kill()
        designer.wait_for_end()
    with Display() as display, recovery.start(display) as designer:
        before = Project(recovery.project.read_bytes())
        if len(Project(recovery.restore(designer)).components) != len(before.components) + 1:
            raise Failure("the design is gone with the display")
        keep_changes(recovery, designer)
        designer.key("ctrl+q")
        if designer.wait_for_end() != 0 or list(recovery.recovery.iterdir()):
            raise Failure(f"a normal end leaves {list(recovery.recovery.iterdir())}")


def main():
    pirol, path = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    kills = int(sys.argv[3]) if len(sys.argv) > 3 else 100
    seed = sys.argv[4] if len(sys.argv) > 4 else str(time.time_ns())
    random.seed(seed)
    print(f"seed {seed}", flush=True)
    project = Project(path.read_bytes())
    # Text areas change places whenever a project file is read; here each file is compared with the one before.
    project.components = [fields for fields in project.components if int(fields[0]) not in (CHAR_FIELD, ROW_FIELD)]
    with tempfile.TemporaryDirectory() as name:
        recovery = Recovery(pirol, pathlib.Path(name), project)
        with Display() as display:
            kill_again_and_again(recovery, display, kills, keyboard_boxes(recovery, display))
        lose_the_display(recovery)


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
