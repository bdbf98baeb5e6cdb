#!/usr/bin/env python3
"""Compares what our reader finds in property lists with what plistlib finds in them.

Reads pairs from standard input, a block and our description of its values (plist_json.h), each
after its length in four bytes. Answers each pair on standard output in the same way: "" when the
values are the same, else the difference.

plistlib refuses some of what we accept: sets; texts with lone surrogates, which we replace; and
dates that Python has no value for. Nothing else is forgiven.
"""

import datetime
import json
import plistlib
import struct
import sys

EPOCH = datetime.datetime(2001, 1, 1)


class RefusedByPlistlib(Exception):
    """Why plistlib cannot read a value that we read."""


def real(bits):
    return struct.unpack(">d", bytes.fromhex(bits))[0]


def date(bits):
    try:
        return EPOCH + datetime.timedelta(seconds=real(bits))
    except (OverflowError, ValueError) as error:
        raise RefusedByPlistlib("a date") from error


def refused(_):
    raise RefusedByPlistlib("a set or a repaired text")


def dictionary(entries):
    # Of a key that is there twice plistlib takes the last.
    return {value_of(key): value_of(value) for key, value in entries}


MAKE = {
    "i": int,
    "r": real,
    "d": date,
    "b": bytes.fromhex,
    "u": lambda number: plistlib.UID(int(number)),
    "a": lambda elements: [value_of(each) for each in elements],
    "s": refused,
    "m": dictionary,
    "t": refused,
}


def value_of(described):
    if not isinstance(described, dict):
        return described
    [(tag, content)] = described.items()
    return MAKE[tag](content)


def same(ours, theirs):
    if type(ours) is not type(theirs):
        return False
    if isinstance(ours, float):
        both_nan = ours != ours and theirs != theirs
        return both_nan or struct.pack(">d", ours) == struct.pack(">d", theirs)
    if isinstance(ours, list):
        return len(ours) == len(theirs) and all(map(same, ours, theirs))
    if isinstance(ours, dict):
        return ours.keys() == theirs.keys() and all(same(ours[k], theirs[k]) for k in ours)
    return ours == theirs


def difference(block, description):
    """What differs; "" when nothing does."""
    try:
        theirs = plistlib.loads(block, fmt=plistlib.FMT_BINARY)
    except plistlib.InvalidFileException:
        theirs = RefusedByPlistlib
    try:
        ours = value_of(json.loads(description))
    except RefusedByPlistlib as reason:
        return "" if theirs is RefusedByPlistlib else f"plistlib was to refuse {reason}"
    if theirs is RefusedByPlistlib:
        return f"refused by plistlib, accepted by us: {description[:1000]!r}"
    return "" if same(ours, theirs) else f"ours: {ours!r:.1000}\ntheirs: {theirs!r:.1000}"


def read_part(stream):
    head = stream.read(4)
    return stream.read(int.from_bytes(head, "big")) if len(head) == 4 else None


def main():
    sys.setrecursionlimit(20000)
    while (block := read_part(sys.stdin.buffer)) is not None:
        answer = difference(block, read_part(sys.stdin.buffer)).encode(errors="replace")
        sys.stdout.buffer.write(len(answer).to_bytes(4, "big") + answer)
        sys.stdout.buffer.flush()


if __name__ == "__main__":
    main()
