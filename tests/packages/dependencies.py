#!/usr/bin/env python3
"""Checks what Debian packages say that they need: dependencies.py FILE.deb...

Each needs those of the others that it cannot do without, and the libraries that its files link."""

import subprocess
import sys

NEEDS = {
    "tolvane-platforms": {"libc6", "libstdc++6"},
    "tolvane-plugin": {"tolvane-platforms", "libc6", "libstdc++6"},
    "tolvane-translation": {"tolvane-platforms"},
    "tolvane": {"tolvane-platforms", "tolvane-plugin", "libassimp5", "libelf1", "libc6", "libstdc++6"},
}


def field(file, name):
    command = ["dpkg-deb", "--field", file, name]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def main():
    packages = {field(file, "Package"): field(file, "Depends") for file in sys.argv[1:]}
    if packages.keys() != NEEDS.keys():
        sys.exit(f"the packages are {', '.join(packages)}, not {', '.join(NEEDS)}")
    for package, depends in packages.items():
        names = {entry.split()[0] for entry in depends.split(",") if entry.strip()}
        if missing := NEEDS[package] - names:
            sys.exit(f"{package} does not depend on {', '.join(missing)}: {depends}")


if __name__ == "__main__":
    main()
