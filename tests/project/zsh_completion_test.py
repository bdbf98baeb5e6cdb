"""The completion for zsh offers what ovbook takes. OV_OVBOOK names the program."""

import os
import pathlib
import pty
import select
import subprocess
import tempfile
import unittest

from command_help import ACTIONS, COMMANDS, OVBOOK, OVBOOK_ITSELF

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "completions"

# An interactive shell whose Ctrl-T writes what the completion offers into a pipe.
SET_UP = """
fpath=($OV_COMPLETIONS $fpath)
autoload -Uz compinit
compinit -D -u
compadd() {
  local -a offered
  builtin compadd -O offered "$@"
  [[ ${#offered} -eq 0 ]] || print -rl -- $offered >&9
  builtin compadd "$@"
}
_offer() { _main_complete; compstate[list]= compstate[insert]=; print -r -- END >&9; }
zle -C offer list-choices _offer
bindkey '^T' offer
exec 9<>$OV_OFFERED
print -r -- END >&9
"""


class Shell:
    """zsh behind a terminal of its own."""

    def __init__(self, folder):
        (folder / "home").mkdir()
        (folder / "home" / ".zshrc").write_text(SET_UP, encoding="utf-8")
        offered = folder / "offered"
        os.mkfifo(offered)
        self.offered = os.open(offered, os.O_RDWR)
        self.terminal, inner = pty.openpty()
        self.process = subprocess.Popen(
            ["zsh", "-i"],
            stdin=inner,
            stdout=inner,
            stderr=inner,
            cwd=folder,
            start_new_session=True,
            env={
                "HOME": str(folder / "home"),
                "LC_ALL": "C.UTF-8",
                "OV_COMPLETIONS": str(FOLDER),
                "OV_OFFERED": str(offered),
                "PATH": f"{pathlib.Path(OVBOOK).parent}:{os.environ['PATH']}",
                "TERM": "dumb",
            },
        )
        os.close(inner)
        self.answer()

    def answer(self):
        """What the pipe holds up to its END. The terminal's output is read past."""
        read = b""
        while not read.endswith(b"END\n"):
            ready, _, _ = select.select([self.offered, self.terminal], [], [], 60)
            if not ready:
                raise AssertionError(f"the shell is silent, after {read!r}")
            if self.terminal in ready:
                os.read(self.terminal, 65536)
            if self.offered in ready:
                read += os.read(self.offered, 65536)
        return read.decode().splitlines()[:-1]

    def completed(self, line):
        os.write(self.terminal, b"\x15" + line.encode() + b"\x14")
        return self.answer()

    def close(self):
        self.process.kill()
        self.process.wait()
        os.close(self.terminal)
        os.close(self.offered)


class ZshCompletion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        (pathlib.Path(folder.name) / "family.ovbook").touch()
        cls.shell = Shell(pathlib.Path(folder.name))  # takes a second to begin
        cls.addClassCleanup(cls.shell.close)

    def completed(self, line):
        return {word.removesuffix("=") for word in self.shell.completed(line)}

    def test_commands(self):
        self.assertEqual(self.completed("ovbook "), set(OVBOOK_ITSELF.actions))

    def test_options_of_each_command(self):
        self.assertEqual(self.completed("ovbook -"), OVBOOK_ITSELF.names())
        for name, command in COMMANDS.items():
            with self.subTest(command=name):
                self.assertEqual(self.completed(f"ovbook {name} -"), command.names())

    def test_actions_on_tags(self):
        self.assertEqual(self.completed("ovbook tag store "), set(ACTIONS))

    def test_files(self):
        for line in ("list", "show", "dump", "import", "export", "export -o", "import --output="):
            with self.subTest(line=line):
                apart = "" if line.endswith("=") else " "
                self.assertIn("family.ovbook", self.completed(f"ovbook {line}{apart}fam"))

    def test_words(self):
        self.assertEqual(self.completed("ovbook name-order "), {"first", "last"})
        for line in ("country", "layout", "format --country"):
            with self.subTest(line=line):
                self.assertLess({"de", "se"}, self.completed(f"ovbook {line} "))

    def test_fields_of_the_countrys_addresses(self):
        offered = self.completed("ovbook format --country de ")
        self.assertEqual(offered, {"Street", "PostalCode", "City", "CountryOrArea"})


if __name__ == "__main__":
    unittest.main()
