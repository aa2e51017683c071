#!/usr/bin/env python3
"""Runs what packaging/windows/build made under Wine, as a German user whose name has umlauts and a blank, and compares it
with the same program on this machine.

Usage: windows_test.py PIROL_CLI_OF_THIS_MACHINE [unittest's options]
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "windows"
sys.path += [str(ROOT / "tests" / "e2e"), str(ROOT / "tests" / "update")]
os.environ.update(line.split("=", 1) for line in (BUILD / "tests" / "update" / "environment").read_text().splitlines())
from designer import Designer, Display  # noqa: E402
from servers import KEYS, Apache  # noqa: E402
from wine import Wine  # noqa: E402

CLI = BUILD / "Pirol" / "pirol-cli.exe"
PIROL = BUILD / "Pirol" / "Pirol.exe"
HOST_CLI = pathlib.Path(sys.argv[1]).resolve()
EXAMPLES = sorted((ROOT / "examples").glob("*.prl"))
QUIZ = ROOT / "examples" / "Quiz.prl"
KEY = r"HKEY_CURRENT_USER\Software\Pirol"
MEGABYTE = 1 << 20

# What every Windows has from version 10 on.
SYSTEM_LIBRARIES = set("""
    advapi32.dll api-ms-win-core-synch-l1-2-0.dll api-ms-win-core-winrt-l1-1-0.dll
    api-ms-win-core-winrt-string-l1-1-0.dll authz.dll bcrypt.dll comdlg32.dll crypt32.dll d3d11.dll d3d9.dll
    dnsapi.dll dwmapi.dll dwrite.dll dxgi.dll gdi32.dll imm32.dll iphlpapi.dll kernel32.dll msvcrt.dll ncrypt.dll
    netapi32.dll ole32.dll oleaut32.dll secur32.dll shcore.dll shell32.dll shlwapi.dll user32.dll userenv.dll
    uxtheme.dll version.dll winhttp.dll winmm.dll winspool.drv ws2_32.dll wtsapi32.dll""".split())


def setUpModule():
    global display, wine
    display = unittest.enterModuleContext(Display())
    wine = unittest.enterModuleContext(Wine(display))


def host(*words):
    return subprocess.run([HOST_CLI, *words], capture_output=True, check=False)


def uninstall(home):
    """The uninstaller goes on by itself when it has copied itself out of the way."""
    wine.run(home / "Deinstallieren.exe", "/S")
    end = time.monotonic() + 20
    while home.exists() and time.monotonic() < end:
        time.sleep(0.1)


def content(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


class WindowsTest(unittest.TestCase):
    def setUp(self):
        self.folder = wine.user_folder / self.id().rsplit(".", 1)[1]
        self.folder.mkdir()


class FilesTest(unittest.TestCase):
    """What can be said of the files without running them."""

    def test_programs_need_nothing_but_windows(self):
        for program, subsystem in (PIROL, "Windows GUI"), (CLI, "Windows CUI"):
            listing = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], capture_output=True, text=True,
                                     check=True).stdout
            needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", listing)}
            self.assertLessEqual(needed, SYSTEM_LIBRARIES)
            self.assertIn("kernel32.dll", needed)
            self.assertRegex(listing, rf"Subsystem\s+\w+\s+\({subsystem}\)")

    def test_sizes(self):
        for file in PIROL, CLI, BUILD / "Pirol-Setup.exe", BUILD / "Pirol.zip":
            self.assertLess(file.stat().st_size, 25 * MEGABYTE, file)

    def test_resources(self):
        def resource(kind):
            return subprocess.run(["wrestool", "--extract", "--raw", f"--type={kind}", PIROL], capture_output=True,
                                  check=True).stdout
        manifest = resource(24).decode()
        for part in "PerMonitorV2", "Microsoft.Windows.Common-Controls", 'level="asInvoker"':
            self.assertIn(part, manifest)
        version = re.search(r"pirol-cli (\S+)\n", host("--version").stdout.decode())[1]
        self.assertRegex(resource(16).decode("utf-16-le"), rf"ProductVersion\0+{version}\0")
        self.assertTrue(resource(14), "the icon")


class CommandLineTest(WindowsTest):
    def assert_same(self, *words):
        """Both tools answer the same."""
        ours, theirs = wine.run(CLI, *words), host(*words)
        self.assertEqual((ours.returncode, ours.stdout, ours.stderr), (theirs.returncode, theirs.stdout, theirs.stderr), words)

    def test_unit_tests(self):
        result = wine.run(BUILD / "tests" / "core-tests.exe", "--gtest_brief=1", cwd=ROOT)
        self.assertEqual(result.returncode, 0, result.stdout.decode())
        self.assertRegex(result.stdout, rb"\[==========\] 1\d\d tests .*\r?\n\[  PASSED  \]")

    def test_the_same_bytes_as_on_this_machine(self):
        for example in EXAMPLES:
            for flags in [], ["--menu"], ["--sql"], ["--menu", "--sql"]:
                self.assert_same("generate", example, *flags)
                self.assert_same("lint", example, *flags)
            self.assert_same("check", example)
            self.assert_same("hash", example)
            for words in (["import", example.with_suffix(".java"), "-o"], ["copy", example]):
                ours, theirs = self.folder / "Größe – Ω.prl", self.folder / "theirs.prl"
                self.assertEqual(wine.run(CLI, *words, ours).returncode, 0)
                self.assertEqual(host(*words, theirs).returncode, 0)
                self.assertEqual(ours.read_bytes(), theirs.read_bytes(), words)
            ours, theirs = self.folder / f"Übung {example.stem}", self.folder / example.stem
            self.assertEqual(wine.run(CLI, "export", example, ours, "--menu").returncode, 0)
            self.assertEqual(host("export", example, theirs, "--menu").returncode, 0)
            self.assertEqual(content(ours), content(theirs))

    def test_errors(self):
        damaged, java = self.folder / "damaged.prl", self.folder / "a.java"
        damaged.write_bytes(QUIZ.read_bytes() + b"x")
        java.write_bytes(b"old")
        for words in ([], ["paint"], ["generate", self.folder], ["generate", self.folder / "none"], ["hash", damaged / "x"],
                      ["generate", damaged, "-o", java], ["export", QUIZ, self.folder],
                      ["export", QUIZ, self.folder / "no" / "folder"], ["copy", QUIZ, self.folder / "no" / "file"]):
            self.assert_same(*words)
        self.assertEqual(java.read_bytes(), b"old")

    def test_paths_longer_than_windows_takes(self):
        long = self.folder.joinpath(*["x" * 50] * 6)
        for words, message in ((["hash", long], "Fehler 52: Dateiname oder -nummer falsch\n"),
                               (["generate", long], "Fehler 52: Dateiname oder -nummer falsch (Main.File.PRL.ReadPRLFile)\n"),
                               (["copy", QUIZ, long],
                                "Fehler 52: Dateiname oder -nummer falsch (Main.File.PRL.GeneratePRLCode)\n"),
                               (["export", QUIZ, long], "Fehler 76: Pfad nicht gefunden (Main.Project.Export)\n")):
            result = wine.run(CLI, *words)
            self.assertEqual((result.returncode, result.stderr.decode()), (1, message), words)


class DesignerTest(WindowsTest):
    MAIN = "Pirol$"

    def setUp(self):
        super().setUp()
        wine.run("reg", "delete", KEY, "/f")

    def designer(self, *arguments):
        return self.enterContext(Designer(PIROL, display, self.folder, *arguments, wine=wine))

    def end(self, designer):
        designer.use(self.MAIN)
        designer.key("ctrl+q")
        self.assertEqual(designer.wait_for_end(), 0)

    def test_a_design_is_drawn_saved_and_exported(self):
        project, saved, exported = (self.folder / name for name in ("Quiz 1.prl", "Übung 2.prl", "Mein Größtes"))
        shutil.copy(QUIZ, project)
        blue_j = self.folder / "Blue J"
        blue_j.mkdir()
        shutil.copy(BUILD / "tests" / "bluej.exe", blue_j)

        designer = self.designer(project)
        designer.use(r"^Quiz 1\.prl - Pirol$")
        self.set_preferences(designer, wine.path(blue_j / "bluej.exe"))
        designer.click(60, 165)  # the toolbar's second button
        designer.drag(700, 300, 880, 370)  # where the quiz has nothing
        designer.key("ctrl+s")
        designer.choose_file("Projekt speichern", saved)
        designer.key("ctrl+b")
        designer.choose_file("BlueJ-Projekt exportieren", exported)
        start = blue_j / "start.txt"
        designer.wait_for(start.exists, "BlueJ's start")
        self.end(designer)

        # Minimised (2). Windows itself puts quotes around a program's path that holds blanks.
        self.assertEqual(start.read_text(), f'2 "{wine.path(blue_j / "bluej.exe")}" "{wine.path(exported)}"')
        buttons = [int(re.search(rb"Knopf: (\d+)", host("check", file).stdout)[1]) for file in (project, saved)]
        self.assertEqual(buttons[1], buttons[0] + 1)
        expected, again = self.folder / "expected", self.folder / "again.prl"
        host("copy", saved, again)  # reading swaps the two kinds of text area, reading twice does not
        host("export", again, expected)
        self.assertEqual(content(exported), content(expected))

    def set_preferences(self, designer, blue_j):
        designer.key("alt+d")
        designer.key("o")
        designer.use("Optionen")
        designer.key("alt+k")
        designer.key("alt+r")
        designer.type(blue_j)
        designer.key("Return")
        designer.wait_until_gone("Optionen")
        designer.use(self.MAIN)
        held = wine.registry(KEY)
        self.assertEqual({name: held[KEY, name] for name in ("GridColor", "GridStyle", "BlueJPath")},
                         {"GridColor": ("REG_DWORD", "0x0"), "GridStyle": ("REG_DWORD", "0x1"), "BlueJPath": ("REG_SZ", blue_j)})

    def test_a_colour_that_is_text_is_black(self):
        for name, kind, value in (("GridColor", "REG_SZ", "255"), ("GridStyle", "REG_DWORD", "2")):
            wine.run("reg", "add", KEY, "/v", name, "/t", kind, "/d", value)
        self.assertEqual(wine.registry(KEY)[KEY, "GridColor"], ("REG_SZ", "255"))
        designer = self.designer()
        designer.key("alt+d")
        designer.key("o")
        designer.use("Optionen")
        designer.key("alt+n")
        designer.use("^Pirol$")  # the warning that there is no BlueJ
        designer.key("Return")
        designer.wait_until_gone("Optionen")
        self.assertEqual(wine.registry(KEY)[KEY, "GridColor"], ("REG_DWORD", "0x0"))
        self.assertEqual(wine.registry(KEY)[KEY, "GridStyle"], ("REG_DWORD", "0x2"))
        self.end(designer)

    def test_what_a_killed_program_held_is_offered(self):
        project = self.folder / "Quiz.prl"
        shutil.copy(QUIZ, project)
        kept = wine.user_folder / "AppData" / "Local" / "Pirol" / "Recovery"
        with Designer(PIROL, display, self.folder, project, wine=wine) as designer:
            designer.use(r"^Quiz\.prl - Pirol$")
            designer.click(60, 165)  # the toolbar's second button
            designer.drag(700, 300, 880, 370)
            designer.wait_for(lambda: list(kept.glob("*.design")), "the kept design")
        designer = self.designer()
        designer.use("Wiederherstellung")
        designer.key("Return")
        designer.use(r"^Quiz\.prl\* - Pirol$")
        self.end(designer)
        self.assertEqual(list(kept.iterdir()), [])

    def test_a_path_longer_than_windows_takes_is_reported(self):
        designer = self.designer(self.folder.joinpath(*["x" * 50] * 6))
        designer.use("Fehlermeldung")
        designer.key("Escape")
        self.end(designer)


class InstallerTest(WindowsTest):
    def files(self):
        """All of the user's, but what Windows removes itself at the next start."""
        temporary = wine.user_folder / "Temp"
        return {path for path in wine.user_folder.rglob("*") if not path.is_relative_to(temporary)}

    def test_installs_associates_and_leaves_no_trace(self):
        work = self.folder / "Mein Quiz.prl"
        shutil.copy(QUIZ, work)
        shutil.rmtree(wine.user_folder / "AppData" / "Local" / "Pirol", ignore_errors=True)  # of other tests
        before, classes = self.files(), r"HKEY_CURRENT_USER\Software\Classes"
        wine.run("reg", "add", classes + r"\.prl", "/ve", "/d", "Other.Program")

        self.assertEqual(wine.run(BUILD / "Pirol-Setup.exe", "/S").returncode, 0)
        home = wine.user_folder / "AppData" / "Local" / "Programs" / "Pirol"
        self.assertEqual((home / "Pirol.exe").read_bytes(), PIROL.read_bytes())
        self.assertTrue(list(wine.user_folder.rglob("Start Menu/Programs/Pirol.lnk")))
        self.assertEqual(wine.registry(classes)[classes + r"\Pirol.Projekt\shell\open\command", "(Standard)"],
                         ("REG_SZ", f'"{wine.path(home / "Pirol.exe")}" "%1"'))
        uninstall = wine.registry(r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Uninstall\Pirol")
        self.assertIn(("REG_SZ", "Pirol"), uninstall.values())

        # Wine looks up no associations of a user's own, so the double click's command is called by hand.
        with Designer(home / "Pirol.exe", display, self.folder, work, wine=wine) as designer:
            designer.use(r"^Mein Quiz\.prl - Pirol$")
            designer.key("ctrl+q")
            designer.wait_for_end()

        uninstall(home)
        self.assertEqual(self.files(), before)
        left = wine.registry("HKEY_CURRENT_USER") | wine.registry(r"HKEY_LOCAL_MACHINE\Software")
        self.assertEqual({place: value for place, value in left.items() if "pirol" in str((place, value)).lower()}, {})
        self.assertEqual(left[classes + r"\.prl", "(Standard)"], ("REG_SZ", "Other.Program"))


class UpdateTest(WindowsTest):
    HOME = pathlib.Path("AppData", "Local", "Programs", "Pirol")
    LOADED = pathlib.Path("AppData", "Local", "Pirol", "update")

    def setUp(self):
        super().setUp()
        self.home, self.loaded = wine.user_folder / self.HOME, wine.user_folder / self.LOADED
        self.assertEqual(wine.run(BUILD / "Pirol-Setup.exe", "/S").returncode, 0)
        self.addCleanup(uninstall, self.home)
        wine.run("reg", "add", KEY, "/v", "GridStyle", "/t", "REG_DWORD", "/d", "2", "/f")

    def newer_setup(self):
        """The same program with another license text, as version 99."""
        files = self.folder / "files"
        shutil.copytree(BUILD / "Pirol", files)
        (files / "Lizenz.txt").write_text("newer")
        setup = self.folder / "Pirol-Setup-99.0.0.exe"
        subprocess.run(["makensis", "-V1", "-INPUTCHARSET", "UTF8", "-DVERSION=99.0.0", f"-DFILES={files}",
                        f"-DLIST={BUILD / 'files.nsh'}", f"-DOUTPUT={setup}", ROOT / "packaging" / "windows" / "installer.nsi"],
                       check=True)
        return setup

    def turn_to(self, designer, title):
        """Of the newer Pirol, which the setup has started."""
        def find():
            return next((number for number, name in designer.windows().items() if name == title), None)
        end = time.monotonic() + 60
        while not (window := find()):
            self.assertLess(time.monotonic(), end, f"{title} does not come: {designer.windows()}")
            time.sleep(0.2)
        designer.window = window
        designer.xdotool("windowfocus", window)

    def assert_newer_comes(self, designer, title):
        """It is installed, keeps the preferences, and shows a window of that title."""
        self.turn_to(designer, title)
        self.assertEqual((self.home / "Lizenz.txt").read_text(), "newer")
        self.assertEqual(wine.registry(KEY)[KEY, "GridStyle"], ("REG_DWORD", "0x2"))

    def end_newer(self, designer):
        designer.key("ctrl+q")
        end = time.monotonic() + 20
        while any(name.endswith("Pirol") for name in designer.windows().values()) and time.monotonic() < end:
            time.sleep(0.2)

    def test_setup_replaces_a_running_pirol_and_starts_it_again(self):
        work = self.folder / "Mein Quiz.prl"
        shutil.copy(QUIZ, work)
        with Designer(self.home / "Pirol.exe", display, self.folder, work, wine=wine) as designer:
            designer.use(r"^Mein Quiz\.prl - Pirol$")
            setup = subprocess.Popen(["wine", self.newer_setup(), "/UPDATE=" + wine.path(work)], env=wine.environment)
            time.sleep(3)
            self.assertNotEqual((self.home / "Lizenz.txt").read_text(), "newer", "it waits for the end of Pirol")
            designer.click(1100, 500)  # the setup's window has the keyboard
            designer.key("ctrl+q")
            designer.wait_for_end()
            self.assertEqual(setup.wait(60), 0)
            self.assert_newer_comes(designer, "Mein Quiz.prl - Pirol")
            self.end_newer(designer)

    def serve(self, **options):
        """A real web server with the newer setup as its release."""
        work = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        release = work / "www" / "pirol"
        (work / "apache").mkdir()
        subprocess.run([ROOT / "packaging" / "release" / "make", "--key", KEYS / "update.pem", "--serial", "5", "--version", "99.0.0",
                        "--note", "Größer", "--windows", self.newer_setup(), "--no-debian", "--out", release], check=True,
                       stdout=subprocess.DEVNULL)
        for path in work, release.parent, release:
            path.chmod(0o755)  # the server is another user
        return Apache(release.parent, work / "apache", **options)

    def test_a_server_of_an_unknown_authority_is_refused(self):
        wine.trust(KEYS / "authority.crt")
        program = BUILD / "src" / "pirol-https.exe"
        with self.serve(certificate="impostor"), Designer(program, display, self.folder, wine=wine) as designer:
            answer = wine.run(BUILD / "src" / "cli-https.exe", "update-check")
            self.assertEqual(answer.returncode, 1)
            self.assertIn("Der Server weist sich nicht richtig aus", answer.stderr.decode())
            designer.choose("alt+h", "n")
            designer.use("Neue Version")
            time.sleep(3)
            designer.key("Return")  # would load what was found
            time.sleep(3)
        self.assertFalse(self.loaded.exists())

    def test_the_whole_way_over_https(self):
        """Found, loaded and installed over the program that runs; the unsaved design is offered by the newer one."""
        wine.trust(KEYS / "authority.crt")
        shutil.copy(BUILD / "src" / "pirol-https.exe", self.home / "Pirol.exe")
        with self.serve(), Designer(self.home / "Pirol.exe", display, self.folder, wine=wine) as designer:
            answer = wine.run(BUILD / "src" / "cli-https.exe", "update-check")
            self.assertEqual(answer.returncode, 0, answer.stderr.decode())
            self.assertIn("99.0.0", answer.stdout.decode())
            designer.key("Insert")
            designer.choose("alt+h", "n")
            designer.use("Neue Version")
            time.sleep(3)
            self.assertEqual(sum(path.stat().st_size for path in self.loaded.glob("*")), 0, "nothing is loaded unasked")
            designer.key("Return")
            designer.wait_for((self.loaded / "Pirol-Setup-99.0.0.exe").exists, "the whole file")
            time.sleep(1)
            designer.key("Return")
            self.assertEqual(designer.wait_for_end(), 0)
            self.assert_newer_comes(designer, "Pirol - Wiederherstellung")
            self.assertEqual((self.home / "Pirol.exe").read_bytes(), PIROL.read_bytes())
            designer.key("Return")
            self.turn_to(designer, "Neues Projekt* - Pirol")
            self.end_newer(designer)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[1:])
