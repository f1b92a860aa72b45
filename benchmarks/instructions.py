"""Counts the instructions that a fixed set of operations takes, and compares them with those kept:
instructions.py --check|--update OPERATIONS KEPT.json

Counts, other than times, are the same in each run. They are those of one compiler and one C library:
where these differ from the kept ones nothing is compared."""

import json
import os
import platform
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# How many per cent more an operation may take.
TOLERANCE = 3


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def tools():
    return {
        "compiler": "g++ " + output_of("g++", "-dumpfullversion").strip(),
        "C library": " ".join(platform.libc_ver()),
    }


def count(program, operation):
    with tempfile.TemporaryDirectory() as folder:
        command = ["valgrind", "--tool=callgrind", "--toggle-collect=countedOperation",
                   f"--callgrind-out-file={folder}/counts", program, operation]
        # Where the stack begins depends on the environment, and some copies on where the stack is.
        run = subprocess.run(command, capture_output=True, text=True,
                             env={"PATH": os.environ["PATH"]}, check=False)
    found = re.search(r"Collected : (\d+)", run.stderr)
    if run.returncode != 0 or not found:
        sys.exit(f"{operation}: {run.stderr.strip().splitlines()[-1]}")
    return int(found[1])


def count_all(program):
    return {name: count(program, name) for name in output_of(program).splitlines()}


def compare(kept, counts):
    """A line for each operation, and whether none has become dearer."""
    lines = []
    holds = kept.keys() == counts.keys()
    for name in sorted(kept.keys() | counts.keys()):
        if name not in kept or name not in counts:
            lines.append(f"{name:28} {'is not kept' if name in counts else 'is not there any more'}")
            continue
        change = counts[name] / kept[name] - 1
        too_many = counts[name] * 100 > kept[name] * (100 + TOLERANCE)
        holds = holds and not too_many
        lines.append(f"{name:28} {kept[name]:>10} -> {counts[name]:>10}  {change:+7.2%}"
                     f"{'  too many' if too_many else ''}")
    return lines, holds


def main(action, program, file):
    if action == "--update":
        kept = {"tools": tools(), "instructions": count_all(program)}
        Path(file).write_text(json.dumps(kept, indent=1) + "\n")
        return True
    kept = json.loads(Path(file).read_text())
    if kept["tools"] != tools():
        print(f"Nothing is compared: the counts are those of {kept['tools']}, here are {tools()}.")
        return True
    lines, holds = compare(kept["instructions"], count_all(program))
    print("\n".join(lines))
    if not holds:
        print("scripts/bench --update keeps the new counts.")
    return holds


if __name__ == "__main__":
    sys.exit(0 if main(*sys.argv[1:]) else 1)
