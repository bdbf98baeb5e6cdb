#!/usr/bin/env python3
"""Measures the library against its peers in one run.

usage: run.py BUILD OUT [--sizes 1000,10000,...] [--only books|cards|windows|live]
              [--page docs/performance.md]

BUILD is a build folder with the benchmarks. OUT gets results.json; the tables between the markers of
the page are replaced, and performance.svg is drawn beside it (into OUT without a page). Every point
is a process of its own, and every program is run on one core.
"""

import argparse
import datetime
import json
import pathlib
import platform
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from cards import card_points, card_table
from processes import measured, pinned

RUNS = {1000: 9, 10000: 7, 100000: 5, 1000000: 3}
PLISTLIB_LIMIT = 100000
VCARD_LIMIT = 10000
CARDS = (10000, 100000)
WINDOW_PERSONS = 100000
MACHINE_PERSONS = 100000
LIVE_PERSONS = (1000, 10000)


def elapsed(command):
    start = time.perf_counter()
    subprocess.run(pinned(command), check=True, capture_output=True)
    return time.perf_counter() - start


def graph_points(programs, size):
    for codec in ("library", "cereal", "boost"):
        yield measured([programs / "measure_point", codec, size, RUNS.get(size, 3)])


def plist_points(programs, size, folder, missing):
    block = folder / f"{size}.plist"
    subprocess.run([programs / "write_block", str(size), block], check=True)
    yield measured(["/usr/bin/python3", pathlib.Path(__file__).parent / "measure_plistlib.py",
                    size, block])
    if not shutil.which("plistutil"):
        missing.add("plistutil")
        return
    command = ["plistutil", "-i", block, "-o", folder / "out.xml", "-f", "xml"]
    yield {"codec": "plistutil (to XML)", "persons": size,
           "restore_seconds": statistics.median(elapsed(command) for _ in range(3))}


def vcard_points(programs, size, missing):
    for program, name in (("measure_ebook", "libebook-contacts (vCard)"),
                          ("measure_kcontacts", "KContacts (vCard)")):
        if (programs / program).exists():
            yield measured([programs / program, size])
        else:
            missing.add(name)


def all_points(programs, sizes):
    points, missing = [], set()
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        for size in sizes:
            points += graph_points(programs, size)
            if size <= PLISTLIB_LIMIT:
                points += plist_points(programs, size, folder, missing)
            if size <= VCARD_LIMIT:
                points += vcard_points(programs, size, missing)
            print(f"measured {size} persons", file=sys.stderr)
    return points, sorted(missing)


def cell(value, pattern):
    return pattern.format(value) if value is not None else "-"


def ratio(point, own, key):
    if point is own or key not in point:
        return None
    return point[key] / own[key]


def table(points, missing):
    rows = ["| persons | | save µs/person | × ours | restore µs/person | × ours | bytes/person "
            "| save peak / block | restored MB |", "|" + "---|" * 9]
    for size in sorted({point["persons"] for point in points}):
        own = next(p for p in points if p["persons"] == size and p["codec"] == "OVAddressBookSDK")
        for point in (p for p in points if p["persons"] == size):
            def each(key, factor=1e6):
                return point[key] / size * factor if key in point else None
            peak = point.get("save_peak_bytes")
            held = point.get("restored_bytes")
            rows.append("| {} | {} | {} | {} | {} | {} | {} | {} | {} |".format(
                size, point["codec"],
                cell(each("save_seconds"), "{:.2f}"),
                cell(ratio(point, own, "save_seconds"), "{:.1f}"),
                cell(each("restore_seconds"), "{:.2f}"),
                cell(ratio(point, own, "restore_seconds"), "{:.1f}"),
                cell(each("block_bytes", 1), "{:.0f}"),
                cell(peak / point["block_bytes"] if peak else None, "{:.2f}"),
                cell(held / 1e6 if held else None, "{:.1f}")))
    if missing:
        rows += ["", "Missing on this machine: " + ", ".join(missing) + "."]
    return "\n".join(rows)


