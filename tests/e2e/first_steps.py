#!/usr/bin/env python3
"""A pupil's first steps in the real program, with mouse and keyboard under Xvfb: draw a button, switch its event
"Geklickt" on, generate the source, and read it in the viewer.

Usage: first_steps.py PIROL
"""
import os
import re
import subprocess
import sys
import tempfile
import time

# The button is drawn 178 x 46 and snaps to the grid.
EXPECTED = (r'        hatKnopf1 = new Knopf\(\d+0, \d+0, 180, 50, "Knopf"\);\n'
            r'        hatKnopf1\.setzeBearbeiterGeklickt\("hatKnopf1Geklickt"\);\n')
PATIENCE_SECONDS = 20


def start_display():
    """An X server on a display number of its own choice; the server and the display's name."""
    read_end, write_end = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x900x24", "-nolisten", "tcp",
                               "-noreset"], pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as numbers:
        return server, ":" + numbers.readline().strip()


def tool(*words):
    return subprocess.run(words, capture_output=True, text=True, timeout=PATIENCE_SECONDS, check=False).stdout


def until(condition, what):
    """What the condition gives as soon as it gives something; ends the test when it never does."""
    deadline = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < deadline:
        result = condition()
        if result:
            return result
        time.sleep(0.1)
    sys.exit(f"never happened: {what}")


def window_titled(title):
    return until(lambda: tool("xdotool", "search", "--onlyvisible", "--name", title).split(), f"window {title}")[-1]


def mouse(*words):
    tool("xdotool", *words)
    time.sleep(0.2)


def copied_source():
    """What is on the clipboard after marking and copying everything in the viewer."""
    mouse("key", "ctrl+a")
    mouse("key", "ctrl+c")
    text = tool("xclip", "-o", "-selection", "clipboard")
    return text if "SuMAnwendung" in text else ""


def first_steps():
    # Without a window manager every window opens in the corner of the screen, and the layout is the program's own.
    window = window_titled("Neues Projekt")
    tool("xdotool", "windowfocus", window)
    mouse("mousemove", "60", "85", "click", "1")  # the toolbar's second button
    mouse("mousemove", "400", "250", "mousedown", "1")
    mouse("mousemove", "450", "270")
    mouse("mousemove", "578", "296", "mouseup", "1")
    mouse("key", "Return")  # into the property list
    mouse("key", "End")
    mouse("key", "Up")
    mouse("key", "Up")  # from the last event to the first
    mouse("key", "space")
    mouse("key", "F5")
    window_titled("SuMAnwendung.java")
    return until(copied_source, "a copied source")


def main():
    server, os.environ["DISPLAY"] = start_display()
    with tempfile.TemporaryDirectory() as home:
        environment = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home, "XDG_STATE_HOME": home}
        program = subprocess.Popen([sys.argv[1]], env=environment, stderr=subprocess.DEVNULL)
        try:
            source = first_steps()
        finally:
            program.kill()
            program.wait()
            server.terminate()
            server.wait()
    if not re.search(EXPECTED, source) or "    public void hatKnopf1Geklickt()\n" not in source:
        sys.exit("wrong source:\n" + source)


if __name__ == "__main__":
    main()
