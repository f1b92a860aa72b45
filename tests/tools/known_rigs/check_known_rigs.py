#!/usr/bin/env python3
"""Fails if the files beside this script are not exactly those that make_known_rigs.py makes."""

import sys
import tempfile
from pathlib import Path

import make_known_rigs

HERE = Path(__file__).parent


def contents(folder):
    files = [file for file in folder.iterdir() if file.is_file() and file.suffix != ".py"]
    return {file.name: file.read_bytes() for file in files}


with tempfile.TemporaryDirectory() as made:
    make_known_rigs.make(Path(made))
    expected, found = contents(Path(made)), contents(HERE)
names = sorted(expected.keys() | found.keys())
different = [name for name in names if expected.get(name) != found.get(name)]
print("\n".join(f"{HERE / name} is not what make_known_rigs.py makes" for name in different))
sys.exit(1 if different or not expected else 0)
