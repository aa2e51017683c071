#!/usr/bin/env python3
"""Proves that the Java of a project runs: generates it, compiles it without warnings, starts it on a display of its
own and uses it like a person would.

Compared with the project file, which is read here independently of the generator: window size, every component's
class, rectangle, text and registered handlers, the menu lines, the database and multimedia calls. Then every component
that has handlers is used with real mouse clicks and keys and every menu entry is clicked; each must call its handler.

With --picture it only saves what the window shows as PNG, for comparing it with the designer's drawing;
with --compare it only compares what the window shows with such a picture.
"""

import argparse
import contextlib
import os
import pathlib
import select
import signal
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LIST = "\1"
FOCUS = ["FokusErhalten", "FokusVerloren"]
FIELD_EVENTS = ["InhaltGeaendert", *FOCUS, "EingabeBestaetigt"]
AREA_EVENTS = ["InhaltGeaendert", *FOCUS, "MarkierungGeaendert"]

# Per kind code: the Java class, how many fields stand between the name and the event flags, the flags' events. The two
# text areas are crossed, because reading a project crosses them.
KINDS = {
    "1": ("Etikett", 3, []),
    "2": ("Knopf", 1, ["Geklickt", *FOCUS]),
    "3": ("Textfeld", 2, FIELD_EVENTS),
    "4": ("Zeilenbereich", 1, AREA_EVENTS),
    "5": ("Zeichenbereich", 1, AREA_EVENTS),
    "6": ("Kennwortfeld", 1, FIELD_EVENTS),
    "7": ("Schalter", 1, ["Geklickt", *FOCUS]),
    "8": ("Radiogruppe", 1, []),
    "9": ("Auswahl", 1, ["Geaendert", *FOCUS]),
    "10": ("Regler", 3, ["Geaendert", *FOCUS]),
    "11": ("Fortschrittsbalken", 2, []),
    "12": ("Tabelle", 2, ["InhaltGeaendert", "MarkierungGeaendert", *FOCUS]),
    "13": ("Bild", 1, []),
    "14": ("Ton", 1, []),
    "15": ("Film", 1, []),
}
TOLERANCE = 0.005  # share of pixels: room for another version of the font, but not for another bevel or gradient
UMLAUTS = str.maketrans({"Ä": "Ae", "ä": "ae", "Ö": "Oe", "ö": "oe", "Ü": "Ue", "ü": "ue", "ß": "ss"}
                        | {unwanted: "" for unwanted in " -.\\#"})
PREDEFINED_METHODS = ["AnzahlDerTabellen", "NameDerTabelle", "AnzahlDerEintraege"]


class Failure(Exception):
    """What is wrong with one project, ready to be printed."""


