"""The manual page of ovbook tells what its --help tells.

OV_OVBOOK names the program, OV_VERSION its version.
"""

import os
import pathlib
import re
import subprocess
import unittest

from command_help import ACTIONS, COMMANDS, OVBOOK_ITSELF

PAGE = pathlib.Path(__file__).resolve().parents[2] / "man" / "ovbook.1"


def plain(text):
    """The page without its markup: what is on one line of the source is one line."""
    text = text.replace("\\-", "-").replace("\\e", "\\")
    text = re.sub(r"\\f[A-Z]", "", text)
    lines = []
    for line in text.splitlines():
        macro = re.match(r"\.(B|I|BR|RB|RI|IR)\b *(.*)", line)
        if macro:
            words = re.findall(r'"([^"]*)"|(\S+)', macro.group(2))
            apart = " " if macro.group(1) in "BI" else ""
            line = apart.join(quoted or bare for quoted, bare in words)
        lines.append(line)
    return "\n".join(lines)


TEXT = plain(PAGE.read_text(encoding="utf-8"))
PARTS = dict(re.findall(r"^\.SH ([A-Z ]+)\n(.*?)(?=^\.SH |\Z)", TEXT, re.MULTILINE | re.DOTALL))
SECTIONS = dict(
    re.findall(r"^\.SS (\S+)\n(.*?)(?=^\.SS |\Z)", PARTS["COMMANDS"], re.MULTILINE | re.DOTALL)
)


def synopsis(section):
    return section.split(".PP")[0]


def explained(section):
    """The first words after each .TP: options and actions with their arguments."""
    return re.findall(r"^\.TP\n(.*)", section, re.MULTILINE)


class ManPage(unittest.TestCase):
    def test_has_the_commands_of_the_help(self):
        self.assertEqual(list(SECTIONS), OVBOOK_ITSELF.actions)

    def test_tells_of_help_and_version_once_for_all(self):
        general = PARTS["SYNOPSIS"] + PARTS["DESCRIPTION"]
        self.assertEqual(OVBOOK_ITSELF.names(), set(re.findall(r"(?<![\w-])--?[a-z]+", general)))

    def test_explains_the_options_of_the_help(self):
        for name, command in COMMANDS.items():
            options = [names for names in command.options if "--help" not in names]
            told = [line for line in explained(SECTIONS[name]) if line.startswith("-")]
            with self.subTest(command=name):
                self.assertEqual([re.findall(r"--?[a-z-]+", line) for line in told], options)

    def test_shows_options_and_arguments_in_each_synopsis(self):
        for name, command in COMMANDS.items():
            shown = synopsis(SECTIONS[name])
            with self.subTest(command=name):
                self.assertIn(f"ovbook {name}", shown)
                for names in command.options:
                    if "--help" not in names:
                        self.assertTrue(any(option in shown for option in names), names)
                for argument in command.arguments:
                    self.assertIn(argument, shown)

    def test_explains_the_actions_on_tags(self):
        told = [line for line in explained(SECTIONS["tag"]) if not line.startswith("-")]
        expected = [" ".join([name, *ACTIONS[name].arguments]) for name in ACTIONS]
        self.assertEqual([line.replace("...", "") for line in told], expected)

    def test_names_the_version(self):
        self.assertIn(f'"OVAddressBookSDK {os.environ["OV_VERSION"]}"', TEXT)

    def test_is_well_formed(self):
        done = subprocess.run(
            ["mandoc", "-T", "lint", "-W", "warning", PAGE], capture_output=True, text=True, check=False
        )
        self.assertEqual((done.returncode, done.stdout), (0, ""))


if __name__ == "__main__":
    unittest.main()
