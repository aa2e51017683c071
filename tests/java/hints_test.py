#!/usr/bin/env python3
"""Proves the hints about generated programs with the Java compiler.

A design without hints compiles without a warning; one with a hint that says it would not compile is rejected. That is
tried on random designs, on every character of Windows-1252 in names, texts and password characters, and on designs
that are just small enough for one constructor. Each rule has a folder in tests/data/hints whose effect.txt says what
becomes of its design: what javac or the generator reports, or what the running program shows.
"""

import argparse
import hashlib
import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

from run_generated import Failure, compile_java, display, run

HERE = pathlib.Path(__file__).resolve().parent
CASES = HERE.parent / "data" / "hints"
NUL, ITEM, LINE = b"\0", b"\1", b"\r\n"
ON, OFF = b"Wahr", b"Falsch"
ARGUMENTS = None


def project(components=(), menu=(), sql=(b"",) * 5, flags=b"0;0;0", width=640, height=480):
    """The bytes of a project file; components and menu lines are given as their fields."""
    lines = [b"#Begin.Pirol.Window", b"%d" % width, b"%d" % height, b"", b"#Begin.Pirol.Components"]
    lines += [NUL.join(fields) for fields in components]
    lines += [b"#Begin.Pirol.Menu", *(NUL.join(fields) for fields in menu), b"#Begin.Pirol.SQL", *sql, flags]
    text = LINE.join([*lines, b"#Begin.Pirol.Hash", b""])
    return text + hashlib.sha1(text).hexdigest().upper().encode()


def button(name, caption=b"", *events):
    return [b"2", b"0", b"0", b"50", b"20", name, caption, *(events or (OFF, OFF, OFF))]


def lint(path, options):
    """The rules that have something to say, in order."""
    result = subprocess.run([ARGUMENTS.pirol_cli, "lint", path, *options], capture_output=True, check=False, timeout=60)
    lines = result.stdout.decode().splitlines()
    if result.returncode not in (0, 1) or result.stderr or (result.returncode == 1) != bool(lines):
        raise Failure(f"lint {path} ended with {result.returncode}: {result.stderr.decode()}")
    return [line.rsplit("[", 1)[1].rstrip("]") for line in lines if line.endswith("]")]


def generate(path, options):
    """The source of the project beside it, or what the generator reported."""
    source = path.with_suffix("") / "SuMAnwendung.java"
    source.parent.mkdir(exist_ok=True)
    try:
        run([ARGUMENTS.pirol_cli, "generate", path, *options, "-o", source], 60)
    except Failure as failure:
        return str(failure)
    return source


def verdicts(sources):
    """What the compiler says to each source, in one virtual machine."""
    with tempfile.TemporaryDirectory(prefix="pirol-classes-") as classes:
        said = run(["java", "-XX:TieredStopAtLevel=1", "-Xshare:auto", "-Duser.language=en", "-cp", ARGUMENTS.standins,
                    "CompileAll", ARGUMENTS.standins, classes], 600, "".join(f"{source}\n" for source in sources))
    lines = said.removesuffix("\n").split("\n")
    if len(lines) != len(sources):
        raise Failure(f"{len(lines)} verdicts for {len(sources)} sources")
    return lines


def started(classes):
    """What the program shows when it is started, or the failure in which it ended."""
    with display(800, 600) as name:
        try:
            return run(["env", f"DISPLAY={name}", "LC_ALL=C.UTF-8", "java", "-XX:TieredStopAtLevel=1", "-cp",
                        f"{ARGUMENTS.standins}:{classes}", "Driver", "list"], 60)
        except Failure as failure:
            return str(failure)


def effects():
    """Per rule: the sort of effect and its text."""
    return {folder.name: (folder / "effect.txt").read_bytes().decode().removesuffix("\n").split(": ", 1)
            for folder in sorted(CASES.iterdir())}


