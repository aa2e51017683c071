#!/usr/bin/env python3
"""The online update from the release script to the started setup: real servers on the loopback address, the real program
on a screen of its own, and servers that misbehave. What is started is written down by a stand-in for xdg-open.

Run by ctest, which says in the environment where programs, keys and ports are.
"""
import os
import pathlib
import random
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "e2e"))
from designer import Designer, Display  # noqa: E402
from servers import HTTP, HTTPS, KEYS, LIST, Apache, Misbehaving, head, rest, whole  # noqa: E402

PROGRAMS = pathlib.Path(os.environ["PIROL_PROGRAMS"])
MAKE = HERE.parents[1] / "packaging" / "release" / "make"
NEW = "99.1.0"
PACKAGE = f"pirol_{NEW}_amd64.deb"
BLOCK = 65536

GOES_ON = "Die Verbindung ist abgerissen"
BAD_ANSWER = "Der Server antwortet anders"


def make_release(folder, content, *words, key="update.pem", version=NEW, serial=5):
    folder.mkdir(exist_ok=True)
    setup = folder.parent / "setup"
    setup.write_bytes(content)
    subprocess.run([MAKE, "--key", KEYS / key, "--serial", str(serial), "--version", version, "--debian", setup,
                    "--no-windows", "--out", folder, *words], check=True, stdout=subprocess.DEVNULL)
    for path in folder.parent, folder:
        path.chmod(0o755)


def settings(home):
    """A user with nothing of his own yet, whose xdg-open writes down what it is given."""
    home.mkdir(exist_ok=True)
    tools = home / "bin"
    if not tools.exists():
        tools.mkdir()
        (tools / "xdg-open").write_text(f"#!/bin/sh\necho \"$@\" >>'{home}/opened'\n[ ! -e '{home}/no-installer' ]\n")
        (tools / "xdg-open").chmod(0o755)
    hidden = {"http_proxy", "https_proxy", "all_proxy", "no_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY", "NO_PROXY"}
    return {key: value for key, value in os.environ.items() if key not in hidden} | {
        "PATH": f"{tools}:{os.environ['PATH']}", "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
        "XDG_STATE_HOME": str(home / "state"), "XDG_RUNTIME_DIR": str(home)}


class UpdateTest(unittest.TestCase):
    def setUp(self):
        work = tempfile.TemporaryDirectory()
        self.addCleanup(work.cleanup)
        self.work = pathlib.Path(work.name)
        self.home = self.work / "home"
        self.root = self.work / "www"
        self.root.mkdir()
        self.content = random.Random(1).randbytes(3_000_000)
        self.work.chmod(0o755)
        make_release(self.root / "pirol", self.content, "--note", "Größer", "--note", "Schöner")
        self.folder = self.home / "state" / "pirol" / "update"

    def apache(self, **options):
        work = self.work / "apache"
        work.mkdir(exist_ok=True)
        return Apache(self.root, work, **options)

    def run_program(self, name, *words, **environment):
        return subprocess.run([PROGRAMS / name, *words], env=settings(self.home) | environment, capture_output=True, text=True,
                              timeout=90, check=False)

    def load(self, program="load-http", **environment):
        """What the loading program says, and the bytes of the whole file when there is one."""
        result = self.run_program(program, self.folder, **environment)
        self.assertIn(result.returncode, (0, 1), result.stderr)
        path = self.folder / PACKAGE
        self.assertEqual(path.exists(), result.returncode == 0)
        self.assertFalse((self.home / "opened").exists(), "nothing is started")
        return result.stdout.strip(), path.read_bytes() if path.exists() else None

    def part(self):
        return max((path.stat().st_size for path in self.folder.glob("*.part")), default=0)

    def assert_loads(self, program="load-http", **environment):
        answer, content = self.load(program, **environment)
        self.assertEqual(content, self.content, answer)

    def assert_refuses(self, message, program="load-http", part=0, **environment):
        answer, content = self.load(program, **environment)
        self.assertTrue(answer.startswith(message), answer)
        self.assertIsNone(content)
        self.assertEqual(self.part(), part)


