#!/usr/bin/env python3
"""Calls pirol-cli as a user does and checks exit status, output, messages and what is left on disk.

Usage: cli_test.py PIROL_CLI EXAMPLES
"""
import hashlib
import pathlib
import subprocess
import sys
import tempfile
import unittest

CLI = pathlib.Path(sys.argv[1]).resolve()
EXAMPLES = pathlib.Path(sys.argv[2]).resolve()
PROJECT = EXAMPLES / "Adressbuch.prl"
REFUSAL = ("Die .prl - Datei ist fehlerhaft oder wurde manuell verändert.\r\n"
           "Der Ladevorgang wird abgebrochen!\n")


def call(*words, **options):
    return subprocess.run([CLI, *map(str, words)], capture_output=True, timeout=60, check=False, **options)


class CliTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)

    def assert_call(self, words, status, stderr=None):
        result = call(*words)
        self.assertEqual(result.returncode, status, (words, result.stderr.decode()))
        if stderr is not None:
            self.assertEqual(result.stderr.decode(), stderr, words)
        return result.stdout

    def test_generate_writes_the_same_to_file_and_standard_output(self):
        expected = PROJECT.with_suffix(".java").read_bytes()
        self.assertEqual(self.assert_call(["generate", PROJECT, "--menu", "--sql"], 0), expected)
        target = self.folder / "Größe x.java"
        target.write_bytes(b"x" * 100000)
        self.assert_call(["generate", "-o", target, "--sql", "--menu", PROJECT], 0)
        self.assertEqual(target.read_bytes(), expected)
        self.assertNotIn(b"Menue", self.assert_call(["generate", PROJECT], 0))

    def test_copy_import_and_hash_agree(self):
        java, copy, back = (self.folder / name for name in ("a.java", "copy.prl", "back.prl"))
        self.assert_call(["copy", EXAMPLES / "Taschenrechner.prl", copy], 0)
        self.assertEqual(copy.read_bytes(), (EXAMPLES / "Taschenrechner.prl").read_bytes())
        self.assert_call(["generate", copy, "-o", java], 0)
        self.assert_call(["import", java, "-o", back], 0)
        description = self.assert_call(["check", back], 0).decode()
        self.assertIn("Knopf: 17\n", description)
        self.assertIn("Fenster: 340 x 420\n", description)
        text = back.read_bytes()
        self.assertEqual(text[-40:].decode(), hashlib.sha1(text[:-40]).hexdigest().upper())
        self.assertEqual(self.assert_call(["hash", back], 0).decode(),
                         hashlib.sha1(text).hexdigest().upper() + "\n")

    def test_import_of_all_reports_what_it_leaves_out(self):
        java, target = self.folder / "a.java", self.folder / "a.prl"
        java.write_text("class A extends EBAnwendung { A() { super(\n300 , 200); k=new Knopf(1, 2, 3, 4, \"x\");\n"
                        "r = new Regler(x, 1, 1, 1, 1, 1, 1); t = new Ton(); } }")
        self.assert_call(["import", "--all", java, "-o", target], 0,
                         "Zeile 3: Regler »r«: nicht gelesen, weil Lage oder Größe nicht in Zahlen dasteht.\n"
                         "Der Autor des Projekts steht nicht in Java.\n"
                         "Wo das Symbol eines Tons liegt, steht nicht in Java.\n")
        description = self.assert_call(["check", target], 0).decode()
        for line in ("Fenster: 300 x 200", "Knopf: 1", "Regler: 0", "Ton: 1"):
            self.assertIn(line + "\n", description)
        java.write_text("Kein Java, und auch kein Knopf.")
        target.write_bytes(b"old")
        for options in ([], ["--all"]):
            self.assert_call(["import", *options, java, "-o", target], 1, "Im Quelltext steht weder eine Fenstergröße "
                             "noch eine Komponente; es wurde nichts eingelesen.\n")
            self.assert_call(["import", *options, java / "x", "-o", target], 1)
        self.assertEqual(target.read_bytes(), b"old")

    def test_update_keeps_pupils_lines_encoding_and_versions(self):
        java = self.folder / "SuMAnwendung.java"
        generated = PROJECT.with_suffix(".java").read_bytes()
        own = "        hatStatus.setzeInhalt(\"Grüße\"); // mein Text\n".encode()
        source = generated.decode("cp1252").replace("\r\n", "\n").encode()
        source = source.replace(b"360, 150", b"361, 150", 1)
        source = source.replace(b"    public void hatKnopf", own + b"    public void hatKnopf", 1)
        java.write_bytes(b"\xef\xbb\xbf" + source)
        self.assertIn("geändert: hatKnopfSpeichern: 361, 150, 120, 30,",
                      self.assert_call(["update", PROJECT, java, "--dry-run"], 0).decode())
        self.assertEqual(java.read_bytes(), b"\xef\xbb\xbf" + source)
        self.assert_call(["update", PROJECT, java, "--sql", "--menu"], 0, "")
        updated = java.read_bytes()
        self.assertEqual(updated, b"\xef\xbb\xbf" + source.replace(b"361, 150", b"360, 150"))
        self.assertEqual((self.folder / "SuMAnwendung.java.bak").read_bytes(), b"\xef\xbb\xbf" + source)
        self.assertEqual(self.assert_call(["update", PROJECT, java], 0).decode(), f"unverändert: {java}\n")
        for height in range(12):
            java.write_bytes(updated.replace(b"640, 480", b"640, %d" % height))
            self.assert_call(["update", PROJECT, java], 0)
        kept = sorted(path.name for path in self.folder.iterdir())
        self.assertEqual(kept, ["SuMAnwendung.java", "SuMAnwendung.java.bak",
                                *(f"SuMAnwendung.java.bak{age}" for age in range(1, 10))])
        self.assertIn(b"640, 2)", (self.folder / "SuMAnwendung.java.bak9").read_bytes())
        self.assertNotIn(b"Menue", self.assert_call(["update", PROJECT, java, "--no-menu"], 0) and java.read_bytes())

    def test_update_refuses_what_is_no_window(self):
        java = self.folder / "A.java"
        for text, message in ((b"int x;", "Zeile 1: Es gibt keine Klasse, die EBAnwendung erweitert.\n"),
                              (b"\nclass A extends EBAnwendung {}",
                               "Zeile 2: Die Klasse A hat keinen Konstruktor ohne Parameter.\n")):
            java.write_bytes(text)
            self.assert_call(["update", PROJECT, java], 1, message)
            self.assertEqual(java.read_bytes(), text)
        self.assert_call(["update", PROJECT, self.folder / "B.java"], 1,
                         "Fehler 53: Datei nicht gefunden (Main.File.Java.Update)\n")
        self.assert_call(["update", PROJECT, java, "--menu", "--no-menu"], 2)

    def test_check_says_what_every_example_holds(self):
        description = self.assert_call(["check", *sorted(EXAMPLES.glob("*.prl"))], 0).decode()
        for line in ("Projekt: " + str(PROJECT), "Autor: Klasse 10b, Gruppe Müller/Weiß", "Menüs: 2",
                     "Menüeinträge: 12", "Datenbank: schule auf localhost", "Tabelle: 1"):
            self.assertIn(line + "\n", description)
        self.assertTrue(all(": " in line for line in description.splitlines()), description)

    def test_export_makes_a_folder_once(self):
        folder = self.folder / "Mein Projekt"
        self.assert_call(["export", PROJECT, folder, "--menu", "--sql"], 0)
        sizes = {path.name: path.stat().st_size for path in folder.iterdir()}
        java = PROJECT.with_suffix(".java").read_bytes()
        self.assertEqual(sizes, {"bluej.pkg": 456, "bluej.pkh": 456, "Readme.txt": 524, "SuMAnwendung.ctxt": 388,
                                 "SuMAnwendung.java": len(java)})
        self.assertEqual((folder / "SuMAnwendung.java").read_bytes(), java)
        self.assertTrue((folder / "bluej.pkg").read_bytes().endswith(b"target1.y=10\r\n\0\0\0"))
        (folder / "bluej.pkg").write_bytes(b"mine")
        self.assert_call(["export", PROJECT, folder], 1)
        self.assertEqual((folder / "bluej.pkg").read_bytes(), b"mine")

    def test_failures_are_told_and_leave_the_output_untouched(self):
        damaged, empty, target, new = (self.folder / name for name in ("damaged.prl", "empty.prl", "target", "new"))
        damaged.write_bytes(PROJECT.read_bytes().replace(b"640", b"641", 1))
        empty.write_bytes(b"")
        target.write_bytes(b"old")
        reading, writing, exporting = "Main.File.PRL.ReadPRLFile", "Main.File.PRL.GeneratePRLCode", "Main.Project.Export"
        failures = [
            (["generate", PROJECT, "-o", "/dev/full"], f"Fehler 75: Fehler beim Zugriff auf Pfad/Datei ({exporting})\n"),
            (["copy", PROJECT, "/dev/full"], f"Fehler 75: Fehler beim Zugriff auf Pfad/Datei ({writing})\n"),
            (["export", PROJECT, self.folder], f"Fehler 75: Fehler beim Zugriff auf Pfad/Datei ({exporting})\n"),
            (["export", PROJECT, new / "folder"], f"Fehler 76: Pfad nicht gefunden ({exporting})\n")]
        for project, message in (
                (damaged, REFUSAL), (empty, f"Fehler 9: Index außerhalb des gültigen Bereichs ({reading})\n"),
                (self.folder, f"Fehler 75: Fehler beim Zugriff auf Pfad/Datei ({reading})\n"),
                (self.folder / "none", f"Fehler 53: Datei nicht gefunden ({reading})\n")):
            failures += [(words, message) for words in (
                ["generate", project, "-o", target], ["copy", project, target], ["export", project, new],
                ["check", project], ["lint", project])]
        for words, message in failures:
            self.assertEqual(self.assert_call(words, 1, message), b"", words)
        self.assertEqual(target.read_bytes(), b"old")
        self.assertFalse(new.exists())

    def test_lint_ends_with_one_when_it_has_hints(self):
        quiz = EXAMPLES / "Quiz.prl"
        self.assertEqual(self.assert_call(["lint", quiz, "--menu"], 0, ""), b"")
        self.assertEqual(self.assert_call(["lint", quiz, "--menu", "--sql"], 1, "").decode().splitlines(), [
            "Datenbank, Server: Ohne Server fehlt dem Programm die Klasse Datenbank. [missing-server]",
            "Datenbank, Name der Tabelle: Ohne den Namen einer Tabelle ist die Abfrage unvollständig. [missing-table]"])

    def test_compare_tells_differences_and_prints_one_design(self):
        quiz, damaged = EXAMPLES / "Quiz.prl", self.folder / "damaged.prl"
        damaged.write_bytes(quiz.read_bytes() + b"0")
        self.assertEqual(self.assert_call(["compare", quiz, quiz], 0, ""), b"")
        lines = self.assert_call(["compare", quiz, PROJECT], 1, "").decode().splitlines()
        self.assertIn("geändert: Fenster, Breite: 800 → 640", lines)
        self.assertIn("neu: Menüs: Menüzeile »Name« in »Sortieren nach«, Ebene 2", lines)
        text = self.assert_call(["compare", PROJECT], 0, "").decode()
        self.assertIn("\nTabelle hatTabelleAdressen\n    Breite: 600\n", text)
        self.assertIn("\n    Passwort: (wird nicht gezeigt)\n", text)
        for words in ([damaged], [damaged, quiz], [quiz, damaged]):
            self.assertEqual(self.assert_call(["compare", *words], 1, REFUSAL), b"")

    def test_many_projects_are_looked_at_whatever_one_of_them_is(self):
        gone, quiz = self.folder / "gone.prl", EXAMPLES / "Quiz.prl"
        for command in ("check", "lint"):
            output = self.assert_call([command, quiz, gone, quiz], 1, f"{gone}: Fehler 53: Datei nicht gefunden "
                                      "(Main.File.PRL.ReadPRLFile)\n").decode()
            self.assertEqual(output.count(f"Projekt: {quiz}\n"), 2)
        self.assert_call(["lint", quiz, quiz, "--menu"], 0, "")

    def test_wrong_calls_are_explained(self):
        for words in ([], ["paint"], ["generate"], ["generate", PROJECT, PROJECT], ["generate", PROJECT, "-o"],
                      ["generate", PROJECT, "--fast"], ["import", PROJECT], ["copy", PROJECT],
                      ["update", PROJECT], ["generate", PROJECT, "--dry-run"],
                      ["copy", PROJECT, "x", "--menu"], ["hash"], ["update-check", "x"], ["check"], ["export", PROJECT], ["lint"],
                      ["compare"], ["compare", PROJECT, PROJECT, PROJECT], ["compare", PROJECT, "--menu"],
                      ["--help", "x"], ["copy", PROJECT, "x", "--all"]):
            result = call(*words)
            self.assertEqual(result.returncode, 2, words)
            self.assertIn("pirol-cli generate P.prl [--menu] [--sql] [-o DATEI]", result.stderr.decode())
            self.assertEqual(result.stdout, b"")
        self.assertIn("Aufruf:", self.assert_call(["--help"], 0).decode())
        self.assertRegex(self.assert_call(["--version"], 0).decode(), r"^pirol-cli \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
