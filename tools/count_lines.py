#!/usr/bin/env python3
"""Counts the lines that are neither blank nor only a comment, and says how many of them are tests.

Tests are all of tests/ but its data; product is everything else that Git keeps, but not examples/, whose Java is
generated. Counted are C++, Python, Java, shell and CMake; a string that stands alone in Python is a comment.
Usage: count_lines.py [--each]        --each: every file with its number as well
"""
import collections
import io
import pathlib
import re
import subprocess
import sys
import tokenize

ROOT = pathlib.Path(__file__).resolve().parents[1]
# By the end of the name or, for programs without one, by what their first line calls.
LANGUAGES = {"c": (".cpp", ".h", ".java"), "python": (".py", "python3"), "hash": (".sh", ".cmake", "CMakeLists.txt", "sh", "bash")}


def language_of(path, text):
    word = path.suffix or (re.match(r"#!.*?(\w+)\n", text) or [None, ""])[1]
    return next((name for name, words in LANGUAGES.items() if word in words or path.name in words), None)


def python_lines(text):
    lines, empty = set(), (tokenize.COMMENT, tokenize.NL, tokenize.NEWLINE, tokenize.INDENT, tokenize.DEDENT, tokenize.ENDMARKER)
    statement_begins = True
    for token in tokenize.generate_tokens(io.StringIO(text).readline):
        if token.type not in empty and not (token.type == tokenize.STRING and statement_begins):
            lines.update(range(token.start[0], token.end[0] + 1))
        if token.type != tokenize.COMMENT:
            statement_begins = token.type in empty
    return len(lines)


def lines_of(language, text):
    if language == "python":
        return python_lines(text)
    if language == "c":
        text = re.sub(r"(\"(?:\\.|[^\"\\\n])*\")|//[^\n]*|/\*.*?\*/", lambda found: found[1] or "", text, flags=re.S)
    return sum(1 for line in text.splitlines() if line.strip() and not (language == "hash" and line.lstrip().startswith("#")))


def main():
    counts = collections.Counter()
    for name in subprocess.check_output(["git", "-C", ROOT, "ls-files", "-z"], text=True).split("\0"):
        path = ROOT / name
        if name.startswith(("tests/data/", "examples/")) or not path.is_file():
            continue
        text = path.read_text(encoding="utf-8", errors="replace")
        if language := language_of(path, text):
            lines = lines_of(language, text)
            counts["tests" if name.startswith("tests/") else "product"] += lines
            if "--each" in sys.argv:
                print(f"{lines:6} {name}")
    for name, lines in counts.items():
        print(f"{name}: {lines}")
    print(f"tests: {counts['tests'] / counts.total():.1%} of all")


main()
