#!/usr/bin/env python3
"""Proves with the compiler that an update leaves a source that compiles compiling, whenever the new design's own source
compiles and the pupil's lines mention nothing that is gone: random pairs of designs with his lines between the generated
ones.

Usage: update_compiles.py CORE_TESTS STANDINS
PIROL_UPDATE_PAIRS says how many pairs (200 unless given), PIROL_UPDATE_SEED with which to begin.
"""

import os
import pathlib
import re
import sys
import tempfile

from run_generated import Failure, run

FILTER = "--gtest_filter=JavaUpdateLaws.WritesSourcesForTheCompiler"
KINDS = ("before", "own", "after")


def fields(source):
    return set(re.findall(r"^    \w+ (\w+);", source, re.MULTILINE))


def mentions_what_is_gone(pair):
    before, own, after = ((pair / kind / "SuMAnwendung.java").read_text("cp1252") for kind in KINDS)
    return not (fields(before) - fields(own)).isdisjoint(re.findall(r"\w+", after))


def main():
    core_tests, standins = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    with tempfile.TemporaryDirectory(prefix="pirol-java-") as folder:
        run([core_tests, FILTER], env=os.environ | {"PIROL_UPDATE_FOLDER": folder})
        pairs = sorted(pathlib.Path(folder).iterdir(), key=lambda pair: int(pair.name))
        sources = [pair / kind / "SuMAnwendung.java" for pair in pairs for kind in KINDS]
        said = run(["java", "-XX:TieredStopAtLevel=1", "-cp", standins, "CompileAll", standins],
                   "".join(f"{source}\n" for source in sources)).splitlines()
        if len(said) != len(sources):
            raise Failure(f"{len(sources)} sources, but {len(said)} answers")
        tried = 0
        for place, pair in enumerate(pairs):
            before, own, after = said[3 * place:3 * place + 3]
            counts = before == own == "ok" and not mentions_what_is_gone(pair)
            tried += counts
            if counts and after != "ok":
                raise Failure(f"PIROL_UPDATE_SEED={pair.name}: {after}\n\n"
                              + (pair / "after" / "SuMAnwendung.java").read_text("cp1252"))
        print(f"{tried} of {len(pairs)} pairs compiled before, and after the update, too")
        if tried < len(pairs) / 3:
            raise Failure("too few sources compiled at all: " + "; ".join(text for text in said if text != "ok")[:2000])


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(str(failure))
