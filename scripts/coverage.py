#!/usr/bin/env python3
"""Reports which lines and branches of src/ the tests reached.

Usage: coverage.py [--floor PERCENT] [--lines] BUILD COUNTS

BUILD is a build folder with OV_COVERAGE, COUNTS the folder where its tests left their counts. --lines
names the lines that were not reached. Exits with 1 where less than PERCENT of the lines were, of src/
as a whole or of the readers of data blocks.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
# What decides over bytes that others wrote.
READERS = re.compile(r"src/platform/archive/(\w*reader\w*|keyed_unarchiver|class_table)\.(cpp|h)")


class Source:
    """How often each line, and each way out of a condition, was taken."""

    def __init__(self):
        self.lines = {}
        self.branches = {}

    def missed(self):
        return sorted(number for number, count in self.lines.items() if count == 0)


def merged(counts):
    """All counts in one file."""
    left = sorted(counts.glob("*.profraw"))
    if not left:
        sys.exit(f"coverage.py: no tests left counts in {counts}")
    everything = counts / "all.profdata"
    subprocess.run(["llvm-profdata-14", "merge", "-sparse", "-o", everything, *left], check=True)
    return everything


def programs(build):
    """The test programs, each with the library in it."""
    return sorted(
        path
        for path in (build / "tests").rglob("*")
        if path.is_file() and re.search(r"_tests?$", path.name) and os.access(path, os.X_OK)
    )


def told(build, everything):
    """What the counts say of src/, as lcov's records."""
    first, *others = programs(build)
    command = ["llvm-cov-14", "export", "-format=lcov", f"-instr-profile={everything}", first]
    command += [f"-object={each}" for each in others]
    command.append(ROOT / "src")
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True).stdout


def parsed(records):
    sources = {}
    source = Source()
    for record in records.splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            source = sources.setdefault(str(pathlib.Path(value).relative_to(ROOT)), Source())
        elif kind == "DA":
            line, count = value.split(",")[:2]
            source.lines[int(line)] = source.lines.get(int(line), 0) + int(count)
        elif kind == "BRDA":
            *way, count = value.split(",")
            known = source.branches.get(tuple(way), 0)
            source.branches[tuple(way)] = known + (0 if count == "-" else int(count))
    return sources


def share(counts):
    counts = list(counts)
    return 100 * sum(count > 0 for count in counts) / len(counts) if counts else 100.0


def row(name, sources):
    """Prints one row; returns the per cent of lines reached."""
    lines = share(count for source in sources for count in source.lines.values())
    branches = share(count for source in sources for count in source.branches.values())
    print(f"{name:24} {lines:6.1f} % of lines {branches:6.1f} % of branches")
    return lines


def report(sources, with_lines):
    """Prints the table; returns the shares that the floor is for."""
    for name in sorted(sources) if with_lines else ():
        if missed := sources[name].missed():
            print(f"{name}: not reached: {', '.join(map(str, missed))}")
    for folder in sorted({str(pathlib.Path(name).parent) for name in sources}):
        row(folder, [each for name, each in sources.items() if str(pathlib.Path(name).parent) == folder])
    readers = [each for name, each in sources.items() if READERS.fullmatch(name)]
    return [row("the readers", readers), row("src", list(sources.values()))]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--floor", type=float, default=0)
    parser.add_argument("--lines", action="store_true")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("counts", type=pathlib.Path)
    options = parser.parse_args()
    records = told(options.build.resolve(), merged(options.counts.resolve()))
    if min(report(parsed(records), options.lines)) < options.floor:
        print(f"less than {options.floor:g} % of the lines were reached")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
