#!/usr/bin/env python3
"""Measures whole processes on equal designs and prints Markdown tables.

The programs take turns, so that whatever else the machine does meets all of them; each number is the median of the runs.
A program that needs more processor time than the patience is stopped and not asked again at larger sizes.
"""

import argparse
import os
import platform
import shutil
import subprocess
import sys
from pathlib import Path

from processes import Generating, Opening, measure, peak_memory

HERE = Path(__file__).resolve().parent
UIC = "/usr/lib/qt6/libexec/uic"
QT_DESIGNER = "/usr/lib/qt6/bin/designer"
MEGABYTE = 1_000_000


def table(head, rows):
    print("| " + " | ".join(head) + " |")
    print("|" + "---|" * len(head))
    for row in rows:
        print("| " + " | ".join(row) + " |", flush=True)
    print()


def milliseconds(seconds):
    return f"{seconds * 1000:,.1f} ms"


def megabytes(count):
    return f"{count / MEGABYTE:,.1f} MB"


def make_design(folder, count):
    subprocess.run([sys.executable, HERE / "make_design.py", str(count), folder], check=True)
    return folder / f"design-{count}.prl"


def rows_of(task, size, names, results, patience):
    """One row for each program: its medians and how many times as much as the first program's they are."""
    rows = []
    for name, result in zip(names, results):
        row = [task, f"{size:,}", name]
        if result is None:
            rows.append(row + [f"over {patience} s", "–", "–", "–", "–", "–"])
            continue
        first = results[0]
        rows.append(row + [milliseconds(result.cpu), f"{result.cpu / size * 1e6:,.1f} µs" if size else "–",
                           megabytes(result.memory), milliseconds(result.painted) if result.painted else "–",
                           f"{result.cpu / first.cpu:,.1f}", f"{result.memory / first.memory:,.1f}"])
    return rows


def start_rows(pirol, bare_window, home, arguments):
    """A start with the pictures of the projects opened before, and one of a user who has none."""
    names = ["pirol", "bare QMainWindow", "QMainWindow with one word", "Qt Designer"]
    commands = [[pirol], [bare_window], [bare_window, "Bereit"], [QT_DESIGNER]]
    rows = rows_of("start with last projects", 0, names[:1],
                   measure(Opening, commands[:1], arguments.runs, arguments.patience), arguments.patience)
    shutil.rmtree(home / "Pirol", ignore_errors=True)
    return rows + rows_of("start empty", 0, names, measure(Opening, commands, arguments.runs, arguments.patience),
                          arguments.patience)


def compare_programs(build, folder, arguments):
    """Generating and opening: Pirol beside the others."""
    cli, pirol = build / "src" / "pirol-cli", build / "src" / "pirol"
    tasks = [
        ("generate", Generating, ["pirol-cli generate", "uic", "fluid -c"],
         lambda design, out: [[cli, "generate", design, "-o", out], [UIC, design.with_suffix(".ui"), "-o", out],
                              ["fluid", "-c", "-o", out, "-h", folder / "out.h", design.with_suffix(".fl")]]),
        ("open", Opening, ["pirol", "Qt Designer"],
         lambda design, out: [[pirol, design], [QT_DESIGNER, design.with_suffix(".ui")]]),
    ]
    rows = []
    for task, kind, names, commands_for in tasks:
        too_slow = set()
        for size in arguments.sizes:
            commands = commands_for(make_design(folder, size), folder / "out")
            commands = [None if name in too_slow else command for name, command in zip(names, commands)]
            results = measure(kind, commands, arguments.runs, arguments.patience)
            too_slow.update(name for name, result in zip(names, results) if result is None)
            rows += rows_of(task, size, names, results, arguments.patience)
    rows += start_rows(pirol, build / "bench" / "bare-window", folder / "home", arguments)
    print("### Equal designs in Pirol and in other designers\n")
    table(["task", "components", "program", "processor time", "per component", "peak memory", "painted after",
           "× processor", "× memory"], rows)


def compare_memory(cli, folder, arguments):
    """Pirol's peak memory on every command beside its bound: eight times the file and ten megabytes."""
    rows = []
    for size in arguments.sizes:
        design, java, copy = folder / f"design-{size}.prl", folder / "out.java", folder / "out.prl"
        subprocess.run([cli, "generate", design, "-o", java], check=True)
        for words in (["generate", design, "-o", copy], ["copy", design, copy], ["check", design],
                      ["import", java, "-o", copy]):
            file_size = Path(words[1]).stat().st_size
            rows.append([f"{size:,}", words[0], megabytes(file_size), megabytes(peak_memory([cli, *words])),
                         megabytes(8 * file_size + 10 * MEGABYTE)])
    print("### Peak memory of pirol-cli\n")
    table(["components", "command", "file read", "peak memory", "8 × file + 10 MB"], rows)


def compare_import(cli, folder, arguments):
    """The importer at one and at ten megabytes of source, beside generating that source."""
    bytes_per_component = 480
    rows = []
    for wanted in (MEGABYTE, 10 * MEGABYTE):
        size = wanted // bytes_per_component
        design, java = make_design(folder, size), folder / "import.java"
        subprocess.run([cli, "generate", design, "-o", java], check=True)
        generate, imported = measure(
            Generating, [[cli, "generate", design, "-o", folder / "out"], [cli, "import", java, "-o", folder / "out.prl"]],
            arguments.runs, arguments.patience)
        rows.append([megabytes(java.stat().st_size), milliseconds(imported.cpu), milliseconds(generate.cpu),
                     f"{imported.cpu / generate.cpu:.2f}"])
    print("### Importing source, whole processes\n")
    table(["source", "pirol-cli import", "pirol-cli generate", "import : generate"], rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path, help="the build's folder")
    parser.add_argument("folder", type=Path, help="where designs and output go")
    parser.add_argument("sizes", type=int, nargs="*", default=[100, 1000, 10000, 100000])
    parser.add_argument("--runs", type=int, default=9)
    parser.add_argument("--patience", type=int, default=120, help="seconds of processor time for one run")
    arguments = parser.parse_args()
    build, folder = arguments.build.resolve(), arguments.folder.resolve()
    # Settings of the user's own, and what an earlier run left for recovery, are no part of the comparison.
    home = folder / "home"
    home.mkdir(parents=True, exist_ok=True)
    os.environ.update(HOME=str(home), XDG_CONFIG_HOME=str(home), XDG_STATE_HOME=str(home))
    # A program that waits for a message bus to be started looks idle before it has shown anything.
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
    print(f"{platform.machine()}, {os.cpu_count()} cores, load {os.getloadavg()[0]:.1f}; medians of up to "
          f"{arguments.runs} runs\n")
    compare_programs(build, folder, arguments)
    compare_memory(build / "src" / "pirol-cli", folder, arguments)
    compare_import(build / "src" / "pirol-cli", folder, arguments)


if __name__ == "__main__":
    main()
