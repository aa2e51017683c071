#!/usr/bin/env python3
"""Measures whole processes on equal designs and prints Markdown tables.

Every program writes a file. The programs take turns, so that whatever else the machine does meets all of them; each
number is the median of the runs. A program that needs more processor time than the patience is stopped and not asked
again at larger sizes.
"""

import argparse
import os
import platform
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
UIC = "/usr/lib/qt6/libexec/uic"
MEGABYTE = 1_000_000


class Run:
    """One process: seconds of processor and of wall time, or nothing when it was stopped."""

    def __init__(self, command, patience):
        begin = time.perf_counter()
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        resource.prlimit(process.pid, resource.RLIMIT_CPU, (patience, patience + 1))
        message = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        self.wall = time.perf_counter() - begin
        self.cpu = usage.ru_utime + usage.ru_stime
        self.stopped = os.WIFSIGNALED(status)
        process.returncode = os.waitstatus_to_exitcode(status)
        process.stderr.close()
        if process.returncode > 0:
            sys.exit(f"{' '.join(map(str, command))} ended with {process.returncode}: {message.decode()}")


def peak_memory(command):
    """Peak memory of a process in bytes. GNU time starts it, as a child of this program would begin with its memory."""
    with tempfile.NamedTemporaryFile() as report:
        subprocess.run(["/usr/bin/time", "-q", "-f", "%M", "-o", report.name, *map(str, command)], check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return int(Path(report.name).read_text(encoding="ascii")) * 1024


class Result:
    def __init__(self, runs, memory):
        self.cpu = statistics.median(run.cpu for run in runs)
        self.wall = statistics.median(run.wall for run in runs)
        self.memory = memory


def measure(commands, runs, patience):
    """The results of some commands, None for one that was stopped; the commands take turns."""
    taken = [[] for _ in commands]
    for _ in range(runs):
        for done, command in zip(taken, commands):
            if command is None or any(run.stopped for run in done):
                continue
            # Whoever needs that long is not run again and again.
            if done and done[0].cpu > patience / 10:
                continue
            done.append(Run(command, patience))
    return [
        Result(done, peak_memory(command)) if done and not done[-1].stopped else None
        for done, command in zip(taken, commands)
    ]


def table(head, rows):
    print("| " + " | ".join(head) + " |")
    print("|" + "---|" * len(head))
    for row in rows:
        print("| " + " | ".join(row) + " |")
    print()


def milliseconds(seconds):
    return f"{seconds * 1000:,.1f} ms"


def megabytes(count):
    return f"{count / MEGABYTE:,.1f} MB"


def cells(result, patience):
    if result is None:
        return [f"over {patience} s", "–", "–"]
    return [milliseconds(result.cpu), milliseconds(result.wall), megabytes(result.memory)]


def ratio(other, own, what):
    return f"{getattr(other, what) / getattr(own, what):,.0f}" if other else "–"


def make_design(folder, count):
    subprocess.run([sys.executable, HERE / "make_design.py", str(count), folder], check=True)
    return folder / f"design-{count}.prl"


def compare_programs(cli, folder, arguments):
    """Generating: Pirol beside the others."""
    names = ["pirol-cli generate", "uic", "fluid -c"]
    rows, growth, too_slow = [], [], set()
    for size in arguments.sizes:
        design = make_design(folder, size)
        out = folder / "out"
        commands = [[cli, "generate", design, "-o", out], [UIC, design.with_suffix(".ui"), "-o", out],
                    ["fluid", "-c", "-o", out, "-h", folder / "out.h", design.with_suffix(".fl")]]
        commands = [None if name in too_slow else command for name, command in zip(names, commands)]
        results = measure(commands, arguments.runs, arguments.patience)
        too_slow.update(name for name, result in zip(names, results) if result is None)
        for name, result in zip(names, results):
            rows.append([f"{size:,}", name, *cells(result, arguments.patience), ratio(result, results[0], "cpu"),
                         ratio(result, results[0], "wall"), ratio(result, results[0], "memory")])
        growth.append([f"{size:,}"] + [f"{result.cpu / size * 1e6:,.2f} µs" if result else "–" for result in results])
    print("### Generating source, whole processes\n")
    table(["components", "program", "processor time", "wall time", "peak memory", "× processor", "× wall", "× memory"],
          rows)
    print("### Processor time per component\n")
    table(["components", *names], growth)


def compare_memory(cli, folder, arguments):
    """Pirol's peak memory on every command beside its bound: eight times the file and ten megabytes."""
    rows = []
    for size in arguments.sizes:
        design, java, copy = folder / f"design-{size}.prl", folder / "out.java", folder / "out.prl"
        subprocess.run([cli, "generate", design, "-o", java], check=True)
        for words in (["generate", design, "-o", copy], ["copy", design, copy], ["check", design],
                      ["import", java, "-o", copy]):
            file_size = Path(words[1]).stat().st_size
            memory = peak_memory([cli, *words])
            rows.append([f"{size:,}", words[0], megabytes(file_size), megabytes(memory),
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
            [[cli, "generate", design, "-o", folder / "out"], [cli, "import", java, "-o", folder / "out.prl"]],
            arguments.runs, arguments.patience)
        rows.append([megabytes(java.stat().st_size), milliseconds(imported.cpu), milliseconds(generate.cpu),
                     f"{imported.cpu / generate.cpu:.2f}"])
    print("### Importing source, whole processes\n")
    table(["source", "pirol-cli import", "pirol-cli generate", "import : generate"], rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("cli", type=Path)
    parser.add_argument("folder", type=Path, help="where designs and output go")
    parser.add_argument("sizes", type=int, nargs="*", default=[1000, 10000, 100000])
    parser.add_argument("--runs", type=int, default=9)
    parser.add_argument("--patience", type=int, default=120, help="seconds of processor time for one run")
    arguments = parser.parse_args()
    cli, folder = arguments.cli.resolve(), arguments.folder.resolve()
    print(f"{platform.machine()}, {os.cpu_count()} cores, load {os.getloadavg()[0]:.1f}; medians of up to "
          f"{arguments.runs} runs\n")
    compare_programs(cli, folder, arguments)
    compare_memory(cli, folder, arguments)
    compare_import(cli, folder, arguments)


if __name__ == "__main__":
    main()