class Expectation:
    """What the running program must show, read from the project file."""

    def __init__(self, path):
        lines = path.read_bytes().decode("cp1252", errors="replace").split("\r\n")
        menu, sql = lines.index("#Begin.Pirol.Menu"), lines.index("#Begin.Pirol.SQL")
        self.width, self.height = int(lines[1]), int(lines[2])
        self.components = {}  # field -> (class, left, top, width, height, text, handlers)
        self.objects = set()  # (class, field)
        self.calls = set()  # what the library must report from the constructor
        self.usable = {}  # field -> handlers that using the component must call
        self.menu_lines = []  # (depth, type, caption)
        self.entries = {}  # path through the menus -> handler
        for line in lines[5:menu]:
            self._read_component(line.split("\0"))
        self._read_menu([line.split("\0") for line in lines[menu + 1:sql]])
        self._read_database(lines[sql + 1:sql + 7])

    def _read_component(self, fields):
        code, box, name, values = fields[0], [int(field) for field in fields[1:5]], fields[5], fields[6:]
        java_class, skipped, events = KINDS[code]
        handlers = [name + event for event, flag in zip(events, values[skipped:])
                    if flag.lower() in ("wahr", "true", "-1")]
        if java_class in ("Radiogruppe", "Ton", "Film"):
            self.objects.add((java_class, name))
            self.calls |= {"Ton": {("Ton", "ladeTon", values[0])}, "Film": {("Film", values[0])}}.get(java_class, set())
            if java_class == "Radiogruppe":
                self._read_radio_buttons(box, values[0])
            return
        text = LIST.join(values[:skipped] if java_class in ("Regler", "Fortschrittsbalken") else values[:1])
        if java_class == "Tabelle":
            text = LIST.join(filter(None, values[:2]))
        self.components[name] = (java_class, *box, text, sorted(handlers))
        self._note_use(name, java_class, handlers, text.split(LIST))

    def _note_use(self, name, java_class, handlers, items):
        """Leaves out what no user can do: choose among fewer than two entries, edit a table without cells."""
        if java_class == "Auswahl" and len(items) < 2:
            handlers = []
        if java_class == "Tabelle" and (items[0] == "0" or len(items) < 2):
            handlers = []
        if handlers:
            self.usable[name] = handlers

    def _read_radio_buttons(self, group, field):
        items = field.split(LIST) if field else []
        for row in (items[i:i + 7] for i in range(0, len(items), 7)):
            name, caption, width, height, left, top = row[:6]
            handler = name + "Geklickt"
            self.components[name] = ("Radioknopf", group[0] + int(left), group[1] + int(top), int(width), int(height),
                                     caption, [handler])
            self.usable[name] = [handler]

    def _read_menu(self, rows):
        if rows:
            self.objects |= {("Menue", row[2]) for row in rows if row[1] == "0"}
        path, prefix = [], ""
        for row in rows:
            depth, entry_type = int(row[0]), int(row[1])
            caption = row[3] if entry_type == 0 else row[2] if entry_type != 3 else ""
            self.menu_lines.append((depth, entry_type, caption))
            path = path[:depth] + [caption]
            if entry_type == 0:
                prefix = row[2]
            elif entry_type == 2:
                self.entries["\t".join(path)] = prefix + caption.translate(UMLAUTS)

    def _read_database(self, lines):
        server, user, password, database, table = lines[:5]
        self.uses_database = server != ""
        self.methods = {}
        if self.uses_database:
            self.objects |= {("Datenbank", "hatDatenbank"), ("SQLErgebnisliste", "hatErgebnisliste")}
            self.calls.add(("Datenbank", "verbindeMySQL", database, server, user, password))
            self.calls.add(("Datenbank", "sendeSQL", f"SELECT * FROM {table}"))
            self.methods = {name: int(flag) != 0 for name, flag in zip(PREDEFINED_METHODS, lines[5].split(";"))}

    def flags(self):
        return ["--menu"] * bool(self.menu_lines) + ["--sql"] * self.uses_database


def run(command, seconds, text="", **options):
    """Runs a command that reads the text and gives back its standard output; whatever it started ends with it."""
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, stdin=subprocess.PIPE,
                               start_new_session=True, **options)
    try:
        output, errors = process.communicate(text.encode(), timeout=seconds)
    except subprocess.TimeoutExpired as timeout:
        os.killpg(process.pid, signal.SIGKILL)
        output, _ = process.communicate()
        raise Failure(f"{command[0]} did not end within {seconds} seconds; it had printed:\n"
                      + output.decode("utf-8", "replace")) from timeout
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
    if process.returncode != 0:
        raise Failure(f"{' '.join(map(str, command))}\nended with status {process.returncode}:\n"
                      + (output + errors).decode("utf-8", "replace"))
    return output.decode("utf-8", "replace")


@contextlib.contextmanager
def display(width, height):
    """An X server of our own; it chooses a free number itself, so that tests beside each other cannot collide."""
    read_end, write_end = os.pipe()
    size = f"{min(max(width, 1400), 4000)}x{min(max(height, 1000), 4000)}x24"
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", size, "-nolisten", "tcp",
                               "-terminate"],
                              pass_fds=[write_end], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True)
    os.close(write_end)
    try:
        with os.fdopen(read_end, "rb") as pipe:
            number = pipe.readline().decode().strip() if select.select([pipe], [], [], 30)[0] else ""
        if not number:
            raise Failure("Xvfb did not start")
        yield f":{number}"
    finally:
        server.terminate()
        try:
            server.wait(10)
        except subprocess.TimeoutExpired:
            server.kill()
            server.wait()


