#!/usr/bin/env python3
"""Reads keyed archives on its own: a binary property list, and the object graph in it.

It shares nothing with the library, not even Python's plistlib. Usage: keyed_archive_reader.py FILE
prints the graph as text: objects are numbered in the order in which they are met, so that sharing
shows; an object's fields are sorted by key.
"""

import struct
import sys
from collections import deque


class Uid(int):
    """A reference to an object of the archive."""


class Date(float):
    """Seconds since 2001."""


class Set(list):
    """The elements of a set."""


class PropertyList:
    """A binary property list. Equal positions give the same Python object."""

    def __init__(self, block):
        if block[:8] != b"bplist00":
            raise ValueError("no binary property list")
        self.block = block
        self.offset_size, self.reference_size = block[-26], block[-25]
        count, top, table = struct.unpack(">QQQ", block[-24:])
        assert len(block) == table + count * self.offset_size + 32
        assert 256**self.reference_size > count and 256**self.offset_size > table
        self.offsets = self.integers(table, count, self.offset_size)
        assert all(8 <= offset < table for offset in self.offsets)
        self.known = {}
        self.top = self.object(top)

    def integers(self, at, count, size):
        return [
            int.from_bytes(self.block[at + i * size : at + (i + 1) * size], "big")
            for i in range(count)
        ]

    def object(self, number):
        if number not in self.known:
            self.known[number] = self.read(self.offsets[number])
        return self.known[number]

    def objects(self, at, count):
        return [self.object(n) for n in self.integers(at, count, self.reference_size)]

    def read(self, at):
        kind, low = self.block[at] >> 4, self.block[at] & 15
        if kind == 0:
            return {0: None, 8: False, 9: True}[low]
        if kind == 1:
            size = 1 << low
            return int.from_bytes(self.block[at + 1 : at + 1 + size], "big", signed=size >= 8)
        if kind in (2, 3):
            form, size = (">f", 4) if low == 2 else (">d", 8)
            number = struct.unpack(form, self.block[at + 1 : at + 1 + size])[0]
            return Date(number) if kind == 3 else number
        if kind == 8:
            return Uid(self.integers(at + 1, 1, low + 1)[0])
        count, at = self.length(at, low)
        if kind == 4:
            return bytes(self.block[at : at + count])
        if kind == 5:
            return self.block[at : at + count].decode("ascii")
        if kind == 6:
            return self.block[at : at + 2 * count].decode("utf-16-be")
        if kind == 10:
            return self.objects(at, count)
        if kind == 12:
            return Set(self.objects(at, count))
        if kind == 13:
            elements = self.objects(at, 2 * count)
            keys, values = elements[:count], elements[count:]
            assert all(isinstance(key, str) for key in keys)
            # Of a key that is there twice the first counts.
            return dict(reversed(list(zip(reversed(keys), reversed(values)))))
        raise ValueError(f"unknown kind {kind}")

    def length(self, at, low):
        if low != 15:
            return low, at + 1
        assert self.block[at + 1] >> 4 == 1
        size = 1 << (self.block[at + 1] & 15)
        return self.integers(at + 2, 1, size)[0], at + 2 + size


TEXT_CLASSES = ("NSString", "NSMutableString")
DATA_CLASSES = ("NSData", "NSMutableData")
LISTS = {"NSArray": "immutable list", "NSMutableArray": "list"}
DICTIONARIES = {"NSDictionary": "immutable dictionary", "NSMutableDictionary": "dictionary"}


def quoted(text):
    def escaped(character):
        if character in '"\\':
            return "\\" + character
        return f"\\u{ord(character):04x}" if ord(character) < 32 else character

    return '"' + "".join(map(escaped, text)) + '"'


def plain(value):
    """A value that is where it is referred to."""
    if value is None:
        return "null"
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int):
        return str(value)
    if isinstance(value, float):
        return f"real {value:.17g}"
    if isinstance(value, bytes):
        return f"<{value.hex()}>"
    return quoted(value)


class Archive:
    """The object graph of a keyed archive."""

    def __init__(self, block):
        head = PropertyList(block).top
        assert head["$version"] == 100000 and head["$archiver"] == "NSKeyedArchiver"
        self.objects = head["$objects"]
        assert self.objects[0] == "$null"
        self.top = head["$top"]

    def class_of(self, record):
        """Name and ancestry of an archived object."""
        named = self.objects[record["$class"]]
        return named["$classname"], named.get("$classes", [])

    def resolved(self, value):
        """What a UID refers to: a plain value, or the UID of an object with an identity."""
        if not isinstance(value, Uid):
            return value
        if value == 0:
            return None
        found = self.objects[value]
        if isinstance(found, Date):
            return value
        if isinstance(found, dict):
            name = self.class_of(found)[0]
            if name in TEXT_CLASSES and isinstance(found.get("NS.string"), str):
                return found["NS.string"]
            if name in DATA_CLASSES and isinstance(found.get("NS.data"), bytes):
                return found["NS.data"]
            return value
        return found


