"""The code on the task pages is compiled and run, and prints what the pages show.

OV_BUILD_DIR names the build folder with the examples, OV_PREFIX where the library is installed,
OV_ON_A_DESKTOP a program that runs others beside the services of a desktop.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["OV_BUILD_DIR"]).resolve()
DESKTOP = os.environ.get("OV_ON_A_DESKTOP")
PREFIX = pathlib.Path(os.environ["OV_PREFIX"]).resolve()
EXAMPLES = ROOT / "examples"
PAGES = sorted(path for path in (ROOT / "docs").glob("*.md") if "```cpp" in path.read_text("utf-8"))
PIECE = re.compile(r"`examples/([\w.]+)`|^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


class Page:
    """Goes through a page as a reader does who types in what it shows."""

    def __init__(self, text, folder):
        self.folder = pathlib.Path(folder)
        self.text = text
        self.named = None  # the example that the page speaks of
        self.printed = None  # what ran last
        self.differences = []

    def follow(self):
        for name, language, content in PIECE.findall(self.text):
            if name:
                self.named = name
            else:
                getattr(self, f"take_{language}", self.take_unknown)(content)
        return self.differences

    def check(self, shown, wanted, what):
        if shown != wanted:
            self.differences.append(f"{what}: {shown!r} is not {wanted!r}")

    def take_unknown(self, content):
        self.differences.append(f"nothing checks this: {content[:50]!r}")

    def take_source(self, content, suffix):
        path = EXAMPLES / (self.named or "")
        self.check(path.suffix, suffix, "the example named last")
        self.check(content, path.read_text("utf-8") if path.is_file() else "", path.name)
        (self.folder / path.name).write_text(content, encoding="utf-8")

    def take_cpp(self, content):
        self.take_source(content, ".cpp")
        self.printed = None

    def take_objc(self, content):
        self.take_source(content, ".m")

    def take_cmake(self, content):
        (self.folder / "CMakeLists.txt").write_text(content, encoding="utf-8")

    def take_sh(self, content):
        self.printed = self.run(["sh", "-e", "-c", content])

    def take_python(self, content):
        self.printed = self.run([sys.executable, "-c", content])

    def take_text(self, content):
        if self.printed is None:
            program = str(BUILD / "examples" / pathlib.Path(self.named).stem)
            self.printed = self.run([DESKTOP, program] if self.needs_desktop() else [program])
        self.check(content, self.printed, "what is printed")

    def needs_desktop(self):
        return "OVAddressBookEDS/" in (EXAMPLES / self.named).read_text("utf-8")

    def run(self, command):
        library = next(PREFIX.rglob("libOVAddressBookSDK.so")).parent
        environment = {
            "PATH": f"{BUILD}/examples:{os.environ['PATH']}",
            "HOME": str(self.folder),
            "LC_ALL": "C.UTF-8",
            "CMAKE_PREFIX_PATH": str(PREFIX),
            "PKG_CONFIG_PATH": str(library / "pkgconfig"),
            "LD_LIBRARY_PATH": str(library),
            "CXX": "g++",
            "QT_QPA_PLATFORM": "offscreen",
            "XDG_RUNTIME_DIR": str(self.folder),
        }
        done = subprocess.run(
            command, cwd=self.folder, env=environment, capture_output=True, text=True, check=False
        )
        if done.returncode != 0:
            self.differences.append(f"{command} ends with {done.returncode}: {done.stderr[-2000:]}")
        return done.stdout


def differences(text):
    with tempfile.TemporaryDirectory() as folder:
        return Page(text, folder).follow()


class TaskPages(unittest.TestCase):
    def test_there_are_pages(self):
        self.assertGreaterEqual(len(PAGES), 7)

    def test_every_page_is_true(self):
        for path in PAGES:
            with self.subTest(page=path.name):
                self.assertEqual(differences(path.read_text("utf-8")), [])

    def test_every_example_is_on_a_page(self):
        pages = "".join(path.read_text("utf-8") for path in [*PAGES, ROOT / "README.md"])
        for path in EXAMPLES.glob("*.cpp"):
            with self.subTest(example=path.name):
                self.assertIn(f"`examples/{path.name}`", pages)


class Check(unittest.TestCase):
    """A page that is wrong is noticed."""

    def assert_noticed(self, text, words):
        self.assertIn(words, " ".join(differences(text)))

    def test_other_code(self):
        self.assert_noticed("`examples/threads.cpp`\n```cpp\nint main() {}\n```\n", "threads.cpp")

    def test_code_of_no_example(self):
        self.assert_noticed("```cpp\nint main() {}\n```\n", "example named last")

    def test_other_output(self):
        self.assert_noticed("`examples/own_class.cpp`\n```text\nnothing\n```\n", "is printed")

    def test_a_command_that_fails(self):
        self.assert_noticed("```sh\nfalse\n```\n", "ends with 1")

    def test_a_script_that_fails(self):
        self.assert_noticed("```python\nraise SystemExit(3)\n```\n", "ends with 3")

    def test_a_language_that_nothing_checks(self):
        self.assert_noticed("```java\nclass A {}\n```\n", "nothing checks this")


if __name__ == "__main__":
    unittest.main()