def operations_table(operations):
    rows = ["| operation | ns a call |", "|---|---|"]
    names = ("displayName", "valueByPropertyName", "mainPhone", "formatString", "countryWithCode")
    rows += [f"| `{name}` | {operations[name]:.0f} |" for name in names]
    rows.append(f"| tagging one of {operations['tagged']} persons, store in memory "
                f"| {operations['tagging']:.0f} |")
    return "\n".join(rows)


def machine_table(limits, own):
    """What the machine itself needs for a person, and how far each direction is from it."""
    persons, block, held = limits["persons"], own["block_bytes"], own["restored_bytes"]
    clearing, copying = (f"{1e-9 / limits[key]:.1f} GB/s" for key in ("clearing", "copying"))
    works = (("walking over a plain graph", limits["walking"], True, False),
             (f"clearing fresh pages for the block, at {clearing}", limits["clearing"] * block,
              True, False),
             (f"copying the block, at {copying}", limits["copying"] * block, True, True),
             (f"clearing fresh pages for the restored book, at {clearing}",
              limits["clearing"] * held, False, True))
    rows = [f"| {persons} persons: what the machine needs | saving, µs/person "
            "| restoring, µs/person |", "|---|---|---|"]
    for name, seconds, saving, restoring in works:
        text = f"{seconds / persons * 1e6:.2f}"
        rows.append(f"| {name} | {text if saving else '-'} | {text if restoring else '-'} |")
    save = sum(work[1] for work in works if work[2])
    restore = sum(work[1] for work in works if work[3])
    rows.append(f"| together | {save / persons * 1e6:.2f} | {restore / persons * 1e6:.2f} |")
    rows.append(f"| OVAddressBookSDK, times that | {own['save_seconds'] / save:.1f} "
                f"| {own['restore_seconds'] / restore:.1f} |")
    listing = limits["list"] / own["restore_seconds"]
    rows.append(f"| `ovbook list`, times restoring | - | {listing:.2f} |")
    return "\n".join(rows)


def machine_limits(options, size):
    """What the machine needs, and the seconds that a list of such a book takes."""
    limits = measured([options.build / "bench" / "measure_machine", size])
    with tempfile.TemporaryDirectory() as temporary:
        block = pathlib.Path(temporary) / "block"
        subprocess.run([options.build / "bench" / "write_block", str(size), block], check=True)
        command = [options.build / "tools" / "ovbook" / "ovbook", "list", "--tsv", block]
        limits["list"] = statistics.median(elapsed(command) for _ in range(5))
    return limits


def machine():
    model = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo")
                  if line.startswith("model name")), platform.machine())
    compiler = subprocess.run(["g++", "--version"], capture_output=True, text=True).stdout
    return (f"{datetime.date.today()}, {model}, one core, Linux {platform.release()}, "
            f"{compiler.splitlines()[0]}, Python {platform.python_version()}")


def draw(points, out):
    if not shutil.which("gnuplot"):
        return "gnuplot is missing: no plot"
    series = {}
    for point in points:
        if "save_seconds" in point:
            series.setdefault(point["codec"], []).append(point)
    lines = ["set terminal svg size 900,420 background 'white'",
             f"set output '{out / 'performance.svg'}'", "set logscale xy", "set key outside right",
             "set xlabel 'persons'", "set ylabel 'microseconds a person'", "set grid",
             "set title 'Saving a book'"]
    for number, (name, found) in enumerate(series.items()):
        lines.append(f"$data{number} << EOD")
        lines += [f"{p['persons']} {p['save_seconds'] / p['persons'] * 1e6}" for p in found]
        lines.append("EOD")
    lines.append("plot " + ", ".join(f"$data{i} using 1:2 with linespoints title '{name}'"
                                     for i, name in enumerate(series)))
    subprocess.run(["gnuplot"], input="\n".join(lines), text=True, check=True)
    return ""


