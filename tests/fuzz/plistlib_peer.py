#!/usr/bin/env python3
"""Compares what our reader finds in property lists with what plistlib finds in them.

Reads pairs from standard input, a block and our description of its values (plist_text.h), each
after its length in four bytes. Answers each pair on standard output in the same way: "" when the
values are the same, else the difference.

plistlib refuses some of what we accept: sets; texts with lone surrogates, which we replace; and
dates that Python has no value for. Nothing else is forgiven.
"""

import datetime
import json
import plistlib
import re
import struct
import sys

EPOCH = datetime.datetime(2001, 1, 1)


class RefusedByPlistlib(Exception):
    """Why plistlib cannot read a value that we read."""


def date(seconds):
    try:
        return EPOCH + datetime.timedelta(seconds=seconds)
    except (OverflowError, ValueError) as error:
        raise RefusedByPlistlib("a date") from error


class Description:
    """What the text of a property list says, one token after the other."""

    TOKEN = re.compile(r'\??"(?:[^"\\]|\\.)*"|[][(){}:,]|[^][(){}:,\s]+')

    def __init__(self, text):
        self.tokens = (found[0] for found in self.TOKEN.finditer(text))

    def value(self):
        return self.value_of(next(self.tokens))

    def value_of(self, token):
        if token == "[":
            return [self.value_of(each) for each in self.until("]")]
        if token == "{":
            # Of a key that is there twice plistlib takes the last.
            return {self.key_of(each): self.value() for each in self.until("}")}
        if token[0] in "(?":
            raise RefusedByPlistlib("a set or a repaired text")
        if token[0] == "<":
            return bytes.fromhex(token[1:-1])
        if token[0] == "#":
            return plistlib.UID(int(token[1:]))
        if token[0] == "@":
            return date(float(token[1:]))
        if token in ("inf", "nan", "-inf", "-nan"):
            return float(token)
        return json.loads(token)

    def until(self, end):
        for token in self.tokens:
            if token == end:
                return
            if token != ",":
                yield token

    def key_of(self, token):
        if next(self.tokens) != ":":
            raise ValueError(f"no value for {token}")
        return self.value_of(token) if token[0] in '"?' else token


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
        ours = Description(description).value()
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
        description = read_part(sys.stdin.buffer).decode()
        answer = difference(block, description).encode(errors="replace")
        sys.stdout.buffer.write(len(answer).to_bytes(4, "big") + answer)
        sys.stdout.buffer.flush()


if __name__ == "__main__":
    main()
