#!/usr/bin/env python3
"""Lets generated programs talk to a MariaDB server of the test's own and compares what their query methods answer with
what the server itself says.

Usage: database_test.py PIROL_CLI STANDINS MARIADBD DRIVER
    MARIADBD    the server's program; it gets a folder and a port of its own and is ended afterwards
    DRIVER      the JDBC driver's archive
"""

import contextlib
import getpass
import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import time
import unittest

from run_generated import Display, Failure, generate, run

SYSTEM_TABLES = ("mysql_system_tables.sql", "mysql_performance_tables.sql", "mysql_system_tables_data.sql")
SHARE = pathlib.Path("/usr/share/mysql")
QUERIES = """    public int AnzahlDerTabellen()
    {
        return hatDatenbank.tabellenAnzahl();
    }
    public String NameDerTabelle(int pIndex)
    {
        return hatDatenbank.tabellenName(pIndex);
    }
    public int AnzahlDerEintraege()
    {
        return hatErgebnisliste.zeilenAnzahl();
    }
"""
FILL = """CREATE DATABASE schule
CREATE TABLE schule.noten (fach VARCHAR(20), punkte INT)
INSERT INTO schule.noten VALUES ('Mathe', 12), ('O''Neill', 7), ('Übung', 15)
CREATE TABLE schule.leer (zahl INT)
CREATE DATABASE `anna's`
CREATE TABLE `anna's`.`Schüler's Liste` (name VARCHAR(20))
INSERT INTO `anna's`.`Schüler's Liste` VALUES ('d''Artagnan'), ('Öz')
CREATE USER 'eva'@'%' IDENTIFIED BY 'geheim'
CREATE USER 'o''hara'@'%' IDENTIFIED BY 'p''w'
GRANT ALL ON *.* TO 'eva'@'%'
GRANT ALL ON *.* TO 'o''hara'@'%'
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


@contextlib.contextmanager
def server(program, folder):
    """A running server; gives its port. The tables of the system come from the package's own scripts."""
    data = folder / "data"
    (data / "mysql").mkdir(parents=True)
    account = [f"--user={getpass.getuser()}"]
    script = "create database if not exists mysql;\nuse mysql;\nSET @auth_root_socket=NULL;\n"
    script += "".join((SHARE / name).read_text() for name in SYSTEM_TABLES)
    run([program, "--no-defaults", *account, "--bootstrap", f"--datadir={data}"], script)
    port = free_port()
    with open(folder / "log", "wb") as log:
        process = subprocess.Popen(
            [program, "--no-defaults", *account, f"--datadir={data}", f"--socket={folder / 's'}",
             f"--pid-file={folder / 'pid'}", f"--port={port}", "--bind-address=127.0.0.1", f"--tmpdir={folder}",
             "--innodb-buffer-pool-size=16M", "--skip-log-bin", "--character-set-server=utf8mb4"],
            stdin=subprocess.DEVNULL, stdout=log, stderr=log)
    try:
        deadline = time.monotonic() + 60
        while True:
            with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), 1):
                break
            if process.poll() is not None or time.monotonic() > deadline:
                raise Failure("the server does not start:\n" + (folder / "log").read_text())
            time.sleep(0.05)
        yield port
    finally:
        process.terminate()
        process.wait(60)


class DatabaseTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pirol_cli, cls.standins, mariadbd, cls.driver = (pathlib.Path(word).resolve() for word in ARGUMENTS)
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="pirol-db-")))
        cls.port = cls.enterClassContext(server(mariadbd, cls.folder))
        cls.display = cls.enterClassContext(Display("800x600"))
        # The driver asks for a password even where root has none.
        cls.run_sql(FILL, "root", "")

    @classmethod
    def enterClassContext(cls, context):
        value = context.__enter__()
        cls.addClassCleanup(context.__exit__, None, None, None)
        return value

    @classmethod
    def java(cls, *words, classes=""):
        path = f"{cls.standins}:{cls.driver}:{classes}"
        return run(["java", "-XX:TieredStopAtLevel=1", "-Dfile.encoding=UTF-8", "-Dstdout.encoding=UTF-8", "-cp", path,
                    "DatabaseDriver", *words],
                   env=os.environ | {"DISPLAY": cls.display.name, "LC_ALL": "C.UTF-8"})

    @classmethod
    def run_sql(cls, statements, user="eva", password="geheim"):
        script = cls.folder / "statements.sql"
        script.write_text(statements)
        return cls.java("run", script, f"jdbc:mariadb://127.0.0.1:{cls.port}/mysql", user, password).splitlines()

    def ask(self, database, table, user="eva", password="geheim", port=None):
        """What the generated program prints that a design with these settings gives."""
        address = f"127.0.0.1:{port or self.port}"
        java = f"""import sum.ereignis.*;
import sum.sql.*;
public class SuMAnwendung extends EBAnwendung
{{
    Datenbank hatDatenbank;
    SQLErgebnisliste hatErgebnisliste;
    public SuMAnwendung()
    {{
        super(300, 200);
        hatDatenbank = new Datenbank();
        if (VerbindeMitDatenbank())
        {{
            hatDatenbank.sendeSQL("SELECT * FROM {table}");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }}
    }}
    public boolean VerbindeMitDatenbank()
    {{
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("{database}", "{address}", "{user}", "{password}");
        return lFehler == "";
    }}
{QUERIES}}}
"""
        with tempfile.TemporaryDirectory(prefix="pirol-java-") as folder:
            written = pathlib.Path(folder) / "Geschrieben.java"
            written.write_text(java, "utf-8")
            project = pathlib.Path(folder) / "design.prl"
            run([self.pirol_cli, "import", "--all", written, "-o", project])
            source = generate(self.pirol_cli, project, folder, ["--sql"])
            run(["javac", "-Werror", "-Xlint:all,-serial", "-encoding", "cp1252", "-cp", self.standins, source])
            return self.java("ask", classes=folder).splitlines()

    def test_tables_and_entries_are_those_of_the_server(self):
        for database, table, account in (("schule", "noten", ()), ("schule", "leer", ()),
                                         ("anna's", "`Schüler's Liste`", ("o'hara", "p'w"))):
            with self.subTest(table=table):
                tables = self.run_sql(f"SHOW TABLES FROM `{database}`")
                entries = self.run_sql(f"SELECT COUNT(*) FROM `{database}`.{table}")
                self.assertEqual(self.ask(database, table, *account),
                                 ["connected true", f"tables {len(tables)}", *(f"table {name}" for name in tables),
                                  f"entries {entries[0]}"])

    def test_what_went_wrong_is_said(self):
        for words, said in ((("schule", "noten", "eva", "falsch"), "Access denied"),
                            (("gibtesnicht", "noten"), "Unknown database"),
                            (("schule", "noten", "eva", "geheim", free_port()), "127.0.0.1")):
            with self.subTest(words=words):
                lines = self.ask(*words)
                self.assertEqual(lines[-1], "connected false")
                self.assertIn("Keine Verbindung zur Datenbank", lines[0])
                self.assertIn(said, lines[0])


if __name__ == "__main__":
    ARGUMENTS = sys.argv[1:5]
    unittest.main(argv=sys.argv[:1])
