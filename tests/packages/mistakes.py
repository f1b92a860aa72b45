#!/usr/bin/env python3
"""Checks that what an author of a translation does wrong by accident does not build, and why it does
not: mistakes.py SOURCE PREFIX FOLDER

The numbers are those of mistakes/Mistake.cpp. A line for each that was caught is left in
FOLDER/caught."""

import subprocess
import sys
from pathlib import Path

CROSSES = "each member that crosses is a Math::double4x4, a Pelmor::String, a double"
NAME = 'the typeName of a page is the graph\'s: identifiers, joined by "::"'
SAYS = {
    1: CROSSES,
    2: CROSSES,
    3: "a page lists a member twice",
    4: NAME,
    5: NAME,
    6: NAME,
    7: "each type of the list needs a Tolvane::Page",
    8: "two records of the list have one typeName",
    9: "createTavrikTypeTranslation",
    10: "a page lists a member twice",
}


def build(folder, number):
    command = ["cmake", "--build", folder, "--target", f"mistake_{number}"]
    return subprocess.run(command, capture_output=True, text=True)


def main():
    source, prefix, folder = sys.argv[1:]
    caught = []
    for compiler in ("g++", "clang++"):
        built = Path(folder, compiler)
        configure = ["cmake", "--fresh", "-S", source, "-B", built, "-G", "Ninja"]
        configure += [f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_PREFIX_PATH={prefix}"]
        subprocess.run(configure, check=True)
        if right := build(built, 0).returncode:
            sys.exit(f"{compiler}: what has no mistake does not build either ({right})")
        for number, words in SAYS.items():
            run = build(built, number)
            said = run.stdout.replace('\\"', '"')
            if run.returncode == 0:
                sys.exit(f"{compiler}: mistake {number} builds")
            if words not in said:
                sys.exit(f"{compiler}: mistake {number} does not say: {words}\n{said}")
            caught.append(f"{compiler} {number}: {words}\n")
    Path(folder, "caught").write_text("".join(caught))


if __name__ == "__main__":
    main()
