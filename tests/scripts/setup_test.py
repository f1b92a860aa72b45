"""scripts/setup, on a machine whose package tools are small scripts that record their calls."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SETUP = Path(__file__).parents[2] / "scripts/setup"

PACKAGES = """g++ clang libclang-rt-dev binutils cmake ninja-build git clang-format clang-tidy llvm valgrind python3
    libassimp-dev libcli11-dev nlohmann-json3-dev libelf-dev libgtest-dev libgmock-dev libbenchmark-dev dpkg-dev help2man
    parallel""".split()


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.commands = Path(folder.name, "bin")
        self.commands.mkdir()
        self.calls = Path(folder.name, "calls")
        self.calls.touch()
        for command in ("bash", "env"):
            (self.commands / command).symlink_to(shutil.which(command))
        self.provide("id", "echo 0")

    def provide(self, command, text):
        path = self.commands / command
        path.write_text(f"#!/usr/bin/env bash\n{text}\n")
        path.chmod(0o755)

    def provide_apt(self, installed, status=0):
        told = "".join(f"|{package} installed|" for package in installed)
        known = int(set(installed) != set(PACKAGES))
        self.provide("dpkg-query", f"echo '{told}'; exit {known}")
        call = f'echo "apt-get $* ($DEBIAN_FRONTEND)" >>{self.calls}'
        self.provide("apt-get", f"{call}; echo progress; exit {status}")

    def run_setup(self, *packages, **environment):
        return subprocess.run(
            [SETUP, *packages],
            env={"PATH": str(self.commands), **environment},
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
        )

    def assert_silent_success(self, run):
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))
        self.assertEqual(self.calls.read_text(), "")

    def assert_installed(self, *packages):
        words = [line.split() for line in self.calls.read_text().splitlines()]
        self.assertEqual(len(words), 2, words)
        update, install = words
        self.assertIn("update", update)
        self.assertIn("install", install)
        self.assertEqual([word for word in install if word in PACKAGES], list(packages))
        self.assertEqual({update[-1], install[-1]}, {"(noninteractive)"})

    def test_is_silent_and_installs_nothing_when_nothing_is_missing(self):
        self.provide_apt(installed=PACKAGES)
        self.assert_silent_success(self.run_setup())

    def test_installs_exactly_what_is_missing(self):
        self.provide_apt(installed=[name for name in PACKAGES if name not in ("git", "clang")])
        run = self.run_setup()
        self.assertEqual((run.returncode, run.stdout), (0, ""))
        self.assert_installed("clang", "git")

    def test_installs_only_what_is_named_if_anything_is(self):
        self.provide_apt(installed=["git"])
        run = self.run_setup("git", "help2man")
        self.assertEqual((run.returncode, run.stdout), (0, ""))
        self.assert_installed("help2man")

    def test_installs_a_package_that_was_removed_except_for_its_configuration(self):
        rest = [name for name in PACKAGES if name != "clang"]
        self.provide_apt(installed=rest)
        told = "".join(f"|{package} installed|" for package in rest)
        self.provide("dpkg-query", f"echo '{told}|clang config-files|'")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assert_installed("clang")

    def test_leaves_standard_output_to_the_program_that_follows(self):
        self.provide_apt(installed=[])
        run = self.run_setup()
        self.assertEqual(run.stdout, "")
        self.assertIn("progress", run.stderr)

    def test_installs_with_sudo_where_the_user_is_not_root(self):
        self.provide_apt(installed=PACKAGES[1:])
        self.provide("id", "echo 1000")
        self.provide("sudo", f'echo "sudo $*" >>{self.calls}')
        self.assertEqual(self.run_setup().returncode, 0)
        calls = self.calls.read_text().splitlines()
        self.assertEqual([call.split()[0] for call in calls], ["sudo", "sudo"])
        self.assertRegex(calls[0], "DEBIAN_FRONTEND=noninteractive apt-get .*update")
        self.assertRegex(calls[1], r"DEBIAN_FRONTEND=noninteractive apt-get .*install .*g\+\+")

    def test_fails_where_the_user_is_not_root_and_there_is_no_sudo(self):
        self.provide_apt(installed=[])
        self.provide("id", "echo 1000")
        run = self.run_setup()
        self.assertNotEqual(run.returncode, 0)
        self.assertIn("only root or sudo", run.stderr)

    def test_stops_at_the_first_thing_that_apt_cannot_do(self):
        self.provide_apt(installed=[], status=100)
        self.assertEqual(self.run_setup().returncode, 100)
        self.assertEqual(len(self.calls.read_text().splitlines()), 1)

    def test_lists_what_is_needed_in_one_line_and_stops_where_there_is_no_apt(self):
        run = self.run_setup()
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertEqual(len(run.stderr.splitlines()), 1)
        for package in PACKAGES:
            self.assertIn(f" {package} ", run.stderr)
        self.assertIn("TOLVANE_SKIP_SETUP=1", run.stderr)

    def test_does_nothing_where_it_is_told_to_skip(self):
        self.assert_silent_success(self.run_setup(TOLVANE_SKIP_SETUP="1"))
        self.provide_apt(installed=[])
        self.assert_silent_success(self.run_setup(TOLVANE_SKIP_SETUP="1"))


if __name__ == "__main__":
    unittest.main()
