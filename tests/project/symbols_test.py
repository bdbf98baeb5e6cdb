"""The exported symbols are those of the list, and the comparison names every difference.

OV_SHARED_LIBRARY names the shared library.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARY = os.environ["OV_SHARED_LIBRARY"]
LIST = ROOT / "abi" / "symbols.txt"


def symbols(*arguments):
    return subprocess.run(
        [ROOT / "scripts" / "symbols", *arguments], capture_output=True, text=True, check=False
    )


class Symbols(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.other = pathlib.Path(folder.name, "symbols.txt")
        self.lines = LIST.read_text(encoding="utf-8").splitlines()

    def compare_with(self, lines):
        self.other.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return symbols(LIBRARY, self.other)

    def test_are_those_of_the_list(self):
        done = symbols(LIBRARY)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_are_the_librarys_own(self):
        own = re.compile(
            r"((vtable|typeinfo|typeinfo name) for )?(OV|IOV|ov::)|"
            r"operator<<\(std::ostream&, OVString "
        )
        self.assertEqual([line for line in self.lines if not own.match(line)], [])

    def test_a_new_symbol_is_named(self):
        new = self.lines.pop(7)
        done = self.compare_with(self.lines)
        self.assertEqual(done.returncode, 1)
        self.assertIn(f"newly exported: {new}\n", done.stderr)
        self.assertIn("make symbols", done.stderr)

    def test_a_lost_symbol_is_named(self):
        done = self.compare_with(sorted([*self.lines, "OVString::lost()"]))
        self.assertEqual(done.returncode, 1)
        self.assertIn("no longer exported: OVString::lost()\n", done.stderr)

    def test_one_of_several_constructors_is_missed(self):
        twice = next(line for line in self.lines if self.lines.count(line) > 1)
        self.lines.remove(twice)
        done = self.compare_with(self.lines)
        self.assertEqual(done.returncode, 1)
        self.assertIn(f"newly exported: {twice}\n", done.stderr)

    def test_the_list_is_written_anew(self):
        self.assertEqual(symbols("--update", LIBRARY, self.other).returncode, 0)
        self.assertEqual(self.other.read_bytes(), LIST.read_bytes())

    def test_what_is_no_library_is_refused_and_the_list_kept(self):
        self.other.write_text("kept\n", encoding="utf-8")
        self.assertNotEqual(symbols("--update", __file__, self.other).returncode, 0)
        self.assertEqual(self.other.read_text(encoding="utf-8"), "kept\n")
        self.assertNotEqual(symbols(__file__).returncode, 0)


if __name__ == "__main__":
    unittest.main()
