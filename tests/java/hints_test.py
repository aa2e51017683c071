#!/usr/bin/env python3
"""Proves the hints about generated programs with the Java compiler.

A design without hints compiles without a warning; one with a hint that says it would not compile is rejected. That is
tried on random designs, on every character of Windows-1252 in names, texts and password characters, and on designs
that are just small enough for one constructor. Each rule has a folder in tests/data/hints whose effect.txt says what
becomes of its design: what javac or the generator reports, or what the running program shows.
"""

import argparse
import hashlib
import json
import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

from run_generated import Failure, drive, generate, run

DATA = pathlib.Path(__file__).resolve().parents[1] / "data"
CASES = DATA / "hints"
NUL, ITEM, LINE = b"\0", b"\1", b"\r\n"
ON, OFF = b"Wahr", b"Falsch"
ARGUMENTS = None


def project(components=(), menu=(), sql=(b"",) * 5, flags=b"0;0;0"):
    """The bytes of a project file; components and menu lines are given as their fields."""
    lines = [b"#Begin.Pirol.Window", b"640", b"480", b"", b"#Begin.Pirol.Components"]
    lines += [NUL.join(fields) for fields in components]
    lines += [b"#Begin.Pirol.Menu", *(NUL.join(fields) for fields in menu), b"#Begin.Pirol.SQL", *sql, flags]
    text = LINE.join([*lines, b"#Begin.Pirol.Hash", b""])
    return text + hashlib.sha1(text).hexdigest().upper().encode()


def button(name, caption=b"", *events):
    return [b"2", b"0", b"0", b"50", b"20", name, caption, *(events or (OFF, OFF, OFF))]


def lint(path, options=()):
    """The rules that have something to say, in order."""
    result = subprocess.run([ARGUMENTS.pirol_cli, "lint", path, *options], capture_output=True, check=False, timeout=60)
    lines = result.stdout.decode().splitlines()
    if result.returncode not in (0, 1) or result.stderr or (result.returncode == 1) != bool(lines):
        raise Failure(f"lint {path} ended with {result.returncode}: {result.stderr.decode()}")
    return [line.rsplit("[", 1)[1].rstrip("]") for line in lines if line.endswith("]")]


def outcome(action, *arguments):
    """What an action gives back, or the failure in which it ended."""
    try:
        return action(*arguments)
    except Failure as failure:
        return str(failure)


def java(path, options=()):
    """The source of the project beside it, or what the generator reported."""
    return outcome(generate, ARGUMENTS.pirol_cli, path, path.parent, options)


def verdicts(sources):
    """What the compiler says to each source, in one virtual machine. The classes come beside their source."""
    said = run(["java", "-XX:TieredStopAtLevel=1", "-Xshare:auto", "-Duser.language=en", "-cp", ARGUMENTS.standins,
                "CompileAll", ARGUMENTS.standins], "".join(f"{source}\n" for source in sources))
    lines = said.removesuffix("\n").split("\n")
    if len(lines) != len(sources):
        raise Failure(f"{len(lines)} verdicts for {len(sources)} sources")
    return lines


def effects():
    """Per rule: the sort of effect and its text."""
    return {folder.name: (folder / "effect.txt").read_bytes().decode().removesuffix("\n").split(": ", 1)
            for folder in sorted(CASES.iterdir())}


class Words:
    """Random names and texts: odd ones that Java takes, and with the given chance ones that it does not."""
    SORTS = json.loads((DATA / "tables" / "hint-words.json").read_text())

    def __init__(self, chance, generator):
        self.chance = chance
        self.random = generator
        self.number = 0

    def pick(self, sort):
        good, bad = self.SORTS[sort]
        return self.random.choice(bad if self.random.random() < self.chance else good).encode("cp1252", "surrogateescape")

    def numbered(self, word):
        """Mostly with a number, so that no other one is the same."""
        self.number += 1
        return word if not word or self.random.random() < self.chance else word + b"%d" % self.number

    def name(self):
        return self.numbered(b"hatDing" if self.random.random() < 0.7 else self.pick("names"))

    def caption(self):
        return self.numbered(self.pick("captions"))

    def instead_of(self, field):
        """What a field of a component may hold as well."""
        if ITEM in field:
            return ITEM.join(map(self.instead_of, field.split(ITEM)))
        if field in (ON, OFF):
            return self.random.choice([ON, OFF])
        if field.startswith(b"hat"):
            return self.name()
        return field if field.isdigit() else self.pick("characters" if field == b"#" else "texts")


def random_project(generator):
    """A design of all kinds of components, menus and a database, with the options that write them."""
    words = Words(generator.choice([0, 0, 0.03, 0.15]), generator)
    every_event = (DATA / "programs" / "every_event.prl").read_bytes()
    lines = every_event.split(b"Components\r\n")[1].split(b"\r\n#Begin.Pirol.Menu")[0].split(LINE)
    components = [list(map(words.instead_of, generator.choice(lines).split(NUL)))
                  for _ in range(generator.randrange(1, 9))]
    menu = []
    for _ in range(generator.randrange(3)):
        menu.append([b"0", b"0", words.name(), words.pick("texts") or b"Datei"])
        for _ in range(generator.randrange(4)):
            kind = generator.choice([b"1", b"2", b"2", b"3"])
            menu.append([b"1", kind] + [words.caption()] * (kind != b"3"))
            if kind == b"1":
                menu.append([b"2", b"2", words.caption()])
                if generator.random() < words.chance:
                    menu.append([b"2", b"1", words.caption()])
    server = b"" if generator.random() < max(words.chance, 0.05) else b"localhost"
    sql = [server, *(words.pick("texts") for _ in range(3)), words.pick("texts") or b"tabelle"]
    options = [option for option in ("--menu", "--sql") if generator.random() < 0.6]
    return project(components, menu, sql, generator.choice([b"0;0;0", b"1;1;1", b"0;1;0"])), options


class HintsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="pirol-hints-")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.stop_compiling = {rule for rule, (sort, _) in effects().items() if sort != "runs"}

    def write(self, name, content):
        """A project in a folder of its own."""
        path = self.folder / str(name) / "design.prl"
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content)
        return path

    def test_random_designs(self):
        checked = []
        for seed in range(ARGUMENTS.designs):
            content, options = random_project(random.Random(seed))
            path = self.write(seed, content)
            checked.append((seed, lint(path, options), java(path, options)))
        counts = {"compiled": 0, "rejected": 0}
        for (seed, hints, _), verdict in zip(checked, verdicts([source for _, _, source in checked])):
            expected = "rejected" if self.stop_compiling & set(hints) else "ok"
            self.assertEqual(verdict.split(":")[0], expected, f"design {seed}: hints {hints}, javac: {verdict}")
            counts["compiled" if expected == "ok" else expected] += 1
        print(f"{ARGUMENTS.designs} random designs: {counts}", file=sys.stderr)
        # Neither half of the claim may be empty.
        self.assertGreater(min(counts.values()), ARGUMENTS.designs // 8, counts)

    def too_strict(self, sort, words, component):
        """The words with which a component has a hint though it compiles. All others must compile, in one program."""
        designs = [self.write(f"{sort}{number}", project([component(word, number)])) for number, word in enumerate(words)]
        hinted = [bool(self.stop_compiling & set(lint(design))) for design in designs]
        fine = [component(word, number) for number, word in enumerate(words) if not hinted[number]]
        suspects = [number for number, hint in enumerate(hinted) if hint]
        together, *alone = verdicts([java(self.write(sort, project(fine))), *(java(designs[number]) for number in suspects)])
        self.assertEqual(together, "ok", sort)
        return [words[number] for number, verdict in zip(suspects, alone) if verdict == "ok"]

    def test_every_character_and_odd_name(self):
        """The hints about one name, text or character against what the compiler says to it."""
        characters = [bytes([code]) for code in range(2, 256)]
        escaped = b"a\\u0041"
        names = [escaped, *{name.encode("cp1252"): None for sort in Words.SORTS["names"] for name in sort}]
        # The compiler skips control characters in names, a blank before a name is none, and an escape is taken for the
        # letter that it means; the hints do not go so far.
        invisible = [character for character in characters if character[0] in {*range(2, 9), *range(0x0E, 0x1C), 0x7F, 0xAD}]
        blanks = [b"\t", b"\n", b"\f", b"\r", b" "]
        password = [b"6", b"0", b"0", b"50", b"20"]
        for sort, words, component, stricter in (
                ("part", characters, lambda word, _: button(b"x" + word + b"y"), invisible),
                ("start", characters, lambda word, _: button(word + b"y"), blanks),
                ("name", names, lambda word, _: button(word), [escaped]),
                ("text", characters, lambda word, number: button(b"a%d" % number, word), []),
                ("character", characters, lambda word, number: [*password, b"a%d" % number, word, OFF, OFF, OFF, OFF], [])):
            self.assertEqual(self.too_strict(sort, words, component), stricter, sort)

    def test_largest_program(self):
        """The largest design without a hint compiles; one tenth more does not."""
        mixes = {
            "buttons": lambda n: [button(b"b%d" % i, b"%d" % i, ON, ON, OFF) for i in range(n)],
            "entries": lambda n: [[b"9", b"0", b"0", b"50", b"20", b"a", ITEM.join(b"%d" % i for i in range(n)), OFF, OFF, OFF]],
            "sliders": lambda n: [[b"10", b"200", b"300", b"50", b"20", b"s%d" % i, b"500", b"200", b"900", OFF, OFF, OFF]
                                  for i in range(n)],
        }
        sources = []
        for name, components in mixes.items():
            fits, too_large = 1, 8192
            while too_large - fits > 1:
                middle = (fits + too_large) // 2
                hints = lint(self.write(name, project(components(middle))))
                fits, too_large = (fits, middle) if "program-too-large" in hints else (middle, too_large)
            for count in (fits, fits + fits // 10):
                sources.append(java(self.write(f"{name}{count}", project(components(count)))))
        self.assertEqual([verdict.split(":")[0] for verdict in verdicts(sources)], ["ok", "rejected"] * len(mixes))

    def test_each_rule_has_its_effect(self):
        sources = {}
        for rule in effects():
            design = CASES / rule / "design.prl"
            options = (CASES / rule / "options.txt").read_text().split()
            self.assertIn(rule, lint(design, options))
            sources[rule] = java(self.write(rule, design.read_bytes()), options)
        programs = [source for source in sources.values() if isinstance(source, pathlib.Path)]
        said = dict(zip(programs, verdicts(programs)))
        for (rule, source), (sort, text) in zip(sources.items(), effects().values()):
            if sort == "javac":
                self.assertIn("error: " + text, said[source], rule)
            elif sort == "runs":
                self.assertIn(text, outcome(drive, ARGUMENTS.standins, source.parent, source.parent), rule)
            else:
                self.assertIn(text, source, rule)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("pirol_cli")
    parser.add_argument("standins", help="compiled library stand-ins")
    parser.add_argument("--designs", type=int, default=60, help="how many random designs (default 60)")
    ARGUMENTS = parser.parse_args()
    unittest.main(argv=sys.argv[:1], verbosity=2)
