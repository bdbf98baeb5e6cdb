#!/usr/bin/env python3
"""Runs the fuzzers. Usage: fuzz.py [--merge] BUILD [SECONDS]

BUILD is a build folder with the fuzzers. Each runs for SECONDS (60 unless given), from the corpus in
the tree and from what earlier runs put into BUILD/corpus. Inputs with a finding go to BUILD/findings,
and the exit status is 1. With --merge nothing is run: what BUILD/corpus reaches beyond the corpus in
the tree is added to that.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
FUZZ = ROOT / "tests" / "fuzz"
# Each fuzzer with the folders of the corpus that it starts from; its own comes first.
FUZZERS = {
    "plist": ("plist", "unarchiver"),
    "unarchiver": ("unarchiver",),
    "differential": ("plist", "unarchiver"),
    "card": ("card",),
    "card_book": ("card",),
}
LARGEST_FOUND = 1000  # bytes of a file that goes into the tree


def program(build, name):
    return build / "tests" / "fuzz" / f"ov_fuzz_{name}"


def folder(*parts):
    path = pathlib.Path(*parts)
    path.mkdir(parents=True, exist_ok=True)
    return path


def seeds(name):
    return [FUZZ / "corpus" / each for each in FUZZERS[name]]


def fuzz(build, name, seconds):
    """Runs one fuzzer; True when it found nothing."""
    command = [
        program(build, name),
        f"-max_total_time={seconds}",
        "-timeout=10",
        "-rss_limit_mb=2048",
        "-max_len=8192",
        "-print_final_stats=1",
        f"-dict={FUZZ / ('card.dict' if name.startswith('card') else 'archive.dict')}",
        f"-artifact_prefix={folder(build, 'findings')}/{name}-",
        folder(build, "corpus", name),
        *seeds(name),
    ]
    done = subprocess.run(
        command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, errors="replace", check=False
    )
    if done.returncode != 0:
        print(done.stdout[-20000:])
        print(f"{name}: a finding; the input is in {build / 'findings'}")
        return False
    runs = re.search(r"number_of_executed_units: +(\d+)", done.stdout)[1]
    rate = re.search(r"average_exec_per_sec: +(\d+)", done.stdout)[1]
    covered, features, corpus = re.findall(r"cov: (\d+) ft: (\d+) corp: (\d+)", done.stdout)[-1]
    print(
        f"{name}: {runs} runs in {seconds} s ({rate} a second), {covered} branches and {features} "
        f"features reached, {corpus} inputs in the corpus; nothing found",
        flush=True,
    )
    return True


def merge(build, name):
    """Adds the few inputs that reach code which the corpus in the tree does not, to that."""
    with tempfile.TemporaryDirectory() as short:
        for path in folder(build, "corpus", name).iterdir():
            if path.stat().st_size <= LARGEST_FOUND:
                pathlib.Path(short, path.name).symlink_to(path.resolve())
        with tempfile.TemporaryDirectory() as added:
            known = [str(path) for path in seeds(name)]
            for path in known:
                for file in pathlib.Path(path).iterdir():
                    pathlib.Path(added, file.name).write_bytes(file.read_bytes())
            before = set(pathlib.Path(added).iterdir())
            command = [program(build, name), "-set_cover_merge=1", "-use_counters=0", added, short]
            subprocess.run(command, check=True, capture_output=True)
            found = sorted(set(pathlib.Path(added).iterdir()) - before)
            for file in found:
                (seeds(name)[0] / f"found-{file.name[:12]}").write_bytes(file.read_bytes())
    print(f"{name}: {len(found)} files added")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--merge", action="store_true")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("seconds", type=int, nargs="?", default=60)
    options = parser.parse_args()
    build = options.build.resolve()
    if options.merge:
        for name in ("plist", "unarchiver", "card", "card_book"):
            merge(build, name)
        return 0
    return 0 if all([fuzz(build, name, options.seconds) for name in FUZZERS]) else 1


if __name__ == "__main__":
    sys.exit(main())