class Texts:
    """Random names and texts: odd ones that Java takes, and with the given chance ones that it does not."""
    NAMES = ["Knopf", "sum", "yield", "var", "record", "java", "String", "lFehler", "pIndex", "Über", "straße", "a$",
             "€uro", "SuMAnwendung", "hatÄ_1", "x", "xInhalt", "Object", "sealed", "ª"]
    BAD_NAMES = ["", "1a", "a b", "a-b", "int", "_", "null", "strictfp", "a\\u0041", "a\"", "hatMenueTemp", "System",
                 "hatDatenbank", "a·b", "x", "xInhalt", "Knopf", "ab…", "a?"]
    TEXTS = ["", "Text", "Größe: 5 €", "'", "\\\"ja\\\"", "C:\\\\temp", "a\\nb", "\\u00e4", "\\\\u", "\\101", "// kein",
             "/* auch nicht", "%s", "<html><b>x", "ž„“", "\t", "\\uuu00e4", "\\0", "a\\'b"]
    BAD_TEXTS = ["\"", "a\"b", "C:\\users", "C:\\Programme", "\\", "\\\\\\", "a\rb", "a\nb", "\\8", "\\u12", "\\x41",
                 "\\u0022", "\\\\\"", "a\udc81b"]
    CHARACTERS = ["*", "#", "\\\\", "\\'", "\"", "€", " ", "\\n", "\\52", "\\u0041"]
    BAD_CHARACTERS = ["", "'", "\\", "ab", "\\400", "\n", "\\u0027"]
    CAPTIONS = ["Neu", "Öffnen ...", "Größe-Ändern #2", "Über uns", "-", "String", "2. Seite", "x", "€", "a\\\\b"]
    BAD_CAPTIONS = ["Was?", "(neu)", "a\"b", "Neu", "Neu.", "a\\b", "ja/nein"]

    def __init__(self, chance, generator):
        self.chance = chance
        self.random = generator
        self.number = 0

    def pick(self, good, bad):
        pool = bad if self.random.random() < self.chance else good
        return self.random.choice(pool).encode("cp1252", "surrogateescape")

    def name(self):
        self.number += 1
        if self.random.random() < 0.7:
            return b"hatDing%d" % self.number
        name = self.pick(self.NAMES, self.BAD_NAMES)
        return name if self.random.random() < self.chance else name + b"%d" % self.number if name else name

    def text(self):
        return self.pick(self.TEXTS, self.BAD_TEXTS)

    def character(self):
        return self.pick(self.CHARACTERS, self.BAD_CHARACTERS)

    def caption(self):
        self.number += 1
        caption = self.pick(self.CAPTIONS, self.BAD_CAPTIONS)
        return caption if self.random.random() < self.chance else caption + b"%d" % self.number


def random_project(generator):
    """A design of all kinds of components, menus and a database, with the options that write them."""
    texts = Texts(generator.choice([0, 0, 0.03, 0.15]), generator)

    def flag():
        return generator.choice([ON, OFF])

    def radio_row():
        return ITEM.join([texts.name(), texts.text() or b"Radio", b"150", b"20", b"0", b"0", flag()])

    def items():
        return ITEM.join(texts.text() for _ in range(generator.randrange(4)))

    kinds = {
        b"1": lambda: [texts.text(), b"%d" % generator.randrange(3), b"%d" % generator.choice([8, 24])],
        b"2": lambda: [texts.text(), flag(), flag(), flag()],
        b"3": lambda: [texts.text(), b"0", flag(), flag(), flag(), flag()],
        b"4": lambda: [texts.text(), flag(), flag(), flag(), flag()],
        b"5": lambda: [texts.text(), flag(), flag(), flag(), flag()],
        b"6": lambda: [texts.character(), flag(), flag(), flag(), flag()],
        b"7": lambda: [texts.text(), flag(), flag(), flag()],
        b"8": lambda: [ITEM.join(radio_row() for _ in range(generator.randrange(1, 3)))],
        b"9": lambda: [items(), flag(), flag(), flag()],
        b"10": lambda: [b"5", b"%d" % -generator.randrange(9), b"100", flag(), flag(), flag()],
        b"11": lambda: [b"0", b"%d" % generator.randrange(999)],
        b"12": lambda: [b"3", items(), flag(), flag(), flag(), flag()],
        b"13": lambda: [generator.choice([b"a.prl", b"a\"b.gif", b"a\x8D.gif"] if texts.chance > 0.1 else [b"a.prl"])],
    }
    components = []
    for _ in range(generator.randrange(1, 9)):
        kind = generator.choice(list(kinds))
        components.append([kind, b"10", b"10", b"100", b"30", texts.name(), *kinds[kind]()])
    menu = []
    for _ in range(generator.randrange(3)):
        menu.append([b"0", b"0", texts.name(), texts.text() or b"Datei"])
        for _ in range(generator.randrange(4)):
            kind = generator.choice([b"1", b"2", b"2", b"3"])
            menu.append([b"1", kind] + [texts.caption()] * (kind != b"3"))
            if kind == b"1":
                menu.append([b"2", b"2", texts.caption()])
                if generator.random() < texts.chance:
                    menu.append([b"2", b"1", texts.caption()])
    server = b"" if generator.random() < max(texts.chance, 0.05) else b"localhost"
    sql = [server, *(texts.text() for _ in range(3)), texts.text() or b"tabelle"]
    options = [option for option in ("--menu", "--sql") if generator.random() < 0.6]
    return project(components, menu, sql, generator.choice([b"0;0;0", b"1;1;1", b"0;1;0"])), options


class HintsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="pirol-hints-")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.stop_compiling = {rule for rule, (sort, _) in effects().items() if sort != "runs"}

    def write(self, name, content):
        path = self.folder / f"{name}.prl"
        path.write_bytes(content)
        return path

    def test_random_designs(self):
        (self.folder / "a.prl").write_bytes(project())
        checked = []
        for seed in range(ARGUMENTS.designs):
            content, options = random_project(random.Random(seed))
            path = self.write(seed, content)
            checked.append((seed, lint(path, options), generate(path, options)))
        counts = {"compiled": 0, "rejected": 0}
        for (seed, hints, _), verdict in zip(checked, verdicts([source for _, _, source in checked])):
            expected = "rejected" if self.stop_compiling & set(hints) else "ok"
            self.assertEqual(verdict.split(":")[0], expected, f"design {seed}: hints {hints}, javac: {verdict}")
            counts["compiled" if expected == "ok" else expected] += 1
        print(f"{ARGUMENTS.designs} random designs: {counts}", file=sys.stderr)
        # Neither half of the claim may be empty.
        self.assertGreater(min(counts.values()), ARGUMENTS.designs // 8, counts)

    def test_every_character(self):
        """The hints about one character each against what the compiler says to it."""
        characters = [bytes([code]) for code in range(2, 256) if bytes([code]) not in (b"\r", b"\n")] + [b"\r", b"\n"]
        uses = {
            "part": (lambda c: button(b"x" + c + b"y"), b"class T { void x%sy() { } }", "invalid-name"),
            "start": (lambda c: button(c + b"y"), b"class T { void %sy() { } }", "invalid-name"),
            "text": (lambda c: button(b"a", c), b"class T { String x = \"%s\"; }", None),
            "character": (lambda c: [b"6", b"0", b"0", b"50", b"20", b"a", c, OFF, OFF, OFF, OFF],
                          b"class T { char x = '%s'; }", None),
        }
        for use, (component, source, rule) in uses.items():
            sources, hinted = [], []
            for character in characters:
                path = self.write("character", project([component(character)]))
                rules = lint(path, [])
                hinted.append(rule in rules if rule else bool(self.stop_compiling & set(rules)))
                sources.append(self.folder / f"{use}{character[0]}.java")
                sources[-1].write_bytes(source % character)
            rejected = [verdict != "ok" for verdict in verdicts(sources)]
            # The compiler skips control characters in names, and a blank before a name is none; the hints do not.
            stricter = {character[0] for character, hint, reject in zip(characters, hinted, rejected) if hint and not reject}
            invisible = {*range(2, 9), *range(0x0E, 0x1C), 0x7F, 0xAD}
            blanks = {0x09, 0x0A, 0x0C, 0x0D, 0x20}
            self.assertEqual(stricter, {"part": invisible, "start": blanks}.get(use, set()), use)
            missed = [character for character, hint, reject in zip(characters, hinted, rejected) if reject and not hint]
            self.assertEqual(missed, [], use)

    def test_every_odd_name(self):
        names = Texts.NAMES + Texts.BAD_NAMES
        paths = [self.write(number, project([button(name.encode("cp1252"))])) for number, name in enumerate(names)]
        hinted = [bool(self.stop_compiling & set(lint(path, []))) for path in paths]
        rejected = [verdict != "ok" for verdict in verdicts([generate(path, []) for path in paths])]
        differing = [name for name, hint, reject in zip(names, hinted, rejected) if hint != reject]
        # The compiler takes an escape for the letter that it means, even in a name; the hints do not.
        self.assertEqual(differing, ["a\\u0041"])

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
                hints = lint(self.write(name, project(components(middle))), [])
                fits, too_large = (fits, middle) if "program-too-large" in hints else (middle, too_large)
            for count in (fits, fits + fits // 10):
                sources.append(generate(self.write(f"{name}{count}", project(components(count))), []))
        self.assertEqual([verdict.split(":")[0] for verdict in verdicts(sources)], ["ok", "rejected"] * len(mixes))

    def test_each_rule_has_its_effect(self):
        sources, running = {}, []
        for rule, (sort, text) in effects().items():
            design = CASES / rule / "design.prl"
            options = (CASES / rule / "options.txt").read_text().split()
            self.assertIn(rule, lint(design, options))
            path = self.write(rule, design.read_bytes())
            source = generate(path, options)
            if sort == "generator":
                self.assertIn(text, str(source), rule)
            elif sort == "javac":
                sources[source] = (rule, text)
            else:
                self.assertEqual(sort, "runs", rule)
                running.append((rule, text, source))
        for verdict, (rule, text) in zip(verdicts(sources), sources.values()):
            with self.subTest(rule):
                self.assertIn("error: " + text, verdict)
        for rule, text, source in running:
            compile_java([source], source.parent, "-encoding", "cp1252", "-cp", ARGUMENTS.standins)
            with self.subTest(rule):
                self.assertIn(text, started(source.parent))


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("pirol_cli")
    parser.add_argument("standins", help="compiled library stand-ins")
    parser.add_argument("--designs", type=int, default=240, help="how many random designs (default 240)")
    ARGUMENTS = parser.parse_args()
    unittest.main(argv=sys.argv[:1], verbosity=2)
