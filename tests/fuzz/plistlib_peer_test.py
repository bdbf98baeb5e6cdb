#!/usr/bin/env python3
"""The comparison with plistlib notices what differs, and forgives what plistlib cannot read."""

import plistlib
import unittest

from make_corpus import plist
from plistlib_peer import difference


def binary(value):
    return plistlib.dumps(value, fmt=plistlib.FMT_BINARY)


class PlistlibPeer(unittest.TestCase):
    def same(self, block, described):
        self.assertEqual(difference(block, described), "")

    def differs(self, block, described):
        self.assertNotEqual(difference(block, described), "")

    def test_equal_values_are_the_same(self):
        self.same(binary({"a": [1, True, "x"]}), '{a: [1, true, "x"]}')
        self.same(binary(plistlib.UID(3)), "#3")
        self.same(binary(b"\x00\xff"), "<00ff>")
        self.same(binary(-0.5), "-0.5")
        self.same(binary({"a, ]": 'b"'}), r'{"a, ]": "b\""}')

    def test_every_difference_is_noticed(self):
        self.differs(binary(1), "2")
        self.differs(binary(1), "true")
        self.differs(binary(1), "#1")
        self.differs(binary(0.0), "-0.0")
        self.differs(binary([1]), "[]")
        self.differs(binary({"a": 1}), "{b: 1}")

    def test_what_only_we_accept_is_noticed(self):
        self.differs(plist(b"\x70"), "1")
        self.differs(b"no list", '"text"')

    def test_what_plistlib_cannot_read_is_forgiven(self):
        self.same(plist(b"\xc0"), "()")
        self.same(plist(b"\x61\xd8\x00"), '?"\ufffd"')
        self.same(plist(b"\x33\x7f\xf0" + bytes(6)), "@inf")

    def test_what_plistlib_reads_all_the_same_is_not_forgiven(self):
        self.differs(binary([]), "()")
        self.differs(binary("a"), '?"a"')


if __name__ == "__main__":
    unittest.main()
