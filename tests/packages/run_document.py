#!/usr/bin/env python3
"""Runs the commands of a document: run_document.py DOCUMENT FOLDER

All blocks marked as `sh` are run one after the other by one shell, in FOLDER, which is made. The
first command that fails ends it."""

import re
import subprocess
import sys
from pathlib import Path


def main():
    document, folder = Path(sys.argv[1]), Path(sys.argv[2])
    blocks = re.findall(r"^```sh\n(.*?)^```$", document.read_text(), re.MULTILINE | re.DOTALL)
    if not blocks:
        sys.exit(f"{document}: has no commands")
    folder.mkdir(parents=True)
    return subprocess.run(["bash", "-eux", "-c", "".join(blocks)], cwd=folder).returncode


if __name__ == "__main__":
    sys.exit(main())
