#!/usr/bin/env python3
"""Reports which lines and branches of src/ were reached.

Usage: coverage.py [--reset] BUILD [JOBS]

BUILD is a build folder with OV_COVERAGE. --reset forgets what was counted instead. With
OV_COVERAGE_FLOOR in the environment the exit status is 1 where less than that per cent of the lines
was reached, of src/ as a whole or of the readers of data blocks.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
# What decides over bytes that others wrote.
READERS = re.compile(r"src/platform/archive/(\w*reader\w*|keyed_unarchiver|class_table)\.(cpp|h)")


def measured(notes):
    """What gcov tells of one object: [(file, lines)]."""
    done = subprocess.run(
        ["gcov", "--json-format", "--stdout", "--branch-probabilities", notes.name],
        cwd=notes.parent,
        stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL,
        check=True,
    )
    told = json.loads(done.stdout)
    folder = pathlib.Path(told["current_working_directory"])
    return [((folder / each["file"]).resolve(), each["lines"]) for each in told["files"]]


class Source:
    """How often each line, and each way out of it that is no exception, was taken."""

    def __init__(self):
        self.lines = {}
        self.branches = {}

    def add(self, line):
        number = line["line_number"]
        self.lines[number] = self.lines.get(number, 0) + line["count"]
        ways = [way["count"] for way in line["branches"] if not way["throw"]]
        known = self.branches.setdefault(number, ways)
        if known is not ways and len(known) == len(ways):
            self.branches[number] = [a + b for a, b in zip(known, ways)]

    def missed(self):
        return sorted(number for number, count in self.lines.items() if count == 0)


def collect(build, jobs):
    notes = sorted((build / "src").rglob("*.gcno"))
    if not notes:
        sys.exit(f"coverage.py: {build} was built without OV_COVERAGE")
    sources = {}
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for files in pool.map(measured, notes):
            for path, lines in files:
                if path.is_relative_to(ROOT / "src"):
                    source = sources.setdefault(str(path.relative_to(ROOT)), Source())
                    for line in lines:
                        source.add(line)
    return sources


def share(counts):
    counts = list(counts)
    return 100 * sum(count > 0 for count in counts) / len(counts) if counts else 100.0


def row(name, sources):
    """Prints one row; returns the per cent of lines reached."""
    lines = share(count for source in sources for count in source.lines.values())
    branches = share(
        count for source in sources for ways in source.branches.values() for count in ways
    )
    print(f"{name:24} {lines:6.1f} % of lines {branches:6.1f} % of branches")
    return lines


def report(sources):
    """Prints the table; returns the shares that the floor is for."""
    for name in sorted(sources):
        if missed := sources[name].missed():
            print(f"{name}: not reached: {', '.join(map(str, missed))}")
    for folder in sorted({str(pathlib.Path(name).parent) for name in sources}):
        row(folder, [each for name, each in sources.items() if str(pathlib.Path(name).parent) == folder])
    readers = [each for name, each in sources.items() if READERS.fullmatch(name)]
    return [row("the readers", readers), row("src", sources.values())]


def main():
    arguments = [each for each in sys.argv[1:] if not each.startswith("--")]
    build = pathlib.Path(arguments[0]).resolve()
    if "--reset" in sys.argv:
        for counts in (build / "src").rglob("*.gcda"):
            counts.unlink()
        return 0
    shares = report(collect(build, int(arguments[1]) if len(arguments) > 1 else 1))
    floor = float(os.environ.get("OV_COVERAGE_FLOOR") or 0)
    if min(shares) < floor:
        print(f"less than {floor:g} % of the lines were reached")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