def compile_java(sources, target, *options):
    target.mkdir(parents=True, exist_ok=True)
    run(["javac", "-Werror", "-Xlint:all,-serial", "-d", str(target), *options, *map(str, sources)], 240)


def compile_standins(target):
    compile_java(sorted(HERE.rglob("*.java")), target, "-encoding", "UTF-8")


def drive(arguments, project, expectation, folder, commands):
    """Generates, compiles and starts the project's program; gives back the lines the driver printed."""
    source = arguments.java
    if source is None:
        source = folder / "SuMAnwendung.java"
        run([arguments.pirol_cli, "generate", str(project), *expectation.flags(), "-o", str(source)], 60)
    classes = folder / "classes"
    compile_java([source], classes, "-encoding", "cp1252", "-cp", str(arguments.standins))
    with display(expectation.width, expectation.height) as name:
        environment = os.environ | {"DISPLAY": name, "LC_ALL": "C.UTF-8"}
        environment.pop("_JAVA_OPTIONS", None)
        environment.pop("XAUTHORITY", None)
        return run(["java", "-XX:TieredStopAtLevel=1", "-cp", f"{arguments.standins}:{classes}", "Driver", *commands],
                   60 + 5 * len(commands), env=environment, cwd=project.parent).split("\n")


def unescape(column):
    return column.encode("latin-1", "backslashreplace").decode("unicode_escape") if "\\" in column else column


def differences(expectation, lines):
    """Says how the window that the driver listed differs from the project."""
    rows = [[unescape(column) for column in line.split("\t")] for line in lines]

    def of_sort(sort):
        return [row[1:] for row in rows if row[0] == sort]

    width, height = of_sort("Fenster")[0][:2]
    if (int(width), int(height)) != (expectation.width, expectation.height):
        yield f"window is {width} x {height} instead of {expectation.width} x {expectation.height}"
    found = {row[1]: (row[0], *map(int, row[2:6]), row[6], sorted(filter(None, row[7].split(","))))
             for row in of_sort("Komponente")}
    for name in sorted(found.keys() | expectation.components.keys()):
        if found.get(name) != expectation.components.get(name):
            yield f"{name} is {found.get(name)} instead of {expectation.components.get(name)}"
    objects = {tuple(row) for row in of_sort("Objekt")} - {("Menue", "hatMenueTemp")}
    if objects != expectation.objects:
        yield f"objects without a place differ: {sorted(objects ^ expectation.objects)}"
    menu = [(int(row[0]), int(row[1]), row[2]) for row in of_sort("Menue")]
    if menu != expectation.menu_lines:
        yield f"menu is {menu} instead of {expectation.menu_lines}"
    calls = {tuple(row) for row in rows if row[0] in ("Ton", "Film", "Datenbank")}
    if calls != expectation.calls:
        yield f"calls of the library differ: {sorted(calls ^ expectation.calls)}"
    methods = {row[0] for row in of_sort("Methode")}
    for name, wanted in expectation.methods.items():
        if (name in methods) != wanted:
            yield f"method {name} is {'missing' if wanted else 'there although it was not chosen'}"


def check_steps(expectation, lines, strict):
    """Says which use of a component or menu entry did not call its handlers, and counts the calls that came."""
    problems, called = [], 0
    blocks = "\n".join(lines).split("\nSchritt\t")[1:]
    for block in blocks:
        head, *events = block.split("\n")
        command, target = head.split("\t", 1)
        target = unescape(target)
        wanted = expectation.usable[target] if command == "use" else [expectation.entries[target]]
        heard = [event.split("\t")[1] for event in events if event.startswith("Bearbeiter\t")]
        if any(event.startswith("Verdeckt\t") for event in events):
            if strict:
                problems.append(f"{target} cannot be reached with the mouse")
            continue
        called += len(set(wanted) & set(heard))
        problems += [f"{command} {target} did not call {handler}" for handler in wanted if handler not in heard]
        # A window that becomes active may give the focus to another component first.
        problems += [f"{command} {target} also called {handler}" for handler in set(heard) - set(wanted)
                     if not handler.endswith(tuple(FOCUS))]
        problems += [f"{handler} was called {heard.count(handler)} times" for handler in set(wanted)
                     if heard.count(handler) > 1 and (command == "menu" or handler.endswith("Geklickt"))]
    problems += [f"the program has no method {line.split(chr(9))[1]}" for line in lines if line.startswith("Fehlt\t")]
    if len(blocks) != len(expectation.usable) + len(expectation.entries):
        problems.append(f"only {len(blocks)} components and menu entries were used")
    return problems, called


