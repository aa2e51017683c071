"""A Windows of its own under Wine, for the programs that the cross compiler makes."""

import hashlib
import os
import pathlib
import re
import shutil
import ssl
import struct
import subprocess
import tempfile


# Wine has none of the fonts that Windows and Java take for windows; these here have the same or nearly the same widths.
# Windows smooths letters unless told otherwise; unsmoothed, Wine loses the thin capital I.
SCREEN = r"""Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"Arial"="Liberation Sans"
"Courier New"="Liberation Mono"
"MS Shell Dlg"="Liberation Sans"
"MS Shell Dlg 2"="Liberation Sans"
"Segoe UI"="Liberation Sans"

[HKEY_CURRENT_USER\Control Panel\Desktop]
"FontSmoothing"="2"
"FontSmoothingType"=dword:00000002
"FontSmoothingGamma"=dword:00000578
"FontSmoothingOrientation"=dword:00000001
"LogPixels"=dword:{:08x}
"""


class Wine:
    """A fresh Windows with one German user, below a folder that is removed at the end. It enlarges all it shows by `scale`."""

    USER = "Änne Groß"

    def __init__(self, display, scale=1):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pirol-wine-"))
        locales = self.folder / ".locales"  # hidden: the folder is the desktop that file dialogs show
        locales.mkdir()
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", locales / "de_DE.UTF-8"], check=True)
        self.settings = {
            "DISPLAY": display.name, "WINEPREFIX": str(self.folder / "prefix"), "WINEARCH": "win64", "WINEDEBUG": "-all", "HOME": str(self.folder),
            "USER": self.USER, "LOCPATH": str(locales), "LC_ALL": "de_DE.UTF-8",
            # Neither offer to fetch what no test needs, nor put the Windows programs on this machine's own desktop.
            "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=",
        }
        self.environment = {**os.environ, **self.settings}
        # Signs that the keyboard lacks would not arrive.
        subprocess.run(["setxkbmap", "de"], env=self.environment, check=True, stderr=subprocess.DEVNULL)
        subprocess.run(["wineboot", "-i"], env=self.environment, check=True, capture_output=True)
        screen = self.folder / "screen.reg"
        screen.write_text(SCREEN.format(round(96 * scale)))
        subprocess.run(["wine", "regedit", "/S", screen], env=self.environment, check=True, capture_output=True)
        self.end_windows()
        # While a program runs, Windows stays up, and its own services' complaints go here instead of to our programs.
        self.shell = subprocess.Popen(["wine", "cmd"], env=self.environment, stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.shell.stdout.readline()  # as soon as it speaks, all is up
        self.user_folder = self.folder / "prefix" / "drive_c" / "users" / self.USER

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.shell.communicate(b"exit\r\n")
        self.end_windows()
        shutil.rmtree(self.folder)

    def end_windows(self):
        for word in "-k", "-w":  # tell it, and wait for it
            subprocess.run(["wineserver", word], env=self.environment, check=False)

    def run(self, program, *words, **options):
        """Runs a program to its end. Files take what it says: Windows' own services may hold on to a pipe."""
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as errors:
            done = subprocess.run(["wine", str(program), *map(self.path, words)], env=self.environment, stdout=out,
                                  stderr=errors, timeout=120, check=False, **options)
            out.seek(0)
            errors.seek(0)
            return subprocess.CompletedProcess(done.args, done.returncode, out.read(), errors.read())

    def path(self, path):
        """What Windows calls a file of this machine; mere text stays as it is."""
        if not isinstance(path, pathlib.Path):
            return path
        drive_c = self.folder / "prefix" / "drive_c"
        if path.is_relative_to(drive_c):
            return "C:\\" + str(path.relative_to(drive_c)).replace("/", "\\")
        return "Z:" + str(path).replace("/", "\\")

    def registry(self, key):
        """The values of a key and all keys below: (key, name): (type, value). The default value's name is
        "(Standard)". A German console is in code page 850."""
        lines = self.run("reg", "query", key, "/s").stdout.decode("cp850").splitlines()
        values, current = {}, key
        for line in lines:
            if line.startswith("HKEY"):
                current = line.strip()
            elif found := re.fullmatch(r"    (.+?)    (REG_\w+)    ?(.*)", line):
                values[current, found[1]] = found[2], found[3]
        return values

    def trust(self, authority):
        """Has this Windows believe servers for which the authority vouches, given by its certificate (PEM).

        Wine needs that also for an authority that a program brings: Qt hands it over as a PKCS #12 store, and Wine
        reads none that holds no key.
        """
        certificate = ssl.PEM_cert_to_DER_cert(authority.read_text())
        # A certificate is property 32 of itself.
        blob = struct.pack("<III", 32, 1, len(certificate)) + certificate
        key = "HKLM\\Software\\Microsoft\\SystemCertificates\\Root\\Certificates\\" + hashlib.sha1(certificate).hexdigest().upper()
        self.run("reg", "add", key, "/v", "Blob", "/t", "REG_BINARY", "/d", blob.hex(), "/f")
