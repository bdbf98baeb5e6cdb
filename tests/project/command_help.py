"""What `ovbook --help` says, command by command. OV_OVBOOK names the program."""

import dataclasses
import os
import re
import subprocess

OVBOOK = os.environ["OV_OVBOOK"]


@dataclasses.dataclass
class Command:
    options: list  # each a list of its names
    arguments: list
    actions: list

    def names(self):
        return {name for names in self.options for name in names}


def entries(text, title):
    """The first column of a part of the help."""
    part = re.search(rf"^{title}:\n((?:  .*\n)+)", text, re.MULTILINE)
    return re.findall(r"^  (\S.*?)(?:  |$)", part.group(1), re.MULTILINE) if part else []


def help_of(*words):
    command = [OVBOOK, *words, "--help"]
    text = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    return Command(
        options=[entry.split()[0].split(",") for entry in entries(text, "Options")],
        arguments=[entry.split()[0] for entry in entries(text, "Positionals")],
        actions=[entry.split()[0] for entry in entries(text, "Subcommands")],
    )


OVBOOK_ITSELF = help_of()
COMMANDS = {name: help_of(name) for name in OVBOOK_ITSELF.actions}
ACTIONS = {name: help_of("tag", "store", name) for name in COMMANDS["tag"].actions}
