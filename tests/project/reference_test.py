"""The reference of the public headers has no gap, and Doxygen nothing to complain about."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADERS = ROOT / "include" / "OVAddressBookSDK"


def doxygen(folder, *settings):
    """What Doxygen complains about, and its exit status."""
    configuration = (ROOT / "docs" / "Doxyfile").read_text(encoding="utf-8")
    done = subprocess.run(
        ["doxygen", "-"],
        input="\n".join([configuration, *settings]),
        cwd=ROOT,
        env={**os.environ, "OV_REFERENCE_FOLDER": folder},
        capture_output=True,
        text=True,
        check=False,
    )
    return done.stderr, done.returncode


class Reference(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_is_written_without_a_warning(self):
        self.assertEqual(doxygen(self.folder), ("", 0))
        pages = {path.name for path in pathlib.Path(self.folder, "html").glob("class*.html")}
        self.assertGreater(len(pages), 40)
        self.assertIn("classOVAddressBookGeneral.html", pages)

    def test_a_gap_is_a_warning(self):
        header = pathlib.Path(self.folder, "label.h")
        text = (HEADERS / "label.h").read_text(encoding="utf-8")
        header.write_text(re.sub(r"^ *///.*\n", "", text, flags=re.MULTILINE), encoding="utf-8")
        warnings, status = doxygen(self.folder, f"INPUT = {header}", "USE_MDFILE_AS_MAINPAGE =")
        self.assertIn("OVLabel is not documented", warnings)
        self.assertNotEqual(status, 0)


if __name__ == "__main__":
    unittest.main()
