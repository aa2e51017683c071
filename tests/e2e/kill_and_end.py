#!/usr/bin/env python3
"""Works in the real program by random sequences of edits, new, open, import and save, ends each in one of many ways, and
looks whether every design that had held unsaved changes for three seconds can be fetched again, whole. The ends are:
end, SIGTERM, SIGHUP, SIGKILL and a logout from the desktop's session; now and then somebody deletes the recovery folder
or puts a file in its place.

Behind each end the program starts again, and the user restores what is offered, discards it or puts it off. Then all
that has left the screen must be among the kept designs or wait for the next offer. One kept design is fetched by the
form "Frühere Entwürfe", saved, and compared with what was there.

Usage: kill_and_end.py PIROL PIROL_CLI [SEQUENCES [SEED]]
"""
import collections
import hashlib
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from designer import Designer, Display, Failure
from session_manager import SessionManager

HOLD = 3  # seconds after which a design with unsaved changes must be safe, whatever happens
SETTLE = 1  # seconds that a busy machine may need for the keys that are under way

FIRST_LINE = b"Pirol-Wiederherstellung 1\n"
JAVA = """import sum.ereignis.*;
import sum.komponenten.*;
public class SuMAnwendung extends EBAnwendung {
    Knopf hatImport;
    public SuMAnwendung() {
        super(400, 300);
        hatImport = new Knopf(10, 10, 100, 30, "Import");
    }
}
"""

# A design as the test knows it: what it began with, and how many labels were inserted since.
Design = collections.namedtuple("Design", "base labels")


def components_of(path):
    """The names of the components in a file that keeps a snapshot, fields with their length before them; the file must
    be whole."""
    data = path.read_bytes()
    rest = data[len(FIRST_LINE):]
    content = rest[41:]
    if not data.startswith(FIRST_LINE) or hashlib.sha1(content).hexdigest().upper().encode() != rest[:40]:
        raise Failure(f"{path} is not whole")
    if path.suffix == ".kept":
        content = content.split(b"\n", 2)[2]  # behind reason and path
    names = set()
    while content:
        length, content = content.split(b":", 1)
        names.add(content[:int(length)])
        content = content[int(length):]
    return {name for name in names if name.startswith(b"hat")}


def design_of(names):
    base = next((name for name in ("hatImport", "hatDatei") if name.encode() in names), "")
    return Design(base, sum(name.startswith(b"hatEtikett") for name in names))