class Listing:
    """The graph as lines of text, the objects numbered as they are met."""

    def __init__(self, archive):
        self.archive = archive
        self.numbers = {}
        self.waiting = deque()
        self.lines = []

    def text(self):
        top = self.archive.top
        if "root" in top:
            self.lines.append("root = " + self.value(top["root"]))
        else:
            self.lines.append("root = #1")
            self.numbers["top"] = 1
            self.lines.append("#1 : dictionary")
            self.lines += [f"#1[{quoted(key)}] = {self.value(top[key])}" for key in top]
        while self.waiting:
            uid = self.waiting.popleft()
            self.describe(uid, self.archive.objects[uid])
        return "".join(line + "\n" for line in self.lines)

    def value(self, value):
        value = self.archive.resolved(value)
        if isinstance(value, Uid):
            if value not in self.numbers:
                self.numbers[value] = len(self.numbers) + 1
                self.waiting.append(value)
            return f"#{self.numbers[value]}"
        if isinstance(value, Date):
            return "date " + plain(float(value))
        if isinstance(value, (Set, list)):
            kind = "set " if isinstance(value, Set) else ""
            return kind + "[" + ", ".join(map(self.value, value)) + "]"
        if isinstance(value, dict):
            pairs = (f"{quoted(key)}: {self.value(value[key])}" for key in sorted(value))
            return "{" + ", ".join(pairs) + "}"
        return plain(value)

    def elements(self, values):
        return "[" + ", ".join(map(self.value, values)) + "]"

    def describe(self, uid, found):
        name = f"#{self.numbers[uid]}"
        if isinstance(found, Date):
            self.lines += [f"{name} : date", f"{name}.time = {plain(float(found))}"]
            return
        class_name, classes = self.archive.class_of(found)
        if class_name in LISTS and "NS.objects" in found:
            self.lines.append(f"{name} : {LISTS[class_name]}")
            for position, element in enumerate(found["NS.objects"]):
                self.lines.append(f"{name}[{position}] = {self.value(element)}")
        elif class_name in DICTIONARIES and self.has_text_keys(found):
            self.lines.append(f"{name} : {DICTIONARIES[class_name]}")
            for key, value in self.entries(found):
                self.lines.append(f"{name}[{quoted(key)}] = {self.value(value)}")
        elif class_name == "NSDate":
            time = float(found.get("NS.time", 0))
            self.lines += [f"{name} : date", f"{name}.time = {plain(time)}"]
        elif class_name.startswith("OV"):
            self.lines.append(f"{name} : {class_name}")
            for key, value in sorted(self.fields(class_name, self.completed(class_name, found))):
                self.lines.append(f"{name}.{key} = {value()}")
        else:
            self.lines.append(f"{name} : opaque {class_name} ({', '.join(classes)})")
            for key in sorted(found):
                if key != "$class":
                    self.lines.append(f"{name}.{key} = {self.value(found[key])}")

    def class_name(self, value):
        found = self.archive.objects[value] if isinstance(value, Uid) else None
        return self.archive.class_of(found)[0] if isinstance(found, dict) else None

    def has_text_keys(self, found):
        keys = map(self.archive.resolved, found.get("NS.keys", [None]))
        return all(isinstance(key, str) for key in keys)

    def entries(self, found):
        entries = {}
        for key, value in zip(found["NS.keys"], found["NS.objects"]):
            entries.setdefault(self.archive.resolved(key), value)
        return entries.items()

    def completed(self, class_name, found):
        """The fields with those that mean absent ones, and types as they are kept."""
        if "type" in found and class_name.startswith("OV"):
            found = found | {"type": found["type"] & 0xFFFFFFFF}
        if class_name == "OVPersonGeneral" and self.archive.resolved(found.get("ID")) is None:
            return found | {"ID": ""}
        if class_name == "OVMutableMultipleValue" and self.class_name(found.get("valueArray")) in LISTS:
            count = len(self.archive.objects[found["valueArray"]]["NS.objects"])
            main = found.get("mainValueIndex", 0)
            return found | {"mainValueIndex": main if 0 <= main < count else 0}
        return found

    def fields(self, class_name, found):
        """Keys and what is under them; nulls are left out. Arrays that belong to one object
        alone are shown in its place."""
        for key, value in found.items():
            if key == "$class" or self.archive.resolved(value) is None:
                continue
            inner = self.archive.objects[value] if isinstance(value, Uid) else None
            expected = {"valueArray": LISTS, "valueDic": DICTIONARIES}.get(key)
            if expected is not None and self.class_name(value) not in expected:
                yield key, lambda value=value: self.value(value)
            elif (class_name, key) in (("OVMutableMultipleValue", "valueArray"),
                                     ("OVTagManager", "TagsKey")):
                yield key, lambda inner=inner: self.elements(inner["NS.objects"])
            elif (class_name, key) == ("OVObjectAddress", "valueDic"):
                for name, text in self.entries(inner):
                    yield f"{key}.{name}", lambda text=text: self.value(text)
            elif class_name == "OVTagManager":
                for name, texts in self.entries(inner):
                    array = self.archive.objects[texts]["NS.objects"]
                    yield f"{key}.{name}", lambda array=array: self.elements(array)
            else:
                yield key, lambda value=value: self.value(value)


def listing(block):
    """The text that `archive_blocks list` prints for the same archive."""
    return Listing(Archive(block)).text()


if __name__ == "__main__":
    with open(sys.argv[1], "rb") as file:
        sys.stdout.write(listing(file.read()))
