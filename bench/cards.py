"""Measures reading cards and the command, with the cards of the example's mix."""

import base64
import pathlib
import re
import statistics
import tempfile

from processes import cost, measured

EXAMPLE = pathlib.Path(__file__).resolve().parents[1] / "examples" / "contacts.vcf"
READERS = ("ebook", "kcontacts", "codec", "book")
PEER = "ebook"
RUNS = 3
PHOTO_SIZE = 100_000_000


def example_cards(count):
    """The example's cards again and again, as different persons and groups."""
    text = EXAMPLE.read_bytes()
    cards = [b"BEGIN:VCARD" + rest for rest in text.split(b"BEGIN:VCARD")[1:]]
    ids = re.findall(rb"^UID:(?:urn:uuid:)?([^\r\n]+)", text, re.MULTILINE)
    named = re.compile(b"|".join(re.escape(each) for each in sorted(ids, key=len, reverse=True)))
    for number in range(count):
        copy = b"-%d" % (number // len(cards))
        card = named.sub(lambda found: found[0] + copy, cards[number % len(cards)])
        if b"\nUID:" not in card:
            card = card.replace(b"END:VCARD", b"X-COPY:" + copy + b"\r\nEND:VCARD", 1)
        yield card


def photo_card():
    photo = b"\xff\xd8\xff\xe0" + bytes(range(256)) * 3
    lines = photo[: len(photo) // 54 * 54]
    yield b"BEGIN:VCARD\r\nVERSION:4.0\r\nUID:photo\r\nFN:A Photo\r\nPHOTO:data:image/jpeg;base64,"
    for at in range(0, PHOTO_SIZE, 54):
        line = at % len(lines)
        yield b"\r\n " + base64.b64encode(lines[line : line + 54])
    yield b"\r\nEND:VCARD\r\n"


def write(file, pieces):
    """Piece by piece: what this process holds at its most would count as a program's own memory."""
    with file.open("wb") as out:
        out.writelines(pieces)


def point(cards, what, seconds, peak):
    return {"cards": cards, "what": what, "seconds": seconds, "peak_bytes": peak}


def command_point(cards, what, command):
    costs = [cost(command) for _ in range(RUNS)]
    return point(cards, what, statistics.median(c[0] for c in costs), max(c[1] for c in costs))


def size_points(build, cards, folder, missing):
    file = folder / f"{cards}.vcf"
    write(file, example_cards(cards))
    for name in READERS:
        program = build / "bench" / f"read_{name}"
        if program.exists():
            found = measured([program, file])
            what = "parsing" if name == PEER else "reading"
            yield point(cards, f"{what}: {found['reader']}", found["seconds"], found["peak_bytes"])
        else:
            missing.add(name)
    yield from command_points(build, cards, file)


def command_points(build, cards, file):
    ovbook = build / "tools" / "ovbook" / "ovbook"
    book = file.with_suffix(".book")
    yield command_point(cards, "`ovbook import`", [ovbook, "import", file, "-o", book])
    yield command_point(cards, "`ovbook list`", [ovbook, "list", book])
    yield command_point(
        cards, "`ovbook export`", [ovbook, "export", book, "-o", file.with_suffix(".out")]
    )


def photo_point(build, folder):
    file = folder / "photo.vcf"
    write(file, photo_card())
    ovbook = build / "tools" / "ovbook" / "ovbook"
    return command_point(
        1, "a photo of 100 MB: `ovbook import`", [ovbook, "import", file, "-o", folder / "book"]
    )


def card_points(build, sizes):
    points, missing = [], set()
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        for size in sizes:
            points += size_points(build, size, folder, missing)
        points.append(photo_point(build, folder))
    return points, sorted(missing)


def card_table(points, missing):
    """Processor times, also as multiples of that in which the peer parses as many cards."""
    parsing = {p["cards"]: p["seconds"] for p in points if p["what"].startswith("parsing")}
    rows = ["| cards | | seconds | × parsing | peak MB |", "|" + "---|" * 5]
    for p in points:
        ratio = f"{p['seconds'] / parsing[p['cards']]:.2f}" if p["cards"] in parsing else "-"
        rows.append(
            f"| {p['cards']} | {p['what']} | {p['seconds']:.3f} | {ratio} "
            f"| {p['peak_bytes'] / 1e6:.0f} |"
        )
    if missing:
        rows += ["", "Missing on this machine: " + ", ".join(missing) + "."]
    return "\n".join(rows)