class Sequence:
    def __init__(self, pirol, cli, display, manager, home, trace):
        self.pirol, self.cli, self.display, self.manager, self.home, self.trace = pirol, cli, display, manager, home, trace
        self.recovery = home / "state" / "pirol" / "recovery"
        self.kept = home / "state" / "pirol" / "kept"
        self.project, self.java = home / "datei.prl", home / "SuMAnwendung.java"
        self.java.write_text(JAVA, encoding="latin-1")
        self.make_project()
        self.must_be_there = []  # designs that can be fetched, each with as many labels at least
        self.saved = 0
        self.forget("")
        self.blocked = False

    def make_project(self):
        source = JAVA.replace("hatImport", "hatDatei")
        (self.home / "x").mkdir()
        (self.home / "x" / "SuMAnwendung.java").write_text(source, encoding="latin-1")
        subprocess.run([self.cli, "import", self.home / "x" / "SuMAnwendung.java", "-o", self.project], check=True)

    def start(self):
        os.environ["SESSION_MANAGER"] = self.manager.address
        return Designer(self.pirol, self.display, self.home, state=self.home / "state")

    # --- What is on the screen --------------------------------------------------------------------------------------

    def forget(self, base):
        """A design without unsaved changes is on the screen."""
        self.base, self.labels, self.changed = base, 0, False
        self.safe = None  # what has been there for so long that it must be safe

    def note(self, what):
        self.trace.append(what)

    def drops(self):
        """The design leaves the screen by a command; it need not be old to be kept then."""
        if self.changed:
            self.must_be_there.append(Design(self.base, self.labels))

    # --- The acts ---------------------------------------------------------------------------------------------------

    def edit(self, designer):
        count = random.randint(1, 4)
        self.note(f"insert {count}")
        designer.key(*["Insert"] * count)
        self.labels += count
        self.changed = True

    def edit_and_wait(self, designer):
        self.edit(designer)
        time.sleep(HOLD + random.random())
        if not self.blocked:
            self.safe = Design(self.base, self.labels)
        self.note("wait")

    def new(self, designer):
        self.note("new")
        self.drops()
        designer.key("ctrl+n")
        designer.use("^Neues Projekt -")
        self.forget("")

    def open(self, designer):
        self.note("open")
        self.drops()
        designer.key("ctrl+o")
        designer.choose_file("Projekt öffnen", self.project)
        designer.use("^datei.prl -")
        self.forget("hatDatei")

    def read_java(self, designer):
        self.note("import")
        if (self.base, self.labels) != ("hatImport", 0):  # the same once more changes nothing: the design stays
            self.drops()
        designer.key("ctrl+i")
        designer.choose_file("Java-Datei importieren", self.java)
        designer.use(r"^Neues Projekt\* - Pirol$")
        time.sleep(SETTLE / 2)  # a new design that had changes had that title before
        self.forget("hatImport")
        self.changed = True  # it belongs to no project yet

    def save(self, designer):
        self.note("save")
        self.saved += 1
        path = self.home / f"g{self.saved}.prl"
        designer.save(path)
        self.changed, self.safe = False, None

    def delete_folder(self, designer):
        self.note("delete the recovery folder")
        if not self.blocked:
            shutil.rmtree(self.recovery, ignore_errors=True)
        time.sleep(HOLD)

    def close_folder(self, designer):
        self.note("put a file in the recovery folder's place")
        if self.recovery.is_dir():
            shutil.rmtree(self.recovery)
        if not self.blocked:
            self.recovery.parent.mkdir(parents=True, exist_ok=True)
            self.recovery.touch()
        self.blocked, self.safe = True, None

    ACTS = [edit, edit, edit_and_wait, edit_and_wait, new, open, read_java, save, delete_folder, close_folder]
    WEIGHTS = [3, 3, 3, 3, 2, 2, 2, 1, 1, 0.5]

    # --- The ends ---------------------------------------------------------------------------------------------------

    def end(self, designer):
        self.drops()
        designer.end()

    def by_signal(self, number):
        def act(designer):
            time.sleep(SETTLE)
            self.drops()
            designer.program.send_signal(number)
            designer.wait_for_end()
        return act

    def kill(self, designer):
        if self.safe:
            self.must_be_there.append(self.safe)
        designer.program.send_signal(signal.SIGKILL)
        designer.wait_for_end()

    def log_out(self, designer):
        time.sleep(SETTLE)
        self.drops()
        self.manager.log_out()
        designer.wait_for_end()

    def run(self):
        ends = {"end": self.end, "SIGTERM": self.by_signal(signal.SIGTERM), "SIGHUP": self.by_signal(signal.SIGHUP),
                "SIGKILL": self.kill, "logout": self.log_out}
        end = random.choice(list(ends))
        with self.start() as designer:
            for act in random.choices(self.ACTS, self.WEIGHTS, k=random.randint(1, 6)):
                act(self, designer)
            self.note(end)
            ends[end](designer)
        self.manager.asks_for_the_end = False
        if self.blocked:
            self.recovery.unlink()
        self.check_what_is_there()
        self.answer()
        self.check_what_is_there()
        self.fetch()
        return end

    # --- Afterwards -------------------------------------------------------------------------------------------------

    def files(self):
        return [*self.kept.glob("*.kept"), *self.recovery.glob("*.design")]

    def check_what_is_there(self):
        there = [design_of(components_of(path)) for path in self.files()]
        for wanted in self.must_be_there:
            if not any(design.base == wanted.base and design.labels >= wanted.labels for design in there):
                raise Failure(f"{wanted} is gone; there are {there}")

    def answer(self):
        """The program starts again, and ends without a save."""
        offered = len(list(self.recovery.glob("*.design")))
        with self.start() as designer:
            for _ in range(offered):
                designer.use("Wiederherstellung")
                answer = random.choice(["restore", "discard", "later"])
                self.note(answer)
                designer.key(*{"restore": ["Return"], "discard": ["Tab", "space"], "later": ["Escape"]}[answer])
                if answer != "discard":
                    break
                designer.wait_until_gone("Wiederherstellung")
            designer.back_from("Wiederherstellung")
            designer.end()

    def fetch(self):
        """One kept design comes back by the form and is the one in its file."""
        files = sorted(self.kept.glob("*.kept"))
        if not files:
            return
        with self.start() as designer:
            if list(self.recovery.glob("*.design")):
                designer.use("Wiederherstellung")
                designer.key("Escape")
                designer.back_from("Wiederherstellung")
            designer.choose("alt+d", "e")
            designer.use("Frühere Entwürfe")
            designer.key(*["Down"] * random.randrange(len(files)), "Return")
            designer.back_from("Frühere Entwürfe")
            path = self.home / "fetched.prl"
            designer.save(path)
            designer.end()
        there = [design_of(components_of(kept)) for kept in files]
        fetched = design_of(set(re.findall(rb"\0(hat\w+)", path.read_bytes())))
        if fetched not in there:
            raise Failure(f"{fetched} was fetched, which is none of {there}")


def main():
    pirol, cli = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    sequences = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    seed = sys.argv[4] if len(sys.argv) > 4 else str(time.time_ns())
    random.seed(seed)
    print(f"seed {seed}", flush=True)
    ends, designs = collections.Counter(), 0
    manager = SessionManager()
    with Display() as display:
        for number in range(sequences):
            trace = []
            with tempfile.TemporaryDirectory() as home:
                sequence = Sequence(pirol, cli, display, manager, pathlib.Path(home), trace)
                try:
                    ends[sequence.run()] += 1
                except Failure as failure:
                    raise Failure(f"sequence {number} ({', '.join(trace)}): {failure}") from None
                designs += len(sequence.must_be_there)
            print(f"{number}: {', '.join(trace)}: {len(sequence.must_be_there)} designs there", flush=True)
    print(f"{sequences} sequences ({', '.join(f'{count} {end}' for end, count in sorted(ends.items()))}): "
          f"{designs} designs had to be there, and all were")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
