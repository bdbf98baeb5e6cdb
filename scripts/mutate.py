#!/usr/bin/env python3
"""Changes src/ in one place at a time and tells which changes no test notices.

Usage: mutate.py [--count N] [--seed N] [--floor PERCENT] [--file PATH] [--equivalents FILE] BUILD

Works in a copy of the tree below BUILD. A third each of the N changes are operators, constants and
texts (as in tables and keys), drawn by the seed, so that a run can be repeated. Lines of the file of
equivalents name changes that leave the behaviour as it is, each with the reason; they are not drawn.
Exits with 1 when fewer than PERCENT of the changes were noticed.
"""

import argparse
import collections
import concurrent.futures
import contextlib
import hashlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from mutants import mutants_of

ROOT = pathlib.Path(__file__).resolve().parents[1]
KINDS = ("operator", "constant", "text")
# What the copy is made of.
PARTS = ("CMakeLists.txt", "CMakePresets.json", "cmake", "include", "src", "tests", "examples")
# What only a static library shows: the memory that it asks for, and its version.
UNFIT = re.compile(r"_memory_|version_")
PROGRAM = re.compile(r"_tests?$")
LONGEST = 300  # seconds that a test program may take with the unchanged sources
MEMORY = 4 << 30  # bytes of address space that a changed one may take


class Tree:
    """A copy of the project, built with the library as a shared one that shows its inner parts."""

    def __init__(self, folder, jobs):
        self.folder = folder
        self.build_folder = folder / "build"
        self.jobs = jobs

    def prepare(self):
        for part in PARTS:
            self.copy(ROOT / part, self.folder / part)
        options = ["-DOV_BUILD_TOOLS=OFF", "-DOV_BUILD_VCARD=OFF", "-DOV_BUILD_EXAMPLES=OFF"]
        self.run(["cmake", "--preset", "dev", "-B", self.build_folder, "-DOV_OPEN_LIBRARY=ON"]
                 + ["-DCMAKE_CXX_FLAGS_DEBUG=-O0"] + options)
        if not self.build():
            sys.exit("mutate.py: the unchanged sources do not build")
        self.programs = self.timed_programs()

    def copy(self, source, target):
        """Copies what differs, so that only that is built again."""
        if source.is_dir():
            for each in source.iterdir():
                self.copy(each, target / each.name)
        elif not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)

    def run(self, command):
        subprocess.run(command, cwd=self.folder, check=True, stdout=subprocess.DEVNULL)

    def build(self):
        command = ["cmake", "--build", self.build_folder, "-j", str(self.jobs)]
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    def timed_programs(self):
        """The test programs with the seconds that each may take, the quickest first. All must pass."""
        took = {}
        for path in sorted((self.build_folder / "tests").rglob("*")):
            if path.is_file() and PROGRAM.search(path.name) and not UNFIT.search(path.name):
                begin = time.monotonic()
                if not self.passes(path, LONGEST):
                    sys.exit(f"mutate.py: {path.name} fails with the unchanged sources")
                took[path] = time.monotonic() - begin
        return {path: 10 + 5 * took[path] for path in sorted(took, key=took.get)}

    def passes(self, program, seconds):
        """Whether the tests pass, in a home of their own. What they leave running ends with them."""
        with tempfile.TemporaryDirectory() as home:
            running = subprocess.Popen(
                ["prlimit", f"--as={MEMORY}", program, "--gtest_fail_fast", "--gtest_brief=1"],
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
                start_new_session=True,
                env={**os.environ, "HOME": home, "XDG_CONFIG_HOME": f"{home}/.config"},
            )
            try:
                return running.wait(seconds) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                with contextlib.suppress(ProcessLookupError):
                    os.killpg(running.pid, signal.SIGKILL)
                running.wait()

    def notices(self, path):
        """Whether a test fails, those of the source's own folder first."""
        near = self.build_folder / "tests" / path.relative_to("src").parent
        ordered = sorted(self.programs, key=lambda program: not program.is_relative_to(near))
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            running = [pool.submit(self.passes, each, self.programs[each]) for each in ordered]
            for done in concurrent.futures.as_completed(running):
                if not done.result():
                    for other in running:
                        other.cancel()
                    return True
        return False


def drawn(sources, equivalents, count, seed):
    """The mutants to try: [(path, mutant)], up to a third of each kind.

    Which ones depends on the seed and on each alone, so that a change of the sources, or of the list
    of equivalents, leaves the others as they were.
    """
    ranked = []
    met = collections.Counter()
    for path, source in sources.items():
        for mutant in mutants_of(source):
            name = key(path, source, mutant)
            met[name] += 1
            rank = hashlib.sha256(f"{seed} {met[name]} {name}".encode()).digest()
            ranked.append((rank, name, path, mutant))
    ranked.sort(key=lambda each: each[0])
    chosen = []
    for number, kind in enumerate(KINDS):
        drawn_of_kind = [each for each in ranked if each[3].kind == kind]
        chosen += drawn_of_kind[: (count + number) // len(KINDS)]
    return [(path, mutant) for _, name, path, mutant in chosen if name not in equivalents]


def key(path, source, mutant):
    """How the file of equivalents names a change: by the changed line, not by its number."""
    lines = source.splitlines()
    changed = mutant.apply(source).splitlines()[mutant.line - 1]
    return f"{path}: {lines[mutant.line - 1].strip()} => {changed.strip()}"


def read_equivalents(path):
    lines = path.read_text(encoding="utf-8").splitlines() if path else []
    return {line for line in lines if line and not line.startswith("#")}


def attempt(tree, path, mutant):
    """Whether the tests notice the mutant; None when it does not build."""
    place = tree.folder / path
    source = place.read_text(encoding="utf-8")
    place.write_text(mutant.apply(source), encoding="utf-8")
    try:
        return tree.notices(path) if tree.build() else None
    finally:
        place.write_text(source, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--floor", type=float, default=90)
    parser.add_argument("--file", action="append", help="only this file, or files below this folder")
    parser.add_argument("--equivalents", type=pathlib.Path)
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("build", type=pathlib.Path)
    options = parser.parse_args()
    wanted = [pathlib.Path(each) for each in options.file or ["src"]]
    sources = {
        path.relative_to(ROOT): path.read_text(encoding="utf-8")
        for path in sorted((ROOT / "src").rglob("*.[ch]*"))
        if path.suffix in (".cpp", ".h")
        and any(path.relative_to(ROOT).is_relative_to(each) for each in wanted)
    }
    equivalents = read_equivalents(options.equivalents)
    tree = Tree(options.build.resolve(), options.jobs)
    tree.prepare()
    noticed = tried = 0
    for path, mutant in drawn(sources, equivalents, options.count, options.seed):
        result = attempt(tree, path, mutant)
        if result is None:
            continue
        tried += 1
        noticed += result
        if not result:
            print(f"not noticed at line {mutant.line}: {key(path, sources[path], mutant)}", flush=True)
    score = 100 * noticed / tried if tried else 0
    print(f"{noticed} of {tried} changes were noticed: {score:.1f} %")
    return 0 if score >= options.floor else 1


if __name__ == "__main__":
    sys.exit(main())
