#!/usr/bin/env python3
"""Kills the real program with SIGKILL at random moments while somebody works in it, starts it again, restores the design
that it offers, saves it, and compares the saved file with what had been done: every design must be back whole, at most a
few seconds old. Every third kill waits until the program is just writing its recovery file. Each restored program ends
normally, which must leave nothing. At the end the display dies, which is no normal end either.

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
MOST_KEYS = 120


class Killer(threading.Thread):
    """Kills the program after a while, or while it writes its recovery file for the first to third time."""

    def __init__(self, program, recovery, while_writing):
        super().__init__()
        self.program, self.recovery, self.while_writing = program, recovery, while_writing
        self.done = threading.Event()
        self.writes_to_see = random.randint(1, 3)
        self.caught_writing = False
        self.delay = LONGEST_ROUND if while_writing else random.uniform(0.2, LONGEST_ROUND)

    def run(self):
        deadline = time.monotonic() + self.delay
        seen = set()
        while time.monotonic() < deadline and not self.caught_writing:
            time.sleep(0.0005 if self.while_writing else 0.01)
            seen.update(self.recovery.glob(".*.tmp"))
            self.caught_writing = self.while_writing and len(seen) == self.writes_to_see
        self.program.send_signal(signal.SIGKILL)
        self.killed = time.monotonic()
        self.done.set()


class User:
    """Somebody who begins with the same project again and again. Each key that is pressed places a label."""

    def __init__(self, pirol, project, home):
        self.pirol, self.project, self.home = pirol, project, home
        self.recovery = home / "state" / "pirol" / "recovery"

    def start(self, display):
        return Designer(self.pirol, display, self.home, self.project, state=self.home / "state")

    def left(self):
        return list(self.recovery.glob("*.design"))

    def possible_designs(self, display):
        """The project file as it is saved after no key, one key and so on."""
        with self.start(display) as designer:
            designer.use(f"^{self.project.name} -")
            designer.key(*["Insert"] * MOST_KEYS)
            lines = self.saved_by(designer)[:-40].split(b"\r\n")
        placed = [line for line in lines if line.startswith(b"1\0")][-MOST_KEYS:]
        for keys in range(MOST_KEYS + 1):
            text = b"\r\n".join(line for line in lines if line not in placed[keys:])
            yield text + hashlib.sha1(text).hexdigest().upper().encode()

    def work_until(self, done, designer):
        """The times of the keys."""
        designer.use(f"^{self.project.name} -")
        times = []
        while not done.is_set() and len(times) < MOST_KEYS:
            times.append(time.monotonic())
            designer.key("Insert")
            time.sleep(random.uniform(0, 0.2))
        done.wait()
        return times

    def restored(self, display):
        """The design that the program offers after a kill, saved."""
        with self.start(display) as designer:
            designer.use("Wiederherstellung")
            designer.key("Return")
            designer.back_from("Wiederherstellung")
            return self.saved_by(designer)

    def saved_by(self, designer):
        """The saved project of a program that ends normally."""
        path = self.home / "saved.prl"
        path.unlink(missing_ok=True)
        designer.save(path)
        designer.end()
        if rest := list(self.recovery.glob("*")):  # a program that was quick has made no folder
            raise Failure(f"a normal end leaves {rest}")
        return path.read_bytes()


def kill_again_and_again(user, display, kills):
    designs = list(user.possible_designs(display))
    lost, caught, offered = [], 0, 0
    for kill in range(kills):
        with user.start(display) as designer:
            killer = Killer(designer.program, user.recovery, kill % 3 == 2)
            killer.start()
            times = user.work_until(killer.done, designer)
            killer.join()
        caught += killer.caught_writing
        offered += bool(user.left())
        design = user.restored(display) if user.left() else designs[0]
        if design not in designs[:len(times) + 1]:
            pathlib.Path("lost.prl").write_bytes(design)
            raise Failure("the restored design is none that there ever was; see lost.prl")
        missing = times[designs.index(design):]
        lost.append(killer.killed - missing[0] if missing else 0)
        print(f"kill {kill}: {len(times)} keys, {len(design)} bytes back, {lost[-1]:.1f} s lost", flush=True)
        if lost[-1] > OLDEST:
            raise Failure("the restored design is too old")
    print(f"{kills} kills, {caught} of them while the recovery file was being written; {offered} designs offered and "
          f"restored, {kills - offered} times nothing had been changed for two seconds; lost: "
          f"{statistics.median(lost):.1f} s in the middle, {max(lost):.1f} s at most")
    return designs


def lose_the_display(user, designs):
    with Display() as display, user.start(display) as designer:
        designer.key("Insert")
        designer.wait_for(user.left, "a kept design")
        display.server.kill()
        designer.wait_for_end()
    with Display() as display:
        if user.restored(display) != designs[1]:
            raise Failure("the design is gone with the display")


def main():
    pirol, project = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    kills = int(sys.argv[3]) if len(sys.argv) > 3 else 100
    seed = sys.argv[4] if len(sys.argv) > 4 else str(time.time_ns())
    random.seed(seed)
    print(f"seed {seed}", flush=True)
    with tempfile.TemporaryDirectory() as home:
        user = User(pirol, project, pathlib.Path(home))
        with Display() as display:
            designs = kill_again_and_again(user, display, kills)
        lose_the_display(user, designs)


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
