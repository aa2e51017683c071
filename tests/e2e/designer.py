"""Drives the real designer on a display of its own, with nothing but a mouse and a keyboard."""

import itertools
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import time


KEYS = {"Return", "Home", "End", "Up", "Down", "Tab", "shift+Tab", "Insert", "space", "Escape"}
MODIFIERS = {"alt+", "ctrl+"}


class Failure(Exception):
    """What went wrong, ready to be printed."""


class Display:
    """A screen that nobody sees, with a German keyboard."""

    def __init__(self, size="1280x900"):
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"],
                                       pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        # Letters that are on the keyboard need no change of the keyboard while they are typed.
        subprocess.run(["setxkbmap", "-display", self.name, "de"], check=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class Designer:
    """One run of the program. Titles are regular expressions; positions are pixels of the window in use. With a Windows
    (wine.Wine) the program is one for Windows and runs there.

    The display server hands keys and clicks to the program in their order, however slow it is, so nothing waits between
    them. Waiting is needed where a window opens or closes, a menu too: the focus must be there before a key is pressed.
    A button that is pressed by its mnemonic acts a moment later than the next key; press such buttons with Enter or
    Space.
    """

    PATIENCE = 60  # seconds until something that should appear counts as missing

    def __init__(self, program, display, home, *arguments, scale="1", state=None, wine=None):
        # Each run ends by force. Unless a folder is given for it, no later run shall be offered what this one left.
        self.forgotten = tempfile.TemporaryDirectory() if state is None else None
        # A desktop's own dialogs would differ from one machine to the next.
        hidden = ("XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORMTHEME", "QT_QPA_PLATFORM", "WAYLAND_DISPLAY")
        self.environment = {key: value for key, value in os.environ.items() if key not in hidden}
        self.environment |= {"DISPLAY": display.name, "XDG_CONFIG_HOME": str(home / ".config"),
                             "XDG_STATE_HOME": str(state or self.forgotten.name), "HOME": str(home),
                             "XDG_RUNTIME_DIR": str(home), "LANG": "C.UTF-8", "QT_SCALE_FACTOR": scale}
        self.path = wine.path if wine else str
        self.on_windows = wine is not None
        command = [program, *map(self.path, arguments)]
        if wine:
            self.environment |= wine.settings
            command = ["wine", *command]
        self.program = subprocess.Popen(command, env=self.environment, cwd=home)
        self.window = None
        self.use("Pirol$")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.program.poll() is None:
            self.program.send_signal(signal.SIGKILL)
        self.program.wait()
        if self.forgotten:
            self.forgotten.cleanup()

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
        self.focus()

    def focus(self):
        """Gives the window in use the keyboard. There is no window manager that would."""
        self.wait_for(lambda: self.xdotool("windowfocus", self.window) or
                      self.xdotool("getwindowfocus", "-f") == self.window, "the focus")

    def wait_until_gone(self, title):
        self.wait_for(lambda: not any(re.search(title, name) for name in self.windows().values()),
                      f"the end of {title!r}")

    def back_from(self, title):
        """Waits until a window is gone and turns to the main window."""
        self.wait_until_gone(title)
        self.use("Pirol$")

    def size(self):
        geometry = self.xdotool("getwindowgeometry", "--shell", self.window)
        return tuple(int(re.search(rf"{side}=(\d+)", geometry)[1]) for side in ("WIDTH", "HEIGHT"))

    # --- Keyboard and mouse -------------------------------------------------------------------------------------

    def key(self, *names):
        self.xdotool("key", *names)

    def write(self, text):
        """Types where the cursor is."""
        self.xdotool("type", text)

    def do(self, steps):
        """Presses keys and types words, with a blank after each step; the steps of tests/Tables.h but for "@"."""
        for are_keys, group in itertools.groupby(steps.split(" "), lambda step: step in KEYS or step[:-1] in MODIFIERS):
            self.key(*group) if are_keys else self.write("".join(group))

    def type(self, text):
        """Types over what the field in use holds."""
        self.key("ctrl+a")
        if text and self.on_windows:
            self.paste(text)
        else:
            self.write(text) if text else self.key("Delete")

    def paste(self, text):
        """For signs that are lost now and then on their way through Wine's keyboard."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=text, text=True, env=self.environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(0.3)
        self.key("ctrl+v")

    def move(self, x, y):
        self.xdotool("mousemove", "--window", self.window, round(x), round(y))

    def click(self, x, y):
        self.move(x, y)
        self.xdotool("click", "1")

    def drag(self, left, top, right, bottom):
        self.move(left, top)
        self.xdotool("mousedown", "1")
        for part in (0.3, 0.6, 1):
            self.move(left + (right - left) * part, top + (bottom - top) * part)
        self.xdotool("mouseup", "1")

    # --- What belongs together ----------------------------------------------------------------------------------

    def choose(self, menu, entry):
        """Chooses an entry of the main menu by their keys. What is typed while the menu closes would be lost with it."""
        before = set(self.windows())
        self.key(menu)
        popup = self.wait_for(lambda: set(self.windows()) - before, f"the menu {menu}")
        self.key(entry)
        self.wait_for(lambda: not popup & set(self.windows()), f"the end of the menu {menu}")

    def choose_file(self, title, path):
        """Types a path into a file dialog and accepts it."""
        self.use(title)
        self.type(self.path(path))
        self.key("Return")
        self.back_from(title)

    def save(self, path):
        """Saves the project, and waits until it is saved."""
        self.key("ctrl+s")
        self.choose_file("Projekt speichern", path)
        self.use(f"^{path.name} -")

    def end(self):
        self.key("ctrl+q")
        if status := self.wait_for_end():
            raise Failure(f"the program ended with status {status}")

    def clipboard(self, part):
        """The text on the clipboard when it holds this part."""
        run = subprocess.run(["xclip", "-o", "-selection", "clipboard"], env=self.environment, capture_output=True, check=False)
        text = run.stdout.decode(errors="replace")
        return text if part in text else None

    def wait_for_end(self):
        try:
            return self.program.wait(self.PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None
