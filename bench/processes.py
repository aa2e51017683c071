"""Runs of whole programs: processor time and peak memory."""

import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path


class Generating:
    """A program that ends by itself: seconds of processor time, or stopped when it needed more than the patience."""

    def __init__(self, command, patience):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        resource.prlimit(process.pid, resource.RLIMIT_CPU, (patience, patience + 1))
        message = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.stderr.close()
        process.returncode = os.waitstatus_to_exitcode(status)
        self.cpu = usage.ru_utime + usage.ru_stime
        self.stopped = os.WIFSIGNALED(status)
        if process.returncode > 0:
            sys.exit(f"{' '.join(map(str, command))} ended with {process.returncode}: {message.decode()}")
        self.memory = 0 if self.stopped else peak_memory(command)


class Opening:
    """A program that shows a window: what it has used when it is idle. It is killed then, as after a power cut."""

    IDLE_SECONDS = 1.5
    POLL_SECONDS = 0.1
    # A cursor that blinks or a timer that ticks is no work.
    IDLE_SHARE = 0.05

    def __init__(self, command, patience):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            busy, used, self.cpu = time.monotonic(), 0.0, 0.0
            while time.monotonic() - busy < self.IDLE_SECONDS and self.cpu < patience:
                time.sleep(self.POLL_SECONDS)
                if process.poll() is not None:
                    sys.exit(f"{command[0]} ended by itself")
                self.cpu = processor_time(process.pid)
                if self.cpu > used + self.IDLE_SHARE * self.POLL_SECONDS:
                    used, busy = self.cpu, time.monotonic()
            self.stopped = self.cpu >= patience
            self.memory = peak_memory_of_running(process.pid)
        finally:
            process.kill()
            process.wait()
            shutil.rmtree(Path(os.environ["XDG_STATE_HOME"]) / "pirol", ignore_errors=True)


def processor_time(pid):
    """Seconds, to the nanosecond: the scheduler's own account of every thread."""
    threads = Path(f"/proc/{pid}/task").glob("*/schedstat")
    return sum(int(thread.read_text(encoding="ascii").split()[0]) for thread in threads) / 1e9


def peak_memory_of_running(pid):
    """Bytes."""
    status = Path(f"/proc/{pid}/status").read_text(encoding="utf-8")
    return int(status.split("VmHWM:")[1].split()[0]) * 1024


def peak_memory(command):
    """Bytes. GNU time starts the program, as a child of this one would begin with its memory."""
    with tempfile.NamedTemporaryFile() as report:
        subprocess.run(["/usr/bin/time", "-q", "-f", "%M", "-o", report.name, *map(str, command)], check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return int(Path(report.name).read_text(encoding="ascii")) * 1024


class Medians:
    def __init__(self, runs):
        self.cpu = statistics.median(run.cpu for run in runs)
        self.memory = statistics.median(run.memory for run in runs)


def measure(kind, commands, runs, patience):
    """The medians of some commands, None for one that was stopped; the commands take turns."""
    taken = [[] for _ in commands]
    for _ in range(runs):
        for done, command in zip(taken, commands):
            if command is None or any(run.stopped for run in done):
                continue
            # Whoever needs that long is not run again and again.
            if done and done[0].cpu > patience / 10:
                continue
            done.append(kind(command, patience))
    return [Medians(done) if done and not done[-1].stopped else None for done in taken]
