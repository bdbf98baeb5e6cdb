"""The completion for bash offers what ovbook takes. OV_OVBOOK names the program."""

import os
import pathlib
import subprocess
import tempfile
import unittest

from command_help import ACTIONS, COMMANDS, OVBOOK, OVBOOK_ITSELF

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "completions" / "ovbook.bash"

COMPLETE = """
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
[[ $(complete -p ovbook) == "complete -F _ovbook ovbook" ]] || exit 3
_ovbook
[[ ${#COMPREPLY[@]} -eq 0 ]] || printf '%s\\n' "${COMPREPLY[@]}"
"""


class BashCompletion(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name in ("family.ovbook", "friends of mine.ovbook", "notes"):
            (self.folder / name).touch()

    def completed(self, *words):
        """What is offered for the last word."""
        done = subprocess.run(
            ["bash", "--norc", "-c", COMPLETE, "bash", SCRIPT, "ovbook", *words],
            cwd=self.folder,
            env={**os.environ, "PATH": f"{pathlib.Path(OVBOOK).parent}:{os.environ['PATH']}"},
            capture_output=True,
            text=True,
            check=True,
        )
        self.assertEqual(done.stderr, "")
        return done.stdout.splitlines()

    def test_commands(self):
        self.assertEqual(self.completed(""), OVBOOK_ITSELF.actions)
        self.assertEqual(self.completed("ex"), ["export"])
        self.assertEqual(self.completed("nothing"), [])

    def test_options_of_each_command(self):
        self.assertEqual(set(self.completed("-")), OVBOOK_ITSELF.names())
        for name, command in COMMANDS.items():
            with self.subTest(command=name):
                self.assertEqual(set(self.completed(name, "-")), command.names())
        self.assertEqual(self.completed("import", "--o"), ["--output"])

    def test_actions_on_tags(self):
        self.assertEqual(self.completed("tag", ""), [])
        self.assertEqual(self.completed("tag", "store", ""), list(ACTIONS))
        self.assertEqual(self.completed("tag", "store", "re"), ["remove"])
        self.assertEqual(self.completed("tag", "store", "add", ""), [])

    def test_files(self):
        both = ["family.ovbook", "friends of mine.ovbook"]
        for words in (["list"], ["show"], ["dump"], ["export"], ["import"], ["import", "notes"]):
            with self.subTest(words=words):
                self.assertEqual(sorted(self.completed(*words, "f")), both)
        for words in (["-o"], ["--output"], ["--output", "="]):
            with self.subTest(words=words):
                self.assertEqual(sorted(self.completed("export", *words, "f")), both)
        self.assertEqual(len(self.completed("export", "--output", "=")), 3)

    def test_no_file_where_none_is_taken(self):
        for words in (["list", "notes"], ["list", "--tsv", "notes"], ["countries"]):
            with self.subTest(words=words):
                self.assertEqual(self.completed(*words, ""), [])
        self.assertEqual(self.completed("show", "--tags", ""), [])

    def test_the_values_of_options_are_no_arguments(self):
        offered = self.completed("export", "-o", "notes", "--tags", "store", "fa")
        self.assertEqual(offered, ["family.ovbook"])

    def test_name_orders(self):
        self.assertEqual(self.completed("name-order", ""), ["first", "last"])

    def test_country_codes(self):
        for words in (["country"], ["layout"], ["format", "--country"]):
            with self.subTest(words=words):
                self.assertIn("de", self.completed(*words, "d"))
                self.assertNotIn("fr", self.completed(*words, "d"))

    def test_fields_of_the_countrys_addresses(self):
        country = ["format", "--country", "de"]
        self.assertEqual(self.completed(*country, "P"), ["PostalCode="])
        self.assertEqual(self.completed(*country, "City", "=", "Ulm", "S"), ["Street="])
        self.assertEqual(self.completed(*country, "City", "=", "C"), [])
        self.assertEqual(self.completed(*country, "City", "="), [])
        self.assertEqual(self.completed("format", ""), [])


if __name__ == "__main__":
    unittest.main()
