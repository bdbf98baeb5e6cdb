#!/usr/bin/env python3
"""Runs clang-tidy over the library, the hosts and the tools. Usage: tidy.py BUILD [JOBS [OPTION...]]

BUILD is a build folder of clang with its compile_commands.json; each OPTION is one of clang-tidy. What
the build compiles together (CMAKE_UNITY_BUILD) is looked at together, as one text: most of the time goes
into the headers. What was clean is not looked at again until it, a header it includes, its flags or
.clang-tidy change: BUILD/tidy remembers.
"""

import concurrent.futures
import hashlib
import json
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = ("src", "hosts", "tools")
CONFIGURATION = ROOT / ".clang-tidy"
TIDY = "clang-tidy-14"
TOGETHER = re.compile(r'^#include "(/.*\.cpp)"$', re.MULTILINE)


class Unit:
    """What clang-tidy looks at in one go."""

    def __init__(self, entry):
        self.entry = entry
        path = pathlib.Path(entry["file"])
        together = TOGETHER.findall(path.read_text("utf-8")) if "Unity" in path.parts else []
        self.files = [pathlib.Path(each) for each in together] or [path]
        self.starts = []  # the lines of the text where the files begin

    def is_ours(self):
        return any(self.files[0].is_relative_to(ROOT / name) for name in FOLDERS)

    def text(self):
        pieces = []
        line = 1
        for path in self.files:
            piece = path.read_text("utf-8").rstrip("\n") + "\n"
            self.starts.append(line)
            line += piece.count("\n")
            pieces.append(piece)
        return "".join(pieces)

    def flags(self):
        """Those of the compiler, without its launcher, its output and the file."""
        command = shlex.split(self.entry["command"])
        while command and "clang" not in pathlib.Path(command[0]).name:
            command.pop(0)
        output = command.index("-o")
        del command[output : output + 2]
        del command[command.index("-c") :]
        return command[1:] + [f"-iquote{folder}" for folder in sorted({p.parent for p in self.files})]

    def place(self, line):
        """Which line of which file a line of the text is."""
        index = max(i for i, start in enumerate(self.starts) if start <= line)
        return f"{self.files[index]}:{line - self.starts[index] + 1}"

    def translated(self, said, path):
        return re.sub(re.escape(str(path)) + r":(\d+)", lambda found: self.place(int(found[1])), said)


def preprocessed(path, flags):
    """The text as the compiler sees it, comments (NOLINT) included."""
    command = ["clang++-14", *flags, "-E", "-C", "-P", str(path)]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout


def check(unit, folder, options, common):
    """What clang-tidy says; "" when all is clean."""
    text = unit.text()
    flags = unit.flags()
    path = folder / f"{hashlib.sha256(str(unit.files).encode()).hexdigest()[:16]}.cpp"
    path.write_text(text, encoding="utf-8")
    key = hashlib.sha256(common + repr(flags).encode() + text.encode() + preprocessed(path, flags))
    clean = folder / key.hexdigest()
    if clean.exists():
        return ""
    done = subprocess.run(
        [TIDY, "-quiet", f"--config-file={CONFIGURATION}", *options, str(path), "--", *flags],
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
    )
    if done.returncode != 0:
        return unit.translated(done.stdout, path)
    clean.touch()
    return ""


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    jobs = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    options = sys.argv[3:]
    folder = build / "tidy"
    folder.mkdir(exist_ok=True)
    version = subprocess.run([TIDY, "--version"], capture_output=True, check=True).stdout
    common = version + CONFIGURATION.read_bytes() + repr(options).encode()
    entries = json.loads((build / "compile_commands.json").read_text())
    units = [unit for unit in map(Unit, entries) if unit.is_ours()]
    if not units:
        sys.exit(f"tidy.py: nothing to look at in {build}")
    units.sort(key=lambda unit: -len(unit.files))
    clean = 0
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for unit, said in zip(units, pool.map(lambda unit: check(unit, folder, options, common), units)):
            if said:
                print(said, flush=True)
            else:
                clean += len(unit.files)
    total = sum(len(unit.files) for unit in units)
    print(f"clang-tidy: {clean} of {total} files are clean")
    return 0 if clean == total else 1


if __name__ == "__main__":
    sys.exit(main())
