#!/usr/bin/env python3
"""Runs clang-tidy over the library, the hosts and the tools. Usage: tidy.py BUILD [JOBS]

BUILD is a build folder of clang with its compile_commands.json. A file that was clean is not looked
at again until it, a header it includes, its flags or .clang-tidy change: BUILD/tidy remembers.
"""

import concurrent.futures
import hashlib
import json
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = ("src", "hosts", "tools")
TIDY = "clang-tidy-14"


def preprocessed(entry):
    """The file as the compiler sees it, comments (NOLINT) included."""
    command = shlex.split(entry["command"])
    while command and "clang" not in pathlib.Path(command[0]).name:
        command.pop(0)  # the compiler's launcher
    output = command.index("-o")
    command[output : output + 2] = ["-E", "-C"]
    done = subprocess.run(command, cwd=entry["directory"], capture_output=True, check=False)
    return done.stdout if done.returncode == 0 else None


def key_of(entry, common):
    text = preprocessed(entry)
    if text is None:
        return None
    return hashlib.sha256(common + entry["command"].encode() + text).hexdigest()


def check(entry, build, common):
    """What clang-tidy says about one file; "" when it is clean."""
    key = key_of(entry, common)
    clean = build / "tidy" / str(key)
    if key and clean.exists():
        return ""
    done = subprocess.run(
        [TIDY, "-quiet", f"-p={build}", entry["file"]],
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
    )
    if done.returncode != 0:
        return done.stdout
    if key:
        clean.touch()
    return ""


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    jobs = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    (build / "tidy").mkdir(exist_ok=True)
    version = subprocess.run([TIDY, "--version"], capture_output=True, check=True).stdout
    common = version + (ROOT / ".clang-tidy").read_bytes()
    entries = [
        entry
        for entry in json.loads((build / "compile_commands.json").read_text())
        if any(pathlib.Path(entry["file"]).is_relative_to(ROOT / name) for name in FOLDERS)
    ]
    if not entries:
        sys.exit(f"tidy.py: nothing to look at in {build}")
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for said in pool.map(lambda entry: check(entry, build, common), entries):
            if said:
                failed += 1
                print(said, flush=True)
    print(f"clang-tidy: {len(entries) - failed} of {len(entries)} files are clean")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
