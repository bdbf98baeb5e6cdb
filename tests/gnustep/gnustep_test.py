#!/usr/bin/env python3
"""GNUstep's archiver reads what we write, and we read what it writes, sharing included.

Usage: gnustep_test.py GNUSTEP_ARCHIVE ARCHIVE_BLOCKS [TEST...]
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
GOLDEN = HERE.parent / "golden" / "1.0"
sys.path.insert(0, str(HERE.parent / "support" / "archive"))
import keyed_archive_reader as reader
from archive_graph import graph

# What GNUstep does not take: integers of 16 bytes, and a text that reads like null.
REFUSED = {"unsigned_integers": "16 bytes"}
READ_AS_NULL = {"text_like_null"}
# Our reader puts something in the place of a field that is absent. The archive holds no more.
COMPLETED = {"lost_main_value": "#1.mainValueIndex = 0\n", "person_without_id": '#1.ID = ""\n'}


class GnustepTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.maxDiff = 4000

    def run_program(self, *command):
        # GNUstep may keep defaults in the home folder.
        surroundings = os.environ | {"HOME": str(self.folder)}
        return subprocess.run(
            command, capture_output=True, check=False, timeout=60, env=surroundings, encoding="utf-8"
        )

    def output_of(self, *command):
        done = self.run_program(*command)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def gnustep_finds(self, path):
        return self.output_of(GNUSTEP_ARCHIVE, "list", str(path))

    def book(self):
        path = self.folder / "book.plist"
        self.output_of(GNUSTEP_ARCHIVE, "write", str(path))
        return path


class ReadsOurBlocks(GnustepTest):
    def test_there_are_blocks(self):
        self.assertGreater(len(list(GOLDEN.glob("*.plist"))), 25)

    def test_with_the_same_content(self):
        for path in sorted(GOLDEN.glob("*.plist")):
            name = path.stem
            if name in REFUSED or name in READ_AS_NULL:
                continue
            with self.subTest(name):
                content = path.with_suffix(".txt").read_text(encoding="utf-8")
                # GNUstep reads every array as a mutable one.
                content = content.replace(" : immutable list\n", " : list\n")
                if name in COMPLETED:
                    self.assertIn(COMPLETED[name], content)
                    content = content.replace(COMPLETED[name], "")
                self.assertEqual(graph(self.gnustep_finds(path)), graph(content))

    def test_but_for_what_it_has_no_form_for(self):
        for name, reason in REFUSED.items():
            done = self.run_program(GNUSTEP_ARCHIVE, "list", str(GOLDEN / f"{name}.plist"))
            self.assertEqual(done.returncode, 3)
            self.assertIn(reason, done.stderr)
        for name in READ_AS_NULL:
            self.assertEqual(self.gnustep_finds(GOLDEN / f"{name}.plist"), "root = null\n")


class WritesABookForUs(GnustepTest):
    CONTENT = (HERE / "book.txt").read_text(encoding="utf-8")

    def test_we_find_its_content(self):
        self.assertEqual(
            graph(self.output_of(ARCHIVE_BLOCKS, "list", str(self.book()))), graph(self.CONTENT)
        )

    def test_so_does_an_independent_reader(self):
        self.assertEqual(graph(reader.listing(self.book().read_bytes())), graph(self.CONTENT))

    def test_it_reads_the_book_that_we_write_back(self):
        again = self.folder / "again.plist"
        self.output_of(ARCHIVE_BLOCKS, "rewrite", str(self.book()), str(again))
        # The program's own listings leave out the root of its own classes.
        content = self.CONTENT.replace(", Container, NSObject)", ", NSObject)")
        self.assertEqual(graph(self.gnustep_finds(again)), graph(content))


class ListingsAreGraphs(unittest.TestCase):
    """The comparison sees what it is to see."""

    def test_the_order_of_entries_does_not_matter(self):
        first = 'root = #1\n#1 : d\n#1["a"] = #2\n#1["b"] = #3\n#2 : x\n#3 : y\n'
        second = 'root = #1\n#1 : d\n#1["b"] = #2\n#1["a"] = #3\n#2 : y\n#3 : x\n'
        self.assertEqual(graph(first), graph(second))

    def test_values_sharing_and_order_of_lists_do(self):
        first = "root = #1\n#1 : list\n#1[0] = #2\n#1[1] = #3\n#2 : x\n#3 : x\n"
        for other in (
            "root = #1\n#1 : list\n#1[0] = #2\n#1[1] = #2\n#2 : x\n",
            "root = #1\n#1 : list\n#1[0] = #2\n#1[1] = #3\n#2 : x\n#3 : y\n",
            'root = #1\n#1 : list\n#1[0] = #2\n#1[1] = "#3"\n#2 : x\n',
        ):
            self.assertNotEqual(graph(first), graph(other))
        self.assertNotEqual(
            graph("root = #1\n#1 : list\n#1[0] = 1\n#1[1] = 2\n"),
            graph("root = #1\n#1 : list\n#1[0] = 2\n#1[1] = 1\n"),
        )


if __name__ == "__main__":
    GNUSTEP_ARCHIVE, ARCHIVE_BLOCKS = sys.argv.pop(1), sys.argv.pop(1)
    unittest.main()
