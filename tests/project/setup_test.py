"""The setup script installs what is missing, and only that."""

import pathlib
import subprocess
import tempfile
import unittest

SETUP = pathlib.Path(__file__).parents[2] / "scripts" / "setup"


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.log = self.folder / "log"
        # The script sees these programs and no other.
        self.program("apt-get", f'echo "apt-get $*" >> "{self.log}"')
        self.program("env", 'while [ "${1#*=}" != "$1" ]; do shift; done; exec "$@"')
        self.program("sudo", f'echo sudo >> "{self.log}"; exec "$@"')
        self.program("id", "echo 0")

    def program(self, name, body):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{body}\n", encoding="utf-8")
        path.chmod(0o755)

    def missing(self, *packages):
        cases = "".join(f"*' {package}') exit 1 ;; " for package in packages)
        self.program("dpkg-query", f'case "$*" in {cases}*) echo installed ;; esac')

    def run_setup(self, *arguments):
        return subprocess.run(
            ["/bin/sh", SETUP, *arguments],
            env={"PATH": str(self.folder)},
            capture_output=True,
            text=True,
            check=False,
        )

    def calls(self):
        return self.log.read_text(encoding="utf-8").splitlines() if self.log.exists() else []

    def test_nothing_to_do_when_all_is_there(self):
        self.missing()
        done = self.run_setup()
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual(self.calls(), [])

    def test_only_what_is_missing_is_installed(self):
        self.missing("ccache", "python3")
        self.assertEqual(self.run_setup().returncode, 0)
        update, install = self.calls()
        self.assertEqual(update.split()[-1], "update")
        self.assertEqual(install.split("install ")[1], "ccache python3")

    def test_a_build_needs_no_test_packages(self):
        self.missing("python3")
        self.assertEqual(self.run_setup("build").returncode, 0)
        self.assertEqual(self.calls(), [])

    def test_other_users_go_through_sudo(self):
        self.program("id", "echo 1000")
        self.missing("ccache")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.calls()[0], "sudo")
        self.assertTrue(self.calls()[-1].endswith("install ccache"), self.calls())

    def test_without_root_and_sudo_it_says_what_is_missing(self):
        self.program("id", "echo 1000")
        (self.folder / "sudo").unlink()
        self.missing("ccache")
        done = self.run_setup()
        self.assertEqual(done.returncode, 1)
        self.assertIn("needs root or sudo to install: ccache", done.stderr)

    def test_a_failed_installation_fails(self):
        self.program("apt-get", "exit 100")
        self.missing("ccache")
        self.assertNotEqual(self.run_setup().returncode, 0)

    def test_an_unknown_set_is_refused(self):
        self.missing()
        self.assertEqual(self.run_setup("everything").returncode, 2)


if __name__ == "__main__":
    unittest.main()