class RealServer(UpdateTest):
    def test_over_http_and_https(self):
        for program in "load-http", "load-https":
            with self.apache():
                self.assert_loads(program)
                (self.folder / PACKAGE).unlink()

    def test_an_unknown_authority(self):
        with self.apache(certificate="impostor"):
            self.assert_refuses("Der Server weist sich nicht richtig aus", "load-https")
            result = self.run_program("cli-https", "update-check")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("weist sich nicht richtig aus", result.stderr)

    def test_a_certificate_is_not_for_every_name(self):
        """The host of the build's address must stand in it; here the authority is right, and the program asks by name."""
        with self.apache():
            self.assertEqual(self.run_program("cli-https", "update-check").returncode, 0)

    def test_update_check(self):
        with self.apache():
            for program, address in ("cli-http", f"http://127.0.0.1:{HTTP}"), ("cli-https", f"https://localhost:{HTTPS}"):
                result = self.run_program(program, "update-check")
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertRegex(result.stdout, rf"Installiert: [\d.]+\nNeu: {NEW}\n  Größer\n  Schöner\nDatei: "
                                                rf"{address}/pirol/{PACKAGE}\nGröße: {len(self.content)} Bytes\n")
        self.assertEqual(self.run_program("cli-http", "update-check").returncode, 1)
        self.assertIn("keinen Server", self.run_program("pirol-cli", "update-check").stderr)

    def test_lists_that_do_not_count(self):
        with self.apache():
            self.assertEqual(self.run_program("cli-http", "update-check").returncode, 0)
            for options, message in ((dict(serial=4), "ist älter als eine"), (dict(key="other.pem"), "Unterschrift"),
                                     (dict(version="0.0.1"), "nur eine ältere Version"), (dict(days=-1), "abgelaufen")):
                (self.root / "pirol" / LIST).unlink()
                words = ["--days", str(options.pop("days", 1))]
                make_release(self.root / "pirol", self.content, *words, **options)
                self.assertIn(message, self.run_program("cli-http", "update-check").stderr)

    def test_killed_in_the_middle(self):
        with self.apache(speed=1000):
            program = subprocess.Popen([PROGRAMS / "load-http", self.folder], env=settings(self.home))
            while self.part() < 1_000_000:
                time.sleep(0.01)
            program.send_signal(signal.SIGKILL)
            program.wait()
            there = self.part()
            self.assertLess(there, len(self.content))
        with self.apache():
            self.assert_loads()
        self.assertGreater(there, 0)

    def test_two_at_once(self):
        with self.apache(speed=1000):
            first = subprocess.Popen([PROGRAMS / "load-http", self.folder], env=settings(self.home), stdout=subprocess.PIPE, text=True)
            while self.part() == 0:
                time.sleep(0.01)
            second = self.run_program("load-http", self.folder)
            self.assertIn("Ein anderes Pirol", second.stdout)
            self.assertEqual(first.communicate()[0].strip(), str(self.folder / PACKAGE))
        self.assertEqual((self.folder / PACKAGE).read_bytes(), self.content)


class Network(UpdateTest):
    def test_no_server(self):
        self.assert_refuses("Der Server ist nicht erreichbar")
        self.assert_refuses("Der Name des Servers ist nicht bekannt", "load-nowhere")

    def test_proxies(self):
        """The only other machine that is ever talked to is the proxy that the system names."""
        with Misbehaving(self.root, lambda connection, *_: connection.sendall(whole(self.content))):
            self.assert_loads("load-nowhere", http_proxy=f"http://127.0.0.1:{HTTP}")
        with Misbehaving(self.root, None, lambda connection, _: connection.sendall(
                head("407 Proxy Authentication Required", Proxy_Authenticate='Basic realm="Schule"', Content_Length=0))):
            (self.folder / PACKAGE).unlink()
            self.assert_refuses("Der Proxy Ihres Netzes", "load-nowhere", http_proxy=f"http://127.0.0.1:{HTTP}")

    def test_sockets(self):
        """Every address that the program connects to, also while a server tries to lead it elsewhere."""
        connects = self.work / "connects"
        trace = ["strace", "-f", "-qq", "-e", "trace=connect,sendto,bind", "-o", connects]
        elsewhere = head("302 Found", Location="http://127.0.0.2:81/", Content_Length=0, Link="<http://127.0.0.3/>; rel=preload",
                         Set_Cookie="a=b")
        with Misbehaving(self.root, lambda connection, *_: connection.sendall(elsewhere)):
            for program in "load-http", "cli-http":
                words = [self.folder] if program == "load-http" else ["update-check"]
                subprocess.run([*trace, PROGRAMS / program, *words], env=settings(self.home) | {"ASAN_OPTIONS": "detect_leaks=0"},
                               check=False, stdout=subprocess.DEVNULL)
                reached = set(re.findall(r"sin6?_port=htons\((\d+)\).*?inet_(?:addr|pton)\((?:AF_INET6, )?\"([^\"]+)\"",
                                         connects.read_text()))
                self.assertEqual(reached, {(str(HTTP), "127.0.0.1")}, program)


