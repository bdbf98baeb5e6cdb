#!/usr/bin/env python3
"""Writes the made part of the corpus. Usage: make_corpus.py BUILD

BUILD is a build folder with the programs ov_archive_blocks and ov_costly_blocks. Files that a fuzzer
found (found-*) stay as they are; `scripts/fuzz.py --merge BUILD` adds what is new.
"""

import importlib.util
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LARGEST = 6000


def module(name, path):
    spec = importlib.util.spec_from_file_location(name, path)
    loaded = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(loaded)
    return loaded


def our_blocks(build):
    """Every class in a block of its own, a whole book, and blocks that are costly to read."""
    for program, arguments, prefix in (
        ("tests/book/archive/ov_archive_blocks", ["write"], "our"),
        ("tests/fuzz/ov_costly_blocks", [], "costly"),
    ):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([build / program, *arguments, folder], check=True)
            for path in sorted(pathlib.Path(folder).iterdir()):
                if path.suffix != ".txt":
                    yield f"{prefix}-{path.stem}", path.read_bytes()


def foreign_blocks():
    support = module("support_archives", HERE.parent / "support" / "archive" / "foreign_archives.py")
    for name, make in support.FOREIGN_ARCHIVES.items():
        yield f"foreign-{name}", make().block()
    tools = module("tools_archives", HERE.parent / "tools" / "foreign_archives.py")
    for name in ("bare_book", "odd_book", "kinds", "shared", "ring", "chain", "nest", "entries"):
        yield f"foreign-{name}", getattr(tools, name)()


def plist(*objects, top=0, offset_size=1, reference_size=1, count=None, table=None):
    """A property list of objects given byte by byte."""
    block = b"bplist00"
    offsets = []
    for each in objects:
        offsets.append(len(block))
        block += each
    place = len(block)
    block += b"".join(offset.to_bytes(offset_size, "big") for offset in offsets)
    block += bytes([0, 0, 0, 0, 0, 0, offset_size, reference_size])
    for number in (
        len(objects) if count is None else count,
        top,
        place if table is None else table,
    ):
        block += (number % 2**64).to_bytes(8, "big")
    return block


def kinds_of_objects():
    """A list of one object for each kind, and each kind cut short or too wide."""
    objects = {
        "null": b"\x00",
        "fill": b"\x0f",
        "integer-1": b"\x10\xff",
        "integer-4": b"\x12\xff\xff\xff\xff",
        "integer-8": b"\x13" + b"\xff" * 8,
        "integer-16": b"\x14" + b"\x00" * 8 + b"\xff" * 8,
        "integer-16-negative": b"\x14" + b"\xff" * 16,
        "integer-16-large": b"\x14" + b"\x01" * 16,
        "integer-32": b"\x15" + b"\x00" * 32,
        "real-4": b"\x22\x7f\x80\x00\x01",
        "real-8": b"\x23\x3f\xf8" + b"\x00" * 6,
        "date": b"\x33\x41\xb2" + b"\x00" * 6,
        "date-far": b"\x33\x7f\xf0" + b"\x00" * 6,
        "data": b"\x43\x00\xff\x7f",
        "data-long": b"\x4f\x10\x10" + bytes(range(16)),
        "data-past-the-end": b"\x4f\x13\x7f" + b"\xff" * 7,
        "length-no-integer": b"\x5f\x51\x01",
        "length-wide": b"\x5f\x14" + b"\x00" * 15 + b"\x01a",
        "length-wider-than-needed": b"\x5f\x13" + b"\x00" * 7 + b"\x02ab",
        "ascii": b"\x53a~\x7f",
        "ascii-high": b"\x52a\x80",
        "utf16": b"\x63\x00a\xd8\x3d\xde\x00",
        "utf16-lone": b"\x62\xde\x00\xd8\x3d",
        "utf16-doubled": b"\x6f\x13\x80" + b"\x00" * 7,
        "uid-8": b"\x87" + b"\xff" * 8,
        "uid-9": b"\x88" + b"\x00" * 9,
        "array-of-itself": b"\xa1\x00",
        "dictionary-of-itself": b"\xd1\x00\x00",
        "unknown": b"\x70",
    }
    for name, each in objects.items():
        yield f"object-{name}", plist(each)
    yield "containers", plist(
        b"\xd2\x01\x02\x03\x04", b"\x51a", b"\x61\x01\x00", b"\xa3\x05\x05\x06", b"\xc1\x05", b"\x09", b"\x08"
    )
    yield "key-twice", plist(b"\xd2\x01\x01\x02\x03", b"\x51a", b"\x10\x01", b"\x10\x02")
    yield "key-no-text", plist(b"\xd1\x01\x01", b"\x10\x01")
    yield "ring", plist(b"\xa1\x01", b"\xd1\x02\x00", b"\x51a")
    yield "shared", plist(*[bytes([0xA3, n + 1, n + 1, n + 1]) for n in range(20)], b"\xa0")
    yield "reference-past-the-end", plist(b"\xa1\x07")


def trailers():
    for size in (1, 2, 3, 4, 5, 8):
        yield f"sizes-{size}", plist(
            b"\xa1" + (1).to_bytes(size, "big"), b"\x51a", offset_size=size, reference_size=size
        )
    yield "sizes-0", plist(b"\x09")[:-26] + b"\x00\x00" + plist(b"\x09")[-24:]
    yield "top-past-the-end", plist(b"\x09", top=1)
    yield "count-overflow", plist(b"\x09", count=2**63 + 1)
    yield "table-overflow", plist(b"\x09", table=-1)
    yield "table-in-header", plist(b"\x09", table=4)
    yield "no-objects", plist()
    yield "cut-short", b"bplist00"
    yield "xml", b'<?xml version="1.0"?><plist version="1.0"><true/></plist>'


def write(folder, blocks):
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.iterdir():
        if not old.name.startswith("found-"):
            old.unlink()
    for name, block in blocks:
        if len(block) <= LARGEST:
            (folder / name).write_bytes(block)


def main():
    build = pathlib.Path(sys.argv[1])
    write(HERE / "corpus" / "plist", [*kinds_of_objects(), *trailers()])
    write(HERE / "corpus" / "unarchiver", [*our_blocks(build), *foreign_blocks()])


if __name__ == "__main__":
    main()
