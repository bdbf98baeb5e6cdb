#!/usr/bin/env python3
"""Compares the binary interface of the shared library with the stored one, by abigail-tools.

Usage: abi.py compare LIBRARY    names every change, and fails when there is one
       abi.py update LIBRARY     stores the interface of LIBRARY

LIBRARY has the debug information of clang: that of g++ calls every `OVRef<T>` "OVRef", and a change
from one to another could not be seen. --headers FOLDER names the folder whose types are the
interface, --baseline FILE the stored interface.
"""

import argparse
import gzip
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
BASELINE = ROOT / "abi" / "OVAddressBookSDK.abi.gz"
HEADERS = ROOT / "include"


def interface_of(library, headers):
    command = ["abidw", "--exported-interfaces-only", "--headers-dir", headers]
    command += ["--drop-private-types", "--no-show-locs", "--no-comp-dir-path"]
    command += ["--no-corpus-path", "--no-architecture", library]
    text = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout
    if "<class-decl " not in text:
        sys.exit(f"abi.py: {library} has no debug information")
    return text


def update(interface, baseline):
    baseline.parent.mkdir(exist_ok=True)
    baseline.write_bytes(gzip.compress(interface.encode(), mtime=0))


def compare(interface, baseline):
    with tempfile.TemporaryDirectory() as folder:
        stored = pathlib.Path(folder, "stored.abi")
        present = pathlib.Path(folder, "present.abi")
        stored.write_bytes(gzip.decompress(baseline.read_bytes()))
        present.write_text(interface, encoding="utf-8")
        done = subprocess.run(["abidiff", "--harmless", stored, present], check=False)
    if done.returncode != 0:
        print("When this is meant, `make abi-baseline` stores the interface again.", file=sys.stderr)
        return 1
    print("The binary interface is the stored one.")
    return 0


def main():
    parser = argparse.ArgumentParser(usage=__doc__.split("Usage: ")[1])
    parser.add_argument("action", choices=("compare", "update"))
    parser.add_argument("library", type=pathlib.Path)
    parser.add_argument("--headers", type=pathlib.Path, default=HEADERS)
    parser.add_argument("--baseline", type=pathlib.Path, default=BASELINE)
    arguments = parser.parse_args()
    interface = interface_of(arguments.library, arguments.headers)
    if arguments.action == "update":
        update(interface, arguments.baseline)
        return 0
    return compare(interface, arguments.baseline)


if __name__ == "__main__":
    sys.exit(main())
