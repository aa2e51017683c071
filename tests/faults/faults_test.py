#!/usr/bin/env python3
"""Makes every file call and every allocation of Pirol fail in turn, and kills it at every file call.

First an undisturbed run counts the calls. Then, for each call, one run in which it fails with each of several errors, one
in which all calls from there on fail, and one that is killed there. Each run must end by itself with status 0 or 1 and
a German message; the files must be the old or the new ones, whole, with nothing beside them.

Usage: faults_test.py FAULTS_LIBRARY STEP PROGRAM...
    STEP       1 for everything, else a sample: only every STEP-th allocation, and one way at each call
    PROGRAM    pirol-cli, run_operation, run_window_operation; what the sanitizers say of one is wrong, too
"""
import collections
import concurrent.futures
import errno
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import typing

LIBRARY = str(pathlib.Path(sys.argv[1]).resolve())
STEP = int(sys.argv[2])
PROGRAMS = [pathlib.Path(word).resolve() for word in sys.argv[3:]]
DATA = pathlib.Path(__file__).resolve().parents[1] / "data"
# The number with which Pirol must tell each of the system's errors.
NUMBERS = {errno.ENOSPC: 61, errno.EACCES: 70, errno.EROFS: 70, errno.EIO: 57, errno.EMFILE: 67,
           errno.EDQUOT: 61, errno.EINTR: 75}
ERRORS = list(NUMBERS)
OUT_OF_MEMORY, FILE_NOT_FOUND, DEVICE_ERROR = 7, 53, 57
KILLED = 0
SANITIZERS = "verify_asan_link_order=0:alloc_dealloc_mismatch=0"
PATIENCE = 60
PREFERENCES = "config/Pirol/registry.conf"
REGISTRY = '[Software\\Pirol]\n"GridColor"=dword:00000000\n"GridStyle"=dword:00000000\n"BlueJPath"="/alt"\n'


class Case(typing.NamedTuple):
    program: pathlib.Path
    call: str

    def command(self, folder):
        return [self.program, *(folder + word if word.startswith("/") else word for word in self.call.split())]

    def __str__(self):
        return f"{self.program.name} {self.call}"


CALLS = [line.split(" | ") for line in (DATA / "tables" / "fault-calls.txt").read_text().splitlines()[1:]]
CASES = [Case(program, call) for program in PROGRAMS for name, call in CALLS if name == program.name]


class Result(typing.NamedTuple):
    status: int
    output: bytes
    message: str
    files: dict


def prepare(folder):
    """The files that every run begins with."""
    example = DATA / "generate" / "all-events"
    shutil.copy(example / "design.prl", folder / "design.prl")
    shutil.copy(example / "expected.java", folder / "SuMAnwendung.java")
    shutil.copy(DATA / "generate" / "empty" / "design.prl", folder / "old.prl")
    (folder / "old.java").write_bytes(b"// old\r\n" * 10000)
    shutil.copy(DATA / "generate" / "empty" / "expected.java", folder / "pupil.java")
    for version in ("", "1"):
        (folder / f"pupil.java.bak{version}").write_text(f"// version {version}\n")
    (folder / "link.prl").symlink_to("old.prl")
    (folder / "config" / "Pirol").mkdir(parents=True)
    (folder / PREFERENCES).write_text(REGISTRY)


def environment(folder):
    return {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "XDG_CONFIG_HOME": f"{folder}/config",
            "XDG_STATE_HOME": f"{folder}/state", "XDG_RUNTIME_DIR": str(folder.parent), "QT_QPA_PLATFORM": "offscreen",
            "QT_LOGGING_RULES": "*=false"}


def files_in(folder):
    """What the folder holds; locks of recovery files, which may stay, do not count."""
    return {str(path.relative_to(folder)): "a link" if path.is_symlink() else path.read_bytes()
            for path in folder.rglob("*") if not path.is_dir() and path.suffix != ".lock"}


def run(case, **faults):
    with tempfile.TemporaryDirectory(prefix="pirol-faults-") as name:
        folder = pathlib.Path(name).resolve() / "files"
        folder.mkdir()
        prepare(folder)
        if case.call == "restore /":
            subprocess.run([case.program, "keep", folder], env=environment(folder), check=True)
        variables = {f"FAULTS_{key}": str(value) for key, value in faults.items()}
        done = subprocess.run(case.command(str(folder)), capture_output=True, timeout=PATIENCE, check=False,
                              env=environment(folder) | {"LD_PRELOAD": LIBRARY, "ASAN_OPTIONS": SANITIZERS, "FAULTS_FOLDER": str(folder)} | variables)
        files = files_in(folder)
        # A kept design has a name of its own in each run.
        files = {re.sub(r"1-\d+\.kept", "1.kept", path): data for path, data in files.items()}
        if case.call in ("keep /", "restore /"):
            files = files_without_recovery(case, folder, files)
        if "--all" in case.call and done.returncode == 0:
            return Result(0, done.stdout + done.stderr, "", files)  # its report is no complaint
        return Result(done.returncode, done.stdout, done.stderr.decode(), files)


