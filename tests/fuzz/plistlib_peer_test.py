#!/usr/bin/env python3
"""The comparison with plistlib notices what differs, and forgives what plistlib cannot read."""

import json
import plistlib
import struct
import unittest

from make_corpus import plist
from plistlib_peer import difference


def binary(value):
    return plistlib.dumps(value, fmt=plistlib.FMT_BINARY)


def bits(number):
    return struct.pack(">d", number).hex()


class PlistlibPeer(unittest.TestCase):
    def same(self, block, described):
        self.assertEqual(difference(block, json.dumps(described)), "")

    def differs(self, block, described):
        self.assertNotEqual(difference(block, json.dumps(described)), "")

    def test_equal_values_are_the_same(self):
        self.same(binary({"a": [1, True, "x"]}), {"m": [["a", {"a": [{"i": "1"}, True, "x"]}]]})
        self.same(binary(plistlib.UID(3)), {"u": "3"})
        self.same(binary(b"\x00\xff"), {"b": "00ff"})
        self.same(binary(-0.5), {"r": bits(-0.5)})

    def test_every_difference_is_noticed(self):
        self.differs(binary(1), {"i": "2"})
        self.differs(binary(1), True)
        self.differs(binary(1), {"u": "1"})
        self.differs(binary(0.0), {"r": bits(-0.0)})
        self.differs(binary([1]), {"a": []})
        self.differs(binary({"a": 1}), {"m": [["b", {"i": "1"}]]})

    def test_what_only_we_accept_is_noticed(self):
        self.differs(plist(b"\x70"), {"i": "1"})
        self.differs(b"no list", "text")

    def test_what_plistlib_cannot_read_is_forgiven(self):
        self.same(plist(b"\xc0"), {"s": []})
        self.same(plist(b"\x61\xd8\x00"), {"t": "\ufffd"})
        self.same(plist(b"\x33\x7f\xf0" + bytes(6)), {"d": bits(float("inf"))})

    def test_what_plistlib_reads_all_the_same_is_not_forgiven(self):
        self.differs(binary([]), {"s": []})
        self.differs(binary("a"), {"t": "a"})


if __name__ == "__main__":
    unittest.main()
