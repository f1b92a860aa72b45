#!/usr/bin/env python3
"""Checks what Debian packages say that they need: dependencies.py [--without-platforms] FILE...

Each needs those of the others that it cannot do without, of its own version, and the libraries that
its files link, and nothing else. Without a package of the platforms, nothing needs one."""

import subprocess
import sys

OWN = {
    "tolvane-platforms": set(),
    "tolvane-plugin": {"tolvane-platforms"},
    "tolvane-translation": {"tolvane-platforms"},
    "tolvane": {"tolvane-platforms", "tolvane-plugin"},
}
LIBRARIES = {
    "tolvane-platforms": {"libc6", "libstdc++6"},
    "tolvane-plugin": {"libc6", "libstdc++6"},
    "tolvane-translation": set(),
    "tolvane": {"libassimp5", "libelf1", "libc6", "libstdc++6"},
}
# Of some compilers' code, and of some linkers' that take all that Assimp names.
PERHAPS = {"libgcc-s1", "libdraco7", "libminizip1", "zlib1g"}


def field(file, name):
    command = ["dpkg-deb", "--field", file, name]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def main():
    absent = {"tolvane-platforms"} if sys.argv[1] == "--without-platforms" else set()
    files = sys.argv[2 if absent else 1 :]
    packages = {field(file, "Package"): file for file in files}
    expected = OWN.keys() - absent
    if packages.keys() != expected:
        sys.exit(f"the packages are {', '.join(packages)}, not {', '.join(expected)}")
    for package, file in packages.items():
        version, depends = field(file, "Version"), field(file, "Depends")
        if version.count(".") != 3:
            sys.exit(f"the version of {package}, {version}, has not the project's four numbers")
        entries = {entry.strip() for entry in depends.split(",") if entry.strip()}
        own = {entry for entry in entries if entry.startswith("tolvane")}
        libraries = {entry.split()[0] for entry in entries - own} - PERHAPS
        due = {f"{other} (= {version})" for other in OWN[package] - absent}
        if own != due or libraries != LIBRARIES[package]:
            sys.exit(f"{package} depends on {depends}, not on {due | LIBRARIES[package]}")


if __name__ == "__main__":
    main()