def check(arguments, project, folder):
    expectation = Expectation(project)
    clicks = [name for name, handlers in expectation.usable.items() if name + "Geklickt" in handlers]
    if arguments.strict and not clicks:
        raise Failure("no component has its click event on, so nothing can be pressed")
    commands = ["list"]
    for name in expectation.usable:
        commands += ["use", name]
    for path in expectation.entries:
        commands += ["menu", path]
    lines = drive(arguments, project, expectation, folder, commands)
    problems, called = check_steps(expectation, lines, arguments.strict)
    problems = [*differences(expectation, lines), *problems]
    if problems:
        raise Failure("\n".join(problems))
    print(f"{project}: ok, {len(expectation.components)} rectangles, {len(expectation.menu_lines)} menu lines, "
          f"{called} handlers called")


def save_picture(arguments, project, folder):
    drive(arguments, project, Expectation(project), folder, ["picture", str(arguments.picture)])


def compare_picture(arguments, project, folder):
    lines = drive(arguments, project, Expectation(project), folder, ["compare", str(arguments.compare)])
    different, pixels = next(map(int, line.split("\t")[1:]) for line in lines if line.startswith("Vergleich\t"))
    print(f"{project}: {different} of {pixels} pixels differ from {arguments.compare}")
    if different > pixels * TOLERANCE:
        raise Failure(f"more than {TOLERANCE:.1%} of the pixels differ")


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("pirol_cli", metavar="PIROL_CLI", help="the program that generates the Java source")
    parser.add_argument("projects", metavar="PROJECT", nargs="*", type=lambda text: pathlib.Path(text).resolve())
    parser.add_argument("--strict", action="store_true",
                        help="also fail when a project has nothing to press or a component with handlers is covered")
    for option, meaning in {"standins": "compiled library stand-ins; without this they are compiled for this run",
                            "compile-standins": "only compile the library stand-ins and the driver into this folder",
                            "java": "run this SuMAnwendung.java instead of generating one",
                            "picture": "save the client area, menu bar included, as PNG",
                            "compare": "compare the client area with a PNG"}.items():
        parser.add_argument("--" + option, type=lambda text: pathlib.Path(text).resolve(), metavar="PATH", help=meaning)
    arguments = parser.parse_intermixed_args()
    if not arguments.projects and not arguments.compile_standins:
        parser.error("no project given")
    if len(arguments.projects) > 1 and (arguments.java or arguments.picture or arguments.compare):
        parser.error("--java, --picture and --compare take one project")
    return arguments


def main():
    arguments = read_arguments()
    # Being told to stop runs the same cleaning up as an error, so neither display nor program stays behind.
    signal.signal(signal.SIGTERM, lambda number, frame: sys.exit(128 + number))
    task = compare_picture if arguments.compare else save_picture if arguments.picture else check
    failed = False
    with tempfile.TemporaryDirectory(prefix="pirol-java-") as name:
        scratch = pathlib.Path(name)
        if not arguments.standins:
            arguments.standins = arguments.compile_standins or scratch / "standins"
            compile_standins(arguments.standins)
        for number, project in enumerate(arguments.projects):
            folder = scratch / str(number)
            folder.mkdir()
            try:
                task(arguments, project, folder)
            except (Failure, OSError, ValueError) as failure:
                failed = True
                print(f"{project}: FAILED\n{failure}", file=sys.stderr)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
