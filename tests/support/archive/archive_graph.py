"""Archive listings as graphs, for readers that do not keep the order of a dictionary's entries."""

import re

LINE = re.compile(r"#(\d+)( : |\.|\[)(.*)")
# A text, or a reference outside of one.
TOKEN = re.compile(r'"(?:[^"\\]|\\.)*"|#(\d+)')


def _parsed(listing):
    """The value of the root, and of each object its class and its fields."""
    first, *lines = listing.splitlines()
    objects = {}
    for line in lines:
        number, mark, rest = LINE.fullmatch(line).groups()
        if mark == " : ":
            objects[number] = (rest, [])
        else:
            key, value = rest.split("] = " if mark == "[" else " = ", 1)
            # Positions in a list in their order.
            order = key.zfill(9) if key.isdigit() else key
            objects[number][1].append((mark, order, value))
    return first, objects


def graph(listing):
    """The listing with the entries of each object sorted, and the objects renumbered."""
    first, objects = _parsed(listing)
    numbers, waiting, lines = {}, [], []

    def renumbered(value):
        def each(token):
            if token[1] is None:
                return token[0]
            if token[1] not in numbers:
                numbers[token[1]] = len(numbers) + 1
                waiting.append(token[1])
            return f"#{numbers[token[1]]}"

        return TOKEN.sub(each, value)

    lines.append(renumbered(first))
    for number in waiting:
        class_name, entries = objects[number]
        lines.append(f"#{numbers[number]} : {class_name}")
        for mark, key, value in sorted(entries):
            lines.append(f"#{numbers[number]}{mark}{key} = {renumbered(value)}")
    return "\n".join(lines)
