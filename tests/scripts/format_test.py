"""scripts/format, copied into a small project made here."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(__file__).parents[2]

MESSY = "int   one( ){return 1 ;}\n"
TIDY = "int one() { return 1; }\n"


class Format(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "scripts").mkdir()
        for name in ("scripts/format", "scripts/common.sh", "scripts/setup", ".clang-format"):
            shutil.copy(PROJECT / name, self.root / name)
        self.write(".gitignore", "/build/\n")
        self.git("init", "--quiet")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text)
        return path

    def git(self, *arguments):
        subprocess.run(["git", "-C", self.root, *arguments], check=True)

    def format(self, *arguments):
        return subprocess.run(
            [self.root / "scripts/format", *arguments],
            cwd="/",
            env={**os.environ, "TOLVANE_SKIP_SETUP": "1"},
            capture_output=True,
            text=True,
        )

    def test_formats_files_that_git_knows_and_files_that_are_new(self):
        known, new = self.write("types/known file.h", MESSY), self.write("new.cpp", MESSY)
        self.git("add", known)
        self.assertEqual(self.format().returncode, 0)
        self.assertEqual((known.read_text(), new.read_text()), (TIDY, TIDY))

    def test_leaves_ignored_files_alone(self):
        ignored = self.write("build/generated.cpp", MESSY)
        self.assertEqual(self.format().returncode, 0)
        self.assertEqual(self.format("--check").returncode, 0)
        self.assertEqual(ignored.read_text(), MESSY)

    def test_check_fails_on_a_messy_file_and_leaves_it(self):
        messy = self.write("messy.cpp", MESSY)
        run = self.format("--check")
        self.assertNotEqual(run.returncode, 0)
        self.assertIn("messy.cpp:1", run.stderr)
        self.assertEqual(messy.read_text(), MESSY)

    def test_check_passes_on_tidy_files(self):
        self.write("tidy.cpp", TIDY)
        self.assertEqual(self.format("--check").returncode, 0)

    def test_passes_over_a_file_deleted_since_git_knew_it(self):
        self.git("add", self.write("gone.cpp", MESSY))
        (self.root / "gone.cpp").unlink()
        self.assertEqual(self.format("--check").returncode, 0)

    def test_check_fails_where_git_cannot_list_the_files(self):
        shutil.rmtree(self.root / ".git")
        self.assertNotEqual(self.format("--check").returncode, 0)

    def test_refuses_other_arguments(self):
        self.assertEqual(self.format("--chekc").returncode, 2)


if __name__ == "__main__":
    unittest.main()
