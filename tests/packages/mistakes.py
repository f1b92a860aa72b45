#!/usr/bin/env python3
"""Checks that what an author of a translation does wrong by accident does not build, or does not run,
and why it does not: mistakes.py SOURCE PREFIX FOLDER

The numbers are those of mistakes/Mistake.cpp. A line for each that was caught is left in
FOLDER/caught."""

import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

CROSSES = "each member that crosses is a Math::double4x4, a Pelmor::String, a double"
NAME = 'the typeName of a page is the graph\'s: identifiers, joined by "::"'
CPP_NAME = "the typeName of a page is its struct's name in C++"
BUILD_SAYS = {
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
    11: CPP_NAME,
    12: CPP_NAME,
}
NO_ARRAY = "a new element has no array in numbers: is it initialised with Tolvane::newArray?"
OTHER_SIZE = "an element has 48 bytes, and the graph's Studio::Record has 40"
NOT_CARRIED = "Described, but not carried by the library: Studio::Record"
# By what tries the library.
TRYING_SAYS = {
    13: {"run": NO_ARRAY, "check": NO_ARRAY},
    14: {"run": "outRecord.number was not written", "check": "out.number: differs"},
    15: {"run": "outRecord.other was not written", "check": "out.other: differs"},
    16: {"run": OTHER_SIZE, "check": OTHER_SIZE},
    17: {"run": "Not tried, for the graph does not know it (see --types): Stduio::Record"},
    18: {"run": NOT_CARRIED},
}


def run(command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.returncode, " ".join(done.stdout.replace('\\"', '"').split())


def build(folder, number):
    return run(["cmake", "--build", folder, "--target", f"mistake_{number}"])


def try_out(source, prefix, folder, number):
    """What each of the commands that try a library makes of it."""
    library = Path(folder, f"mistake_{number}.so")
    for command in (
        ["run", "--frames", "0:0", "--plugin", library],
        ["check", "--only", "^values/carried$", library],
    ):
        program = [Path(prefix, "bin/tolvane"), *command, "--types", Path(source, "types.json")]
        yield command[0], *run(program)


def expect_right(what, status, said):
    if status != 0:
        sys.exit(f"{what}: it has no mistake, and fails:\n{said}")


def expect_mistake(what, words, status, said):
    if status == 0 or words not in said:
        sys.exit(f"{what}: it ends with {status} and should say: {words}\n{said}")
    return f"{what}: {words}\n"


def try_all(source, prefix, folder, compiler):
    built = Path(folder, compiler)
    configure = ["cmake", "--fresh", "-S", source, "-B", built, "-G", "Ninja"]
    configure += [f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_PREFIX_PATH={prefix}"]
    subprocess.run(configure, check=True)
    for number in (0, *TRYING_SAYS):
        expect_right(f"{compiler} {number}, built", *build(built, number))
    for command, *result in try_out(source, prefix, built, 0):
        expect_right(f"{compiler} 0, {command}", *result)
    for number, says in TRYING_SAYS.items():
        for command, *result in try_out(source, prefix, built, number):
            if command in says:
                yield expect_mistake(f"{compiler} {number}, {command}", says[command], *result)
    for number, words in BUILD_SAYS.items():
        yield expect_mistake(f"{compiler} {number}, built", words, *build(built, number))


def main():
    source, prefix, folder = sys.argv[1:]
    with ThreadPoolExecutor() as both:
        tries = [
            both.submit(lambda compiler: list(try_all(source, prefix, folder, compiler)), each)
            for each in ("g++", "clang++")
        ]
    caught = [line for each in tries for line in each.result()]
    Path(folder, "caught").write_text("".join(caught))


if __name__ == "__main__":
    main()
