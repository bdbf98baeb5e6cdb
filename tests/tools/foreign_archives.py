#!/usr/bin/env python3
"""Writes keyed archives as other programs may. Usage: foreign_archives.py NAME PATH"""

import datetime
import plistlib
import sys

UID = plistlib.UID


def record(name, *superclasses):
    return {"$classname": name, "$classes": [name, *superclasses, "NSObject"]}


def archive(*objects, top=None):
    return plistlib.dumps(
        {
            "$version": 100000,
            "$archiver": "NSKeyedArchiver",
            "$top": top or {"root": UID(1)},
            "$objects": ["$null", *objects],
        },
        fmt=plistlib.FMT_BINARY,
        sort_keys=False,
    )


def bare_book():
    """A book that never had dictionaries."""
    return archive({"$class": UID(2)}, record("OVAddressBookGeneral", "OVAddressBook"))


def odd_book():
    """A book that holds a text where a person and a group belong."""
    keys = [UID(5)]
    return archive(
        {"$class": UID(2), "personDic": UID(3), "groupDic": UID(3)},
        record("OVAddressBookGeneral", "OVAddressBook"),
        {"$class": UID(4), "NS.keys": keys, "NS.objects": [UID(6)]},
        record("NSMutableDictionary", "NSDictionary"),
        "x",
        "no person",
    )


def kinds():
    """One object with a field of every kind."""
    return archive(
        {
            "$class": UID(2),
            "whole": -3,
            "large": 2**63 + 5,
            "real": 0.5,
            "nan": float("nan"),
            "infinite": float("-inf"),
            "truth": True,
            "text": "a\x1b\x9b\"\\\u202e",
            "data": b"\x00\xff" * 9,
            "date": datetime.datetime(2009, 8, 22, 18, 15),
            "none": UID(0),
            "array": [1, [UID(3)], {"key": "value"}],
            "url": UID(4),
        },
        record("Kinds", "Root"),
        "leaf",
        {"$class": UID(5), "NS.base": UID(0), "NS.relative": UID(6)},
        record("NSURL"),
        "https://example.org/",
    )


def texts():
    """Texts as they are, and as objects that tell their class."""
    return archive(
        {"$class": UID(2), "NS.objects": [UID(3), UID(4)]},
        record("NSArray"),
        "plain",
        {"$class": UID(5), "NS.string": "mutable"},
        record("NSMutableString", "NSString"),
    )


def shared():
    """A label that two entries of a list share, and a set of it."""
    return archive(
        {"$class": UID(2), "NS.objects": [UID(3), UID(3), UID(5)]},
        record("NSArray"),
        {"$class": UID(4), "name": UID(7)},
        record("Label"),
        {"$class": UID(6), "NS.objects": [UID(3)]},
        record("NSSet"),
        "home",
    )


def ring():
    return archive(
        {"$class": UID(2), "next": UID(3)}, record("Node"), {"$class": UID(2), "next": UID(1)}
    )


def chain():
    """Far more objects inside each other than any program has stack for."""
    length = 20000
    objects = [{"$class": UID(2), "next": UID(i + 1)} for i in range(3, length)]
    return archive(
        {"$class": UID(2), "next": UID(3)}, record("Node"), *objects, {"$class": UID(2), "end": True}
    )


def nest():
    """Plain containers inside each other."""
    value = UID(3)
    for depth in range(400):
        value = [value] if depth % 2 else {"key": value}
    return archive({"$class": UID(2), "deep": value}, record("Node"), "bottom")


def entries():
    """No root, but other entries on top."""
    return archive({"$class": UID(2)}, record("Node"), top={"one": UID(1), "two": UID(1)})


def nothing():
    return archive(top={"root": UID(0)})


def property_list():
    return plistlib.dumps({"no": "archive"}, fmt=plistlib.FMT_BINARY)


def xml():
    return plistlib.dumps({"no": "archive"})


def main():
    name, path = sys.argv[1:]
    with open(path, "wb") as file:
        file.write(globals()[name]())


if __name__ == "__main__":
    main()
