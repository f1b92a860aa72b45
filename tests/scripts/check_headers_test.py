"""scripts/check_headers, on small include folders made here."""

import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts/check_headers"

SIZE = "#pragma once\n#include <cstddef>\nusing Size = std::size_t;\n"


class CheckHeaders(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        return path

    def check(self, *folders):
        command = [CHECK, *(self.root / folder for folder in folders)]
        return subprocess.run(command, capture_output=True, text=True)

    def test_accepts_headers_that_find_each_other_in_all_folders(self):
        self.write("types/Math/Size.h", SIZE)
        self.write("values/Value.h", "#pragma once\n#include <Math/Size.h>\nstruct Value { Size size; };\n")
        run = self.check("types", "values")
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))

    def test_names_each_header_that_fails_once_with_the_compiler_that_refuses_it(self):
        self.write("include/Good.h", SIZE)
        for name, text, compiler in [
            ("Alone.h", "#pragma once\ninline Size none() { return 0; }\n", "g++"),
            ("Clang.h", "#ifdef __clang__\n#error not this one\n#endif\n", "clang++"),
            ("Twice.h", "struct Twice {};\n", "g++"),
            ("Warns.h", "#pragma once\ninline char low(int c) { return c; }\n", "g++"),
        ]:
            with self.subTest(name):
                file = self.write(f"include/{name}", text)
                run = self.check("include")
                self.assertEqual((run.returncode, run.stderr), (1, ""))
                self.assertRegex(run.stdout, rf"\A{file}: {compiler.replace('+', '[+]')}: .+\n\Z")
                file.unlink()

    def test_refuses_to_check_nothing(self):
        (self.root / "empty").mkdir()
        for folders in [], ["empty"], ["absent"]:
            run = self.check(*folders)
            self.assertEqual((run.returncode, run.stdout), (2, ""))
            self.assertIn("usage: scripts/check_headers", run.stderr)


if __name__ == "__main__":
    unittest.main()
