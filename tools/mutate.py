#!/usr/bin/env python3
"""Makes single random changes to the core's sources and says which of them no test of the core notices.

Each change is built and tested in a copy of the sources with a build of its own; the work tree is never touched. A change
that only the window's or the Java tests could notice counts as a survivor.
Usage: mutate.py [--count N] [--seed N] [--only PART] [--folder BUILD]
"""
import argparse
import pathlib
import random
import re
import subprocess
import sys
import time
import typing

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = ("base", "menu", "sql", "controls", "model", "project", "codegen", "designer", "app")
BUILD_SECONDS, LONGEST_TEST = 900, 300
SWAPPED = {" + ": " - ", " += ": " -= ", "++": "--", " < ": " <= ", " > ": " >= ", " == ": " != ", " && ": " || ",
           "true": "false"}
SWAPPED |= {after: before for before, after in SWAPPED.items()}
WORDS = re.compile("|".join(rf"\b{word}\b" if word.isalpha() else re.escape(word) for word in SWAPPED))
NUMBER = re.compile(r"(?<![\w.'])(?:0x[0-9A-Fa-f]+|\d+)(?![\w.'])")
CONDITION = re.compile(r"\bif \(")
CALL = re.compile(r"^ +(?!return\b|throw\b|if\b|for\b|while\b|switch\b)[A-Za-z_][\w:.>-]*\([^;]*\);$", re.M)
# Text, comments, directives and what is for Windows only; what is found behind them is code.
NO_CODE = re.compile(r'^#ifdef _WIN32\n(?:.|\n)*?^#(?:else|endif)|//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^#[^\n]*|static_assert[^;]*;', re.M)


class Change(typing.NamedTuple):
    path: pathlib.Path  # below the root
    begin: int
    end: int
    text: str

    def applied(self, source):
        return source[:self.begin] + self.text + source[self.end:]

    def __str__(self):
        source = (ROOT / self.path).read_text()
        line = source.count("\n", 0, self.begin) + 1
        return f"{self.path}:{line}: {source[self.begin:self.end].strip()!r} becomes {self.text.strip()!r} in: " + \
            source.splitlines()[line - 1].strip()


def condition_end(code, begin):
    depth = 1
    while depth:
        depth += {"(": 1, ")": -1}.get(code[begin], 0)
        begin += 1
    return begin - 1


def changes_of(path):
    source = (ROOT / path).read_text()
    code = NO_CODE.sub(lambda found: re.sub(r"[^\n]", "~", found[0]), source)
    for found in WORDS.finditer(code):
        yield Change(path, *found.span(), SWAPPED[found[0]])
    for found in NUMBER.finditer(code):
        for step in (1, -1):
            yield Change(path, *found.span(), str(int(found[0], 0) + step))
    for found in CONDITION.finditer(code):
        end = condition_end(code, found.end())
        yield Change(path, found.end(), end, f"!({source[found.end():end]})")
    for found in CALL.finditer(code) if path.suffix == ".cpp" else ():
        yield Change(path, *found.span(), ";")


class Copy:
    """A copy of the sources and its build."""

    def __init__(self, folder):
        self.tree, self.build = folder / "tree", folder / "build"
        names = subprocess.check_output(["git", "-C", ROOT, "ls-files", "-z"], text=True).split("\0")[:-1]
        for name in names:
            self.put(pathlib.Path(name), (ROOT / name).read_bytes())
        for path in self.tree.rglob("*"):
            if path.is_file() and str(path.relative_to(self.tree)) not in names:
                path.unlink()
        subprocess.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                        "-DCMAKE_CXX_FLAGS=-O0 -g0 -w -D_GLIBCXX_ASSERTIONS", "-DPIROL_DESIGNER=OFF", "-DBUILD_TESTING=ON"], check=True,
                       stdout=subprocess.DEVNULL)

    def put(self, name, content):
        path = self.tree / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.is_file() or path.read_bytes() != content:
            path.write_bytes(content)

    def builds(self):
        return run(["cmake", "--build", self.build, "--target", "core-tests", "pirol-cli"], BUILD_SECONDS)[0] == 0

    def catcher(self, seconds=LONGEST_TEST):
        """The test that fails, or None. Each of the two programs has so many seconds."""
        tests = self.build / "tests" / "core-tests"
        cli = [sys.executable, self.tree / "tests" / "cli" / "cli_test.py", self.build / "src" / "pirol-cli",
               self.tree / "examples"]
        for command in [tests, "--gtest_fail_fast", "--gtest_brief=1"], cli:
            status, output = run(command, seconds)
            if status is None:
                return "the time limit"
            if status:
                failed = re.search(r"\[  FAILED  \] ([\w.]+)|^FAIL: (\w+)", output, re.M)
                return failed[1] or failed[2] if failed else f"status {status}"
        return None


def run(command, seconds):
    """The status and the output; no status when the time is up."""
    try:
        done = subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=seconds)
        return done.returncode, done.stdout.decode(errors="replace")
    except subprocess.TimeoutExpired:
        return None, ""


def verdict(copy, change, seconds):
    source = (ROOT / change.path).read_text()
    try:
        copy.put(change.path, change.applied(source).encode())
        if not copy.builds():
            return "did not compile"
        catcher = copy.catcher(seconds)
        return f"caught by {catcher}" if catcher else "SURVIVED"
    finally:
        copy.put(change.path, source.encode())


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=20, help="how many changes that compile (default 20)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", default="", help="only files whose path holds this part")
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build" / "mutants")
    words = parser.parse_args()
    copy = Copy(words.folder.resolve())
    built = copy.builds()
    start = time.monotonic()
    if failing := copy.catcher() if built else "the build":
        sys.exit(f"The unchanged sources do not pass {failing}")
    seconds = 10 + 6 * (time.monotonic() - start)  # for a change that makes a test endless
    sources = [path.relative_to(ROOT) for folder in FOLDERS for path in sorted((ROOT / "src" / folder).glob("*.*"))
               if "Windows.cpp" not in path.name]
    changes = [change for path in sources if words.only in str(path) for change in changes_of(path)]
    random.Random(words.seed).shuffle(changes)
    tried = survived = 0
    for change in changes:
        if tried == words.count:
            break
        said = verdict(copy, change, seconds)
        tried += said != "did not compile"
        survived += said == "SURVIVED"
        print(f"{said}: {change}", flush=True)
    print(f"{tried} changes of {len(changes)} possible ones, {survived} survived")


main()
