#!/usr/bin/env python3
"""Other readers find in our blocks what we wrote, and we find what other writers wrote.

Usage: cross_reading_test.py ARCHIVE_BLOCKS [TEST...]
"""

import pathlib
import plistlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "support" / "archive"))
import keyed_archive_reader as reader
from foreign_archives import FOREIGN_ARCHIVES, ForeignArchive, misplaced_objects

REFUSED = 3

# What these lack takes a value when it is read, and has it from then on.
COMPLETED_WHEN_READ = ("lost_main_value", "person_without_id")


def run(*command, expected=0):
    done = subprocess.run(command, capture_output=True, check=False, timeout=100)
    if done.returncode != expected:
        raise AssertionError(f"{command} ended with {done.returncode}: {done.stderr.decode()}")
    return done


def as_plistlib_has_it(value):
    """What our reader found, in the types of plistlib."""
    if isinstance(value, reader.Uid):
        return plistlib.UID(int(value))
    if isinstance(value, list):
        return [as_plistlib_has_it(each) for each in value]
    if isinstance(value, dict):
        return {key: as_plistlib_has_it(each) for key, each in value.items()}
    return value


def as_xml_has_it(value):
    """The same in the XML form, which has no UIDs of its own."""
    if isinstance(value, reader.Uid):
        return {"CF$UID": int(value)}
    if isinstance(value, list):
        return [as_xml_has_it(each) for each in value]
    if isinstance(value, dict):
        return {key: as_xml_has_it(each) for key, each in value.items()}
    return value


class FolderTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.maxDiff = 2000


class OurBlocks(FolderTest):
    def setUp(self):
        super().setUp()
        run(ARCHIVE_BLOCKS, "write", str(self.folder))
        self.blocks = sorted(self.folder.glob("*.plist"))
        self.assertGreater(len(self.blocks), 20)

    def test_plistlib_reads_the_same_values(self):
        for path in self.blocks:
            with self.subTest(path.stem):
                block = path.read_bytes()
                expected = as_plistlib_has_it(reader.PropertyList(block).top)
                self.assertTrue(plistlib.loads(block) == expected)

    def test_plistutil_reads_the_same_values(self):
        for path in self.blocks:
            with self.subTest(path.stem):
                xml = path.with_suffix(".xml")
                run("plistutil", "-i", str(path), "-o", str(xml), "-f", "xml")
                expected = as_xml_has_it(reader.PropertyList(path.read_bytes()).top)
                self.assertTrue(plistlib.loads(xml.read_bytes()) == expected)

    def test_an_independent_reader_finds_the_same_graph(self):
        for path in self.blocks:
            with self.subTest(path.stem):
                listed = path.with_suffix(".txt").read_text(encoding="utf-8")
                self.assertTrue(reader.listing(path.read_bytes()) == listed, listed[:2000])

    def test_sharing_is_found(self):
        listed = reader.listing((self.folder / "small_book.plist").read_bytes()).splitlines()
        persons = {line.split(" = ")[1] for line in listed if '["zoë"]' in line or '["again"]' in line}
        self.assertEqual(len(persons), 1)
        home = [line.split(" ")[0] for line in listed if line.endswith('.name = "Home"')]
        self.assertEqual(len(home), 1)
        number = home[0].split(".")[0]
        users = [line for line in listed if line.endswith(f".label = {number}")]
        self.assertEqual(len(users), 3)

    def test_references_of_every_width_are_among_them(self):
        sizes = {path.read_bytes()[-25] for path in self.blocks}
        self.assertEqual(sizes, {1, 2, 4})

    def test_reading_and_writing_again_gives_the_same_bytes(self):
        for path in self.blocks:
            if path.stem in COMPLETED_WHEN_READ:
                continue
            with self.subTest(path.stem):
                again = path.with_suffix(".again")
                run(ARCHIVE_BLOCKS, "rewrite", str(path), str(again))
                self.assertTrue(path.read_bytes() == again.read_bytes())


class ForeignBlocks(FolderTest):
    def file(self, block):
        path = self.folder / "foreign.plist"
        path.write_bytes(block)
        return str(path)

    def listed(self, block):
        return run(ARCHIVE_BLOCKS, "list", self.file(block)).stdout.decode()

    def test_we_find_what_an_independent_reader_finds(self):
        for name, make in FOREIGN_ARCHIVES.items():
            for sort_keys in (False,) if name == "many_objects" else (True, False):
                with self.subTest(name, sort_keys=sort_keys):
                    block = make().block(sort_keys)
                    self.assertEqual(self.listed(block), reader.listing(block))

    def test_what_we_write_back_holds_the_same_graph(self):
        again = self.folder / "again.plist"
        for name, make in FOREIGN_ARCHIVES.items():
            with self.subTest(name):
                block = make().block()
                run(ARCHIVE_BLOCKS, "rewrite", self.file(block), str(again))
                written = again.read_bytes()
                plistlib.loads(written)
                expected = reader.listing(block)
                if "root" in make().top:
                    self.assertEqual(reader.listing(written), expected)
                else:
                    # Other entries on top become the entries of a dictionary.
                    self.assertEqual(self.listed(written), expected)

    def test_objects_where_others_belong_are_written_back(self):
        block = misplaced_objects().block()
        again = self.folder / "again.plist"
        run(ARCHIVE_BLOCKS, "rewrite", self.file(block), str(again))
        self.assertEqual(reader.listing(again.read_bytes()), reader.listing(block))
        once_more = self.folder / "once_more.plist"
        run(ARCHIVE_BLOCKS, "rewrite", str(again), str(once_more))
        self.assertEqual(once_more.read_bytes(), again.read_bytes())

    def test_a_foreign_book_is_a_book(self):
        listed = self.listed(FOREIGN_ARCHIVES["book"]().block())
        for line in ("#1 : OVAddressBookGeneral", '#3["p"] = #5', '#3["q"] = #5',
                     "#5 : OVPersonGeneral", '#5.ID = "p"', '#11.displayName = "Naïve"',
                     '#12.first = "Ada"'):
            self.assertIn(line + "\n", listed)

    def test_xml_is_refused(self):
        archive = ForeignArchive()
        archive.top = {"root": archive.add("text")}
        xml = plistlib.dumps(archive.in_xml(), fmt=plistlib.FMT_XML)
        done = run(ARCHIVE_BLOCKS, "list", self.file(xml), expected=REFUSED)
        self.assertIn(b"XML", done.stderr)

    def test_a_property_list_that_is_no_archive_is_refused(self):
        block = plistlib.dumps({"settings": [1, 2]}, fmt=plistlib.FMT_BINARY)
        done = run(ARCHIVE_BLOCKS, "list", self.file(block), expected=REFUSED)
        self.assertIn(b"not a keyed archive", done.stderr)


if __name__ == "__main__":
    ARCHIVE_BLOCKS = sys.argv.pop(1)
    unittest.main()
