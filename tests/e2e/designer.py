"""Drives the real designer on a display of its own, with nothing but a mouse and a keyboard."""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import time


class Failure(Exception):
    """What went wrong, ready to be printed."""


class Display:
    """A screen that nobody sees."""

    def __init__(self, size="1280x900"):
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"],
                                       pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class Designer:
    """One run of the program. Titles are regular expressions; positions are pixels of the window in use."""

    PATIENCE = 20  # seconds until something that should appear counts as missing

    def __init__(self, program, display, home, *arguments, scale="1"):
        # A desktop's own dialogs would differ from one machine to the next.
        hidden = ("XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORMTHEME", "QT_QPA_PLATFORM", "WAYLAND_DISPLAY")
        self.environment = {key: value for key, value in os.environ.items() if key not in hidden}
        self.environment |= {"DISPLAY": display.name, "XDG_CONFIG_HOME": str(home / "config"), "HOME": str(home),
                             "XDG_RUNTIME_DIR": str(home), "LANG": "C.UTF-8", "QT_SCALE_FACTOR": scale}
        self.program = subprocess.Popen([program, *map(str, arguments)], env=self.environment, cwd=home)
        self.window = None
        self.use("Pirol$")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.program.poll() is None:
            self.program.send_signal(signal.SIGKILL)
        self.program.wait()

    # --- The windows --------------------------------------------------------------------------------------------

    def xdotool(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True)
        return run.stdout.strip() if run.returncode == 0 else ""

    def windows(self):
        """The visible windows with their titles, by number."""
        found = self.xdotool("search", "--onlyvisible", "--name", "").split()
        return {window: self.xdotool("getwindowname", window) for window in found}

    def wait_for(self, condition, what):
        end = time.monotonic() + self.PATIENCE
        while time.monotonic() < end:
            if result := condition():
                return result
            if self.program.poll() is not None:
                raise Failure(f"the program ended while waiting for {what}")
            time.sleep(0.05)
        raise Failure(f"waited in vain for {what}; windows: {list(self.windows().values())}")

    def use(self, title):
        """Waits for a window and turns to it."""
        def find():
            return next((number for number, name in self.windows().items() if re.search(title, name)), None)
        self.window = self.wait_for(find, f"the window {title!r}")
        time.sleep(0.2)
        self.xdotool("windowfocus", "--sync", self.window)
        time.sleep(0.1)

    def wait_until_gone(self, title):
        self.wait_for(lambda: not any(re.search(title, name) for name in self.windows().values()),
                      f"the end of {title!r}")

    def resize(self, width, height):
        self.xdotool("windowsize", "--sync", self.window, width, height)
        time.sleep(0.3)

    # --- Keyboard and mouse -------------------------------------------------------------------------------------

    def key(self, *names):
        self.xdotool("key", "--delay", "40", *names)
        time.sleep(0.1)

    def type(self, text):
        """Types over what the field in use holds."""
        self.key("ctrl+a")
        if not text:
            self.key("Delete")
        for sign in text:
            self.xdotool("type", "--delay", "15", sign)
        time.sleep(0.1)

    def move(self, x, y):
        self.xdotool("mousemove", "--window", self.window, x, y)
        time.sleep(0.05)

    def click(self, x, y, times=1):
        self.move(x, y)
        self.xdotool("click", "--repeat", times, "--delay", "60", "1")
        time.sleep(0.15)

    def drag(self, left, top, right, bottom):
        self.move(left, top)
        self.xdotool("mousedown", "1")
        for part in (0.3, 0.6, 1):
            self.move(round(left + (right - left) * part), round(top + (bottom - top) * part))
        self.xdotool("mouseup", "1")
        time.sleep(0.15)

    # --- What belongs together ----------------------------------------------------------------------------------

    def choose_file(self, title, path):
        """Types a path into a file dialog and accepts it."""
        self.use(title)
        self.type(str(path))
        self.key("Return")
        self.wait_until_gone(title)
        self.use("Pirol$")

    def wait_for_end(self):
        try:
            return self.program.wait(self.PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None

    def picture(self, path, window=None):
        """Saves what a window shows."""
        self.xdotool("mousemove", 1270, 890)
        time.sleep(0.3)
        tool = shutil.which("import")
        if tool is None:
            raise Failure("import (ImageMagick) is missing")
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        subprocess.run([tool, "-window", window or self.window, str(path)], env=self.environment, check=True)
