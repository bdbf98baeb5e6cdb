#!/usr/bin/env python3
"""Checks that includes point down. Usage: check_includes.py [FOLDER]

src/book -> src/contact, src/address -> src/property -> src/value -> src/platform: a folder includes
itself, what lies below it, and the public headers of those. Above src/platform there is no
preprocessor condition and no header of a third party. Hosts, tools and examples see the library
through its public headers only. Books over vCards build on hosts/card, whose rooms know each other one
way: memory/ -> mapping/ -> codec/; the codec knows nothing of the library.
"""

import pathlib
import re
import sys

RANKS = {"platform": 0, "value": 1, "property": 2, "contact": 3, "address": 3, "book": 4}

ROOMS = {"codec": 0, "mapping": 1, "memory": 2}
BOOKS_OVER_CARDS = ("vcard", "eds")

# The folder whose classes each public header declares.
PUBLIC_HEADERS = {
    "platform": """atomic data date dictionary dictionary_object export held_view image keyed_archiver
        keyed_unarchiver list list_object locale log notification_center notification_names number object opaque_object text
        text_field text_view user_defaults version workspace""",
    "value": "label multiple_value single_value value value_type",
    "property": "property",
    "contact": "email instant_message person_name phone",
    "address": "address address_field address_formater country",
    "book": """address_book address_book_general group group_general person person_general person_heading
        person_matcher person_sorter persons_to_list tag_manager""",
}
FOLDER_OF_HEADER = {
    f"{header}.h": folder for folder, headers in PUBLIC_HEADERS.items() for header in headers.split()
}
UMBRELLA = "OVAddressBookSDK.h"

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
STANDARD_HEADER = re.compile(r"^[a-z0-9_]+$")


def sources(folder):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


def may_include(user, used):
    """A folder of src/ may include itself and what lies below it."""
    return user == used or RANKS[used] < RANKS[user]


class Checker:
    def __init__(self, root):
        self.root = root
        self.problems = []

    def report(self, path, line, text):
        self.problems.append(f"{path.relative_to(self.root)}:{line}: {text}")

    def check(self):
        public = self.root / "include" / "OVAddressBookSDK"
        for folder in RANKS:
            for path in sources(self.root / "src" / folder):
                self.check_library_file(path, folder)
        for path in sources(public):
            if path.name == UMBRELLA:
                self.check_umbrella(path)
            elif path.name in FOLDER_OF_HEADER:
                self.check_library_file(path, FOLDER_OF_HEADER[path.name])
            else:
                self.report(path, 1, "check_includes.py does not know which folder this belongs to")
        for name in ("hosts", "tools", "examples"):
            for path in sources(self.root / name):
                self.check_user(path)
        return self.problems

    def lines(self, path):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            yield number, line, INCLUDE.match(line)

    def check_library_file(self, path, folder):
        is_public = "include" in path.relative_to(self.root).parts
        for number, line, include in self.lines(path):
            if folder != "platform" and CONDITION.match(line):
                self.report(path, number, "a preprocessor condition outside src/platform")
            if not include:
                continue
            bracket, name = include.groups()
            if bracket == '"':
                used = name.split("/")[0]
                if is_public:
                    self.report(path, number, f'"{name}" is not a public header')
                elif used not in RANKS:
                    self.report(path, number, f'"{name}" does not begin with a folder of src/')
                elif not may_include(folder, used):
                    self.report(path, number, f'src/{folder} includes "{name}", which lies above')
            elif name.startswith("OVAddressBookSDK/"):
                self.check_public_include(path, number, folder, name)
            elif not STANDARD_HEADER.match(name) and (is_public or folder != "platform"):
                self.report(path, number, f"<{name}> belongs below src/platform")

    def check_public_include(self, path, number, folder, name):
        used = FOLDER_OF_HEADER.get(name.split("/")[1])
        if used is None:
            self.report(path, number, f"the library's own files do not include <{name}>")
        elif not may_include(folder, used):
            self.report(path, number, f"src/{folder} uses <{name}> of src/{used}, which lies above")

    def check_umbrella(self, path):
        names = {include.group(2) for _, _, include in self.lines(path) if include}
        for header in sorted(FOLDER_OF_HEADER):
            if f"OVAddressBookSDK/{header}" not in names and (path.parent / header).exists():
                self.report(path, 1, f"<OVAddressBookSDK/{header}> is missing")

    def check_user(self, path):
        host, room = path.relative_to(self.root).parts[1:3] if self.is_host(path) else ("", "")
        for number, _, include in self.lines(path):
            if not include:
                continue
            bracket, name = include.groups()
            used = next((part for part in name.split("/")[:-1] if part in ROOMS), "")
            if host == "card" and room == "codec" and name.startswith("OVAddressBookSDK/"):
                self.report(path, number, f"the codec knows nothing of <{name}>")
            elif host == "card" and ROOMS.get(used, -1) > ROOMS.get(room, len(ROOMS)):
                self.report(path, number, f'hosts/card/{room} includes "{name}", which lies above')
            elif bracket == '"' and not self.is_own(path, name) and not self.is_room(host, used):
                self.report(path, number, f'"{name}" is not a public header')

    def is_host(self, path):
        return path.is_relative_to(self.root / "hosts")

    def is_room(self, host, used):
        return host in BOOKS_OVER_CARDS and used in ROOMS

    def is_own(self, path, name):
        """Whether `name` lies in the user's own tree, seen from the file or from a source root."""
        parts = path.relative_to(self.root).parts
        top = self.root.joinpath(*parts[: 1 if parts[0] == "examples" else 2])
        roots = (path.parent, top, top / "src")
        places = ((root / name).resolve() for root in roots)
        return any(place.exists() and place.is_relative_to(top) for place in places)


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1]
    problems = Checker(root.resolve()).check()
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
