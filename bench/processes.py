"""Runs of whole programs: processor time, peak memory and, for a window, the time until it is painted."""

import math
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from Xlib import display
from Xlib.ext import damage


class Generating:
    """A program that ends by itself: seconds of processor time, or stopped when it needed more than the patience."""

    painted = None

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
        screen = Screen()
        started = time.monotonic()
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
            self.painted = screen.last_change() - started
        finally:
            process.kill()
            process.wait()
            screen.close()
            shutil.rmtree(Path(os.environ["XDG_STATE_HOME"]) / "pirol", ignore_errors=True)


class Screen:
    """The display as another program paints on it."""

    def __init__(self):
        self._display = display.Display()
        self._display.damage_query_version()
        self._display.screen().root.damage_create(damage.DamageReportRawRectangles)
        self._display.sync()

    def last_change(self):
        """Seconds on the monotonic clock, which is the one that an X server on this machine stamps events with."""
        stamps = []
        while self._display.pending_events():
            event = self._display.next_event()
            if event.type == self._display.extension_event.DamageNotify:
                stamps.append(event.timestamp)
        return stamps[-1] / 1000 if stamps else math.nan

    def close(self):
        self._display.close()


def processor_time(pid):
    """Seconds, to the nanosecond, of all threads that the process has or had."""
    scheduler_clock_of_process = ~pid << 3 | 2  # as clock_getcpuclockid(3) has it
    return time.clock_gettime(scheduler_clock_of_process)


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
        self.painted = statistics.median(run.painted for run in runs) if runs[0].painted else None


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