class MisbehavingServer(UpdateTest):
    def serve(self, answer, list_answer=None):
        return Misbehaving(self.root, answer, list_answer)

    def test_files(self):
        """What a server does with the file, how that ends, and how much of the file is there then."""
        content, size = self.content, len(self.content)
        half = size // 2
        slow = threading.Event()

        def drip(connection, content, first):
            connection.sendall(head("200 OK", Content_Length=size))
            for at in range(0, size, 65536):
                connection.sendall(content[at:at + 65536])
                slow.wait(0.01)

        def send(make):
            return lambda connection, content, first: connection.sendall(make(content, first))
        first_then_whole = iter([whole(content[:half], size), whole(content)])
        cases = {
            "no ranges": (send(lambda *_: next(first_then_whole)), None, size),
            "cut, then the rest": (send(lambda c, first: rest(c, first) if first else whole(c[:half], size)), None, size),
            "slow drip": (drip, None, size),
            "no length": (send(lambda *_: head("200 OK") + content), None, size),
            "short body": (send(lambda c, first: whole(c[:half], half)), "Die Datei auf dem Server ist nicht", 0),
            "short body without a length": (send(lambda c, first: head("200 OK") + c[:half] if not first else
                                                 rest(c[:half] + b"", first) if first < half else head("503 Busy")),
                                            "Der Server kann gerade", half),
            "longer body": (send(lambda *_: head("200 OK") + content + b"x"), "Es kam mehr", 0),
            "cut at once": (send(lambda *_: head("200 OK", Content_Length=size)), GOES_ON, 0),
            "cut connection": (send(lambda *_: b""), GOES_ON, 0),
            "no HTTP": (send(lambda *_: b"220 smtp ready\r\n"), ("Der Server", GOES_ON), 0),
            "another file": (send(lambda *_: whole(content[::-1])), "Die geladene Datei ist nicht", 0),
            "wrong start": (send(lambda c, first: rest(c, first, Content_Range=f"bytes 0-{size - 1}/{size}") if first
                                 else whole(c[:half], size)), BAD_ANSWER, half),
            "416": (send(lambda c, first: head("416 Range Not Satisfiable", Content_Length=0) if first else
                         whole(c[:half], size)), BAD_ANSWER, half),
            "redirect": (send(lambda *_: head("301 Moved", Location="/pirol/" + LIST, Content_Length=0)),
                         "Der Server verweist", 0),
            "page": (send(lambda *_: whole(b"<html>Anmelden</html>", Content_Type="text/html")), "Statt der Datei kam", 0),
            "gzip": (send(lambda *_: whole(content, Content_Encoding="gzip")), BAD_ANSWER, 0),
            "missing": (send(lambda *_: head("404 Not Found", Content_Length=0)), "Die Datei liegt nicht", 0),
        }
        begun_anew = {"wrong start", "416"}
        for name, (answer, message, left) in cases.items():
            with self.subTest(name), self.serve(answer):
                text, loaded = self.load()
                if message is None:
                    self.assertEqual(loaded, content, text)
                else:
                    self.assertTrue(text.startswith(message), text)
                    # What is on its way when the connection breaks is lost, less than a block.
                    self.assertLessEqual(self.part(), left)
                    self.assertTrue(self.part() > left - BLOCK or (name in begun_anew and self.part() == 0), self.part())
            for path in self.folder.glob("*"):
                path.unlink()

    def test_lists(self):
        good = (self.root / "pirol" / LIST).read_bytes()
        unreadable = "Auf dem Server liegt keine Versionsliste"
        cases = {
            "page": (whole(b"<html>Anmelden</html>", Content_Type="text/html; charset=utf-8"), "Statt der Datei kam"),
            "redirect": (head("302 Found", Location="/pirol/" + PACKAGE, Content_Length=0), "Der Server verweist"),
            "100 MB": (head("200 OK") + b"#Pirol.Versions 1\n" * 6_000_000, "Die Versionsliste ist viel zu lang"),
            "empty": (head("200 OK", Content_Length=0), unreadable),
            "short": (head("200 OK") + good[:-20], unreadable),
            "cut": (whole(good[:-20], len(good)), GOES_ON),
            "gzip": (whole(good, Content_Encoding="gzip"), BAD_ANSWER),
            "one byte": (whole(good.replace(b"serial: 5", b"serial: 6")), "Die Unterschrift"),
        }
        for name, (answer, message) in cases.items():
            for program, words in ("load-http", [self.folder]), ("cli-http", ["update-check"]):
                with self.subTest(name, program=program), \
                        self.serve(None, lambda connection, _, answer=answer: connection.sendall(answer)):
                    result = self.run_program(program, *words)
                    said = result.stdout if program == "load-http" else result.stderr
                    self.assertEqual(result.returncode, 1)
                    self.assertTrue(said.startswith((message, BAD_ANSWER) if name == "gzip" else message), said)
                    self.assertFalse(self.folder.exists())

    def test_a_file_with_any_byte_changed(self):
        for at in random.Random(2).sample(range(len(self.content)), 10):
            changed = bytearray(self.content)
            changed[at] ^= 1
            with self.serve(lambda connection, *_, changed=changed: connection.sendall(whole(bytes(changed)))):
                self.assert_refuses("Die geladene Datei ist nicht")


