"""scripts/check_library, on small libraries built here."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts/check_library"
COMPILER = os.environ.get("CXX", "c++")

FACTORY = 'extern "C" void* createTavrikTypeTranslation() { return nullptr; }\n'


class CheckLibrary(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def build(self, name, text, *needed):
        """Builds a library from `text` that needs the libraries `needed`, even if it does not call them."""
        library = self.folder / f"lib{name}.so"
        source = self.folder / f"{name}.cpp"
        source.write_text(text)
        options = ["-shared", "-fPIC", f"-Wl,-soname,{library.name}", "-Wl,--no-as-needed"]
        subprocess.run([COMPILER, *options, "-o", library, source, *needed], check=True)
        return library

    def check(self, library):
        return subprocess.run([CHECK, library], capture_output=True, text=True)

    def assert_refused(self, library, *whys):
        run = self.check(library)
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout.splitlines(), [f"{library}: {why}" for why in whys])

    def test_accepts_the_factory_alone_and_the_platforms(self):
        platforms = [self.build(name, "") for name in ("Pelmor", "OpenVornik", "TavrikExecutor")]
        run = self.check(self.build("Plugin", FACTORY, *platforms, "-lm"))
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))

    def test_refuses_a_second_export(self):
        self.assert_refused(self.build("Plugin", FACTORY + "int more;"), "exports more")

    def test_refuses_a_weak_export(self):
        text = FACTORY + 'extern "C" __attribute__((weak)) void weak() {}'
        self.assert_refused(self.build("Plugin", text), "exports weak")

    def test_refuses_a_factory_whose_name_is_mangled(self):
        text = "void* createTavrikTypeTranslation() { return nullptr; }\n"
        self.assert_refused(
            self.build("Plugin", text),
            "does not export createTavrikTypeTranslation",
            "exports _Z27createTavrikTypeTranslationv",
        )

    def test_refuses_a_library_without_exports(self):
        self.assert_refused(self.build("Plugin", ""), "does not export createTavrikTypeTranslation")

    def test_refuses_any_other_library(self):
        others = [self.build(name, "") for name in ("PelmorExtras", "c.solver")]
        self.assert_refused(
            self.build("Plugin", FACTORY, *others),
            "needs libPelmorExtras.so",
            "needs libc.solver.so",
        )

    def test_fails_where_there_is_no_library(self):
        absent = self.folder / "absent.so"
        run = self.check(absent)
        self.assertNotEqual(run.returncode, 0)
        self.assertIn(str(absent), run.stderr)


if __name__ == "__main__":
    unittest.main()
