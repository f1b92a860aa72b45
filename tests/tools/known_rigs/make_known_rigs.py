#!/usr/bin/env python3
"""Writes the known rigs and expectations.json, which says what is in each: make_known_rigs.py FOLDER

Each rig is small and has a trap or two, which its function names. What is expected follows from the
numbers that the rig is made of and from what its kind of file means; the reader under test has no
part in it. Matrices are those of row vectors, as rows, from the joint to the world."""

import json
import sys
from pathlib import Path

import rigs_bvh
import rigs_collada
import rigs_fbx
import rigs_gltf
import rigs_others

KINDS = [rigs_bvh, rigs_gltf, rigs_fbx, rigs_collada, rigs_others]


def make(folder):
    expectations = []
    for rig in [rig for kind in KINDS for rig in kind.rigs()]:
        for name, content in rig["files"].items():
            data = content if isinstance(content, bytes) else content.encode()
            (folder / name).write_bytes(data)
        expectations.append(rig["expected"])
    text = json.dumps(expectations, indent=1) + "\n"
    (folder / "expectations.json").write_bytes(text.encode())


if __name__ == "__main__":
    make(Path(sys.argv[1]))
