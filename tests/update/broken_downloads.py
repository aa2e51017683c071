#!/usr/bin/env python3
"""Loads a file of 20 MB again and again; each time the program is killed, or the server cuts the connection, at one to
three random bytes. All must arrive whole, and no byte may be asked for twice: a request begins where the part that is
there ends. ctest runs a few; 100 take some minutes:

    env $(cat build/release/tests/update/environment) tests/update/broken_downloads.py 100 [SEED]
"""
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

from servers import Misbehaving, head
from update_test import PROGRAMS, make_release, settings

SIZE = 20_000_000
PIECE = 16384
BLOCK = 131072  # what Qt and the system have read ahead when a program is killed


class Line:
    """Sends at some speed and notes how much; cuts at a byte."""

    def __init__(self):
        self.cut_at = None
        self.sent = 0

    def answer(self, connection, content, first):
        status = "206 Partial Content" if first else "200 OK"
        connection.sendall(head(status, Content_Length=len(content) - first, ETag='"1"',
                                Content_Range=f"bytes {first}-{len(content) - 1}/{len(content)}"))
        while first < len(content):
            end = min(first + PIECE, len(content))
            if self.cut_at is not None and first <= self.cut_at < end:
                connection.sendall(content[first:self.cut_at])
                self.sent += self.cut_at - first
                self.cut_at = None
                return
            connection.sendall(content[first:end])
            self.sent += end - first
            first = end
            time.sleep(0.0002)


def load(folder, kill_at):
    """One run of the program; killed when the part has reached that size."""
    program = subprocess.Popen([PROGRAMS / "load-http", folder / "update"], env=settings(folder), stdout=subprocess.PIPE, text=True)
    while kill_at is not None and program.poll() is None:
        if max((part.stat().st_size for part in folder.glob("update/*.part")), default=0) >= kill_at:
            program.send_signal(signal.SIGKILL)
            break
        time.sleep(0.001)
    return program.communicate()[0].strip(), program.returncode


def break_off(server, line, folder, content):
    """One download; how many bytes were sent more than once."""
    server.asked.clear()
    line.sent = 0
    breaks = sorted(random.sample(range(1, len(content)), random.randint(1, 3)))
    parts = [0]
    kills = 0
    for at in breaks:
        if random.random() < 0.5:
            kills += 1
            load(folder, at)
            parts.append(max((part.stat().st_size for part in folder.glob("update/*.part")), default=0))
        else:
            line.cut_at = max(at, parts[-1])
    answer, status = load(folder, None)
    if status != 0 or pathlib.Path(answer).read_bytes() != content:
        sys.exit(f"{breaks}: {answer}")
    if not set(parts) <= set(server.asked):
        sys.exit(f"{breaks}: parts of {parts} bytes, but asked from {server.asked}")
    pathlib.Path(answer).unlink()
    return len(breaks), kills, line.sent - len(content)


def main():
    downloads = int(sys.argv[1])
    seed = sys.argv[2] if len(sys.argv) > 2 else str(time.time_ns())
    print("seed", seed)
    random.seed(seed)
    os.environ.pop("http_proxy", None)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        content = random.randbytes(SIZE)
        make_release(folder / "pirol", content)
        line = Line()
        with Misbehaving(folder, line.answer) as server:
            results = [break_off(server, line, folder, content) for _ in range(downloads)]
    breaks, kills, again = (sum(column) for column in zip(*results))
    worst = max(twice / (count or 1) for count, _, twice in results)
    print(f"{downloads} downloads of {SIZE} bytes arrived whole; {breaks} breaks, {kills} of them kills of the program; "
          f"{again} bytes sent again in all, {worst:.0f} per break at most")
    if worst > BLOCK:
        sys.exit("more than a block was fetched again")


if __name__ == "__main__":
    main()