class Window(UpdateTest):
    """The real program with mouse and keyboard."""

    @classmethod
    def setUpClass(cls):
        cls.display = Display()
        cls.addClassCleanup(cls.display.__exit__)

    def designer(self, *arguments):
        os.environ["PATH"] = settings(self.home)["PATH"]
        self.addCleanup(os.environ.__setitem__, "PATH", os.environ["PATH"].split(":", 1)[1])
        return Designer(PROGRAMS / "pirol-http", self.display, self.home, *arguments, state=self.home / "state")

    def open_form(self, designer):
        designer.choose("alt+h", "n")
        designer.use("Neue Version")

    def test_the_whole_way(self):
        """Found, loaded, killed in the middle, gone on with, and installed; an unsaved design comes back."""
        with self.apache(speed=1000), self.designer() as designer:
            designer.key("Insert")
            self.open_form(designer)
            time.sleep(1)
            self.assertEqual(self.part(), 0, "nothing is loaded before the user wants it")
            designer.key("Return")
            designer.wait_for(lambda: self.part() > 500_000, "a part")
            designer.key("Return")  # pauses
            time.sleep(0.5)
            paused = self.part()
            time.sleep(0.5)
            self.assertEqual(self.part(), paused)
            designer.key("Return")
            designer.wait_for(lambda: self.part() > paused + 500_000, "more of it")
        self.assertFalse((self.home / "opened").exists())
        with self.apache(), self.designer() as designer:
            designer.use("Wiederherstellung")
            designer.key("Return")
            designer.back_from("Wiederherstellung")
            self.open_form(designer)
            time.sleep(1)
            designer.key("Return")
            designer.wait_for((self.folder / PACKAGE).exists, "the whole file")
            time.sleep(0.5)
            designer.key("Return")
            self.assertEqual(designer.wait_for_end(), 0)
        self.assertEqual((self.home / "opened").read_text(), f"{self.folder / PACKAGE}\n")
        self.assertEqual((self.folder / PACKAGE).read_bytes(), self.content)
        with self.designer() as designer:
            designer.use("Wiederherstellung")

    def test_no_installer(self):
        """Where nothing opens packages, Pirol goes on and says where the file is."""
        settings(self.home)
        (self.home / "no-installer").touch()
        with self.apache(), self.designer() as designer:
            self.open_form(designer)
            time.sleep(1)
            designer.key("Return")
            designer.wait_for((self.folder / PACKAGE).exists, "the whole file")
            time.sleep(0.5)
            designer.key("Return")
            designer.wait_for((self.home / "opened").exists, "the try")
            designer.use("^Pirol$")
            designer.key("Return")
            designer.use("Neues Projekt")
            designer.end()


if __name__ == "__main__":
    unittest.main()
