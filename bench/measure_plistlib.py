"""Reads a data block with Python's plistlib and writes it again; prints one line of JSON."""

import json
import plistlib
import sys
import time


def median(measure, runs=3):
    seconds = []
    for _ in range(runs):
        start = time.perf_counter()
        result = measure()
        seconds.append(time.perf_counter() - start)
    return sorted(seconds)[runs // 2], result


with open(sys.argv[2], "rb") as file:
    block = file.read()
restore, book = median(lambda: plistlib.loads(block))
save, written = median(lambda: plistlib.dumps(book, fmt=plistlib.FMT_BINARY, sort_keys=False))
print(json.dumps({"codec": "plistlib", "persons": int(sys.argv[1]), "save_seconds": save,
                  "restore_seconds": restore, "block_bytes": len(written)}))