def files_without_recovery(case, folder, files):
    """Sees what the next start makes of the recovery files: it reads them and clears away what was half written."""
    restored = subprocess.run([case.program, "restore", folder], env=environment(folder), capture_output=True, check=False)
    possible = [b"new\n"] if case.call == "restore /" else [b"", b"\n", b"new\n"]
    if restored.returncode != 0 or restored.stdout not in possible:
        return {"damaged recovery file": restored.stdout + restored.stderr}
    if any(name.endswith(".tmp") for name in files_in(folder)):
        return files_in(folder)
    return {name: data for name, data in files.items() if not name.startswith("state/")}


def count(case):
    """The names of the file calls and the number of allocations of an undisturbed run."""
    with tempfile.NamedTemporaryFile("r") as report:
        result = run(case, REPORT=report.name)
        if result.status not in (0, 1) or result.message:
            sys.exit(f"{case}: undisturbed: {result.status}: {result.message}")
        *names, allocations = report.read().split("\n")[:-1]
        return result, names, int(allocations)


def is_mixture(data, old, new):
    """Preferences are stored one by one, each as a whole."""
    lines = [text.split(b"\n") for text in (data, old, new)]
    return len({len(text) for text in lines}) == 1 and all(line in others for line, *others in zip(*lines))


def keeps_versions(files, before, undisturbed):
    """Whether an update that was broken off left the source old or new, and every version of it somewhere beside it."""
    def others(some):
        return {path: data for path, data in some.items() if not path.startswith("pupil.java")}
    old, new = before["pupil.java"], undisturbed["pupil.java"]
    kept = [data for path, data in files.items() if path.startswith("pupil.java.bak")]
    versions = [data for path, data in before.items() if path.startswith("pupil.java.bak")]
    return (others(files) == others(before) and files.get("pupil.java") in (old, new)
            and all(version in kept for version in versions) and set(kept) <= {old, *versions}
            and (files["pupil.java"] == old or old in kept))


def faults_of(case, names, allocations):
    """All faults, each with the name of what is disturbed."""
    for number, name in enumerate(names, 1):
        ways = [{"ERROR": error, **more} for error in ERRORS for more in ({}, {"LASTING": 1})] + [{"ERROR": KILLED}]
        for way in ways if STEP == 1 else [ways[number * 4 % len(ways)]]:
            yield name, {"FILE": number, **way}
    if case.program.name == "run_window_operation":
        return  # the window toolkit ends the program when it finds no memory
    for number in range(1, allocations + 1, STEP):
        yield "allocation", {"MEMORY": number}
        yield "allocation", {"MEMORY": number, "LASTING": 1}


def complaint(case, before, undisturbed, name, fault):
    """What is wrong with one run; None when it is right."""
    try:
        result = run(case, **fault)
    except subprocess.TimeoutExpired:
        return "hangs"
    killed = fault.get("ERROR") == KILLED
    if killed != (result.status == -9) or (not killed and result.status not in (0, 1)):
        return f"ends with {result.status}: {result.message}"
    if not killed and (undisturbed.status == 0 or result.output != undisturbed.output):
        # What cannot be looked at may count as missing, and standard output is a device.
        numbers = [NUMBERS.get(fault.get("ERROR"), OUT_OF_MEMORY), *[FILE_NOT_FOUND] * (name == "stat"),
                   *[DEVICE_ERROR] * bool(undisturbed.output)]
        if result.status == 1 and not re.fullmatch(rf"Fehler ({'|'.join(map(str, numbers))}): [A-ZÄÖÜ].*\n", result.message):
            return f"no clear message: {result.message!r}"
        if result.status == 0 and result.message:
            return f"a message without need: {result.message!r}"
    if result.status == 0 and result.output != undisturbed.output and case.call != "restore /":
        return f"another output: {result.output!r}"
    files = result.files
    # A killed program, or one that may not remove files, leaves what it had begun to write.
    if killed or name == "unlink":
        files = {path: data for path, data in files.items() if not path.endswith(".tmp") and not path.startswith("BlueJ/")}
    if files == undisturbed.files or (result.status != 0 and files == before):
        return None
    if case.call.startswith("update ") and result.status != 0:
        files = {path: data for path, data in files.items() if not path.endswith((".tmp", ".neu"))} if killed else files
        if keeps_versions(files, before, undisturbed.files):
            return None
    old, new = before[PREFERENCES], undisturbed.files[PREFERENCES]
    if old != new and files | {PREFERENCES: old} == before and is_mixture(files[PREFERENCES], old, new):
        return None
    changed = {path: data[:80] for path, data in files.items() if data != before.get(path)}
    return f"status {result.status}, wrong files: {changed}; missing: {before.keys() - files.keys()}"


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        prepare(folder)
        before = files_in(folder)
    wrong, injected = 0, collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for case in CASES:
            undisturbed, names, allocations = count(case)
            faults = list(faults_of(case, names, allocations))
            complaints = pool.map(lambda pair: complaint(case, before, undisturbed, *pair), faults)
            for (disturbed, fault), text in zip(faults, complaints):
                injected[disturbed] += 1
                if text:
                    wrong += 1
                    print(f"{case}: {disturbed} {fault}: {text}")
            print(f"{case}: {len(names)} file calls, {allocations} allocations, {len(faults)} runs", flush=True)
    print(f"{injected.total()} runs, {wrong} of them wrong; disturbed: " +
          ", ".join(f"{name} {number}" for name, number in injected.most_common()))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