def write_page(page, texts):
    """Replaces what is between the markers of each name."""
    content = page.read_text()
    for name, text in texts.items():
        begin, end = f"<!-- {name}: begin -->", f"<!-- {name}: end -->"
        head, rest = content.split(begin)
        content = head + begin + "\n" + text + "\n" + end + rest.split(end)[1]
    page.write_text(content)


def measure_books(options, results):
    programs = options.build / "bench"
    sizes = [int(n) for n in options.sizes.split(",")]
    points, missing = all_points(programs, sizes)
    operations = measured([programs / "measure_operations", 10000, 10000])
    size = min(max(sizes), MACHINE_PERSONS)
    limits = machine_limits(options, size)
    own = next(p for p in points if p["persons"] == size and p["codec"] == "OVAddressBookSDK")
    results |= {"points": points, "operations": operations, "limits": limits, "missing": missing}
    note = draw(points, options.page.parent if options.page else options.out)
    if note:
        print(note, file=sys.stderr)
    return "\n\n".join([machine() + ".", table(points, missing), machine_table(limits, own),
                        operations_table(operations)])


def measure_cards(options, results):
    points, missing = card_points(options.build, CARDS)
    results |= {"cards": points, "missing with cards": missing}
    return "\n\n".join([machine() + ".", card_table(points, missing)])


def measure_windows(options, results):
    program = options.build / "bench" / "measure_windows"
    found = measured([program, WINDOW_PERSONS])
    results |= {"windows": found}
    rows = [
        ("restoring a block", "restoring", None),
        ("restoring it and showing the first names", "opening", "restoring"),
        ("a plain scan of the texts that a search looks into, for one letter", "scanning", None),
        ("filtering by that letter, typed", "typing", "scanning"),
        ("filtering by the next", "typingOn", "scanning"),
    ]
    lines = [f"| {WINDOW_PERSONS} persons | ms | × |", "|---|---|---|"]
    for text, key, beside in rows:
        times = cell(found[key] / found[beside] if beside else None, "{:.2f}")
        lines.append(f"| {text} | {found[key] * 1000:.1f} | {times} |")
    lines.append(f"| memory of the models and the list beside the book: bytes a person "
                 f"| {found['bytes'] / WINDOW_PERSONS:.0f} | - |")
    return "\n\n".join([machine() + ".", "\n".join(lines)])


def measure_live(options, results):
    program = options.build / "bench" / "measure_live"
    found = [measured([program, persons]) for persons in LIVE_PERSONS]
    results |= {"live": found}
    rows = (
        ("`e_book_client_get_contacts_sync`", "fetching"),
        ("the call, then freeing what it brought", "fetchingAndFreeing"),
        ("`OVEDSSession::openBook`", "opening"),
        ("`OVEDSBook::load`", "loading"),
        ("opening and loading", "both"),
        ("the call, then the name of each contact", "fetchingNames"),
        ("loading, then the name of each person", "loadingNames"),
    )
    lines = ["| persons | | ms | × |", "|---|---|---|---|"]
    for point in found:
        for text, key in rows:
            lines.append(f"| {point['persons']} | {text} | {point[key] * 1000:.1f} "
                         f"| {point[key] / point['fetching']:.2f} |")
    return "\n\n".join([machine() + ".", "\n".join(lines)])


MEASURES = {
    "books": ("measured", measure_books),
    "cards": ("measured with cards", measure_cards),
    "windows": ("measured with windows", measure_windows),
    "live": ("measured with live books", measure_live),
}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("--sizes", default="1000,10000,100000")
    parser.add_argument("--only", choices=MEASURES)
    parser.add_argument("--page", type=pathlib.Path)
    options = parser.parse_args()
    options.out.mkdir(parents=True, exist_ok=True)

    results, texts = {"machine": machine()}, {}
    for name, (marker, measure) in MEASURES.items():
        if options.only in (None, name):
            texts[marker] = measure(options, results)
    print("\n\n".join(texts.values()))
    (options.out / "results.json").write_text(json.dumps(results, indent=1) + "\n")
    if options.page:
        write_page(options.page, texts)


if __name__ == "__main__":
    main()
