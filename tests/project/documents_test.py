"""What the documents show is true: code, commands, outputs, packages, links.

OV_BUILD_DIR names the build folder whose programs the documents' commands run.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["OV_BUILD_DIR"]).resolve()


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


README = read("README.md")
DOCUMENTS = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md")])

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def blocks(text):
    """The fenced blocks of a document as (language, content)."""
    return FENCE.findall(text)


def prose(text):
    return FENCE.sub("", text)


def run(command, folder):
    """The output of a shell command that finds this build's programs and a home of its own."""
    home = pathlib.Path(folder, "home")
    home.mkdir(exist_ok=True)
    environment = {
        "PATH": f"{BUILD}/tools/ovbook:{BUILD}/examples:{os.environ['PATH']}",
        "HOME": str(home),
        "XDG_CONFIG_HOME": str(home / ".config"),
        "LC_ALL": "C.UTF-8",
    }
    done = subprocess.run(
        command, shell=True, cwd=folder, env=environment, capture_output=True, text=True, check=False
    )
    return done.stdout + done.stderr


def sessions(block):
    """The commands of a console block, each with the output shown below it."""
    shown = []
    for line in block.splitlines():
        if line.startswith("$ "):
            shown.append((line[2:], []))
        else:
            shown[-1][1].append(line)
    return shown


def matches(shown, printed):
    """Whether the lines are the same; a shown line "..." means any number of lines."""
    if not shown:
        return not printed
    if shown[0] == "...":
        return any(matches(shown[1:], printed[i:]) for i in range(len(printed) + 1))
    return bool(printed) and shown[0] == printed[0] and matches(shown[1:], printed[1:])


class Documents(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "examples").symlink_to(ROOT / "examples")

    def test_quick_start_is_the_example(self):
        code = [content for language, content in blocks(README) if language == "cpp"]
        self.assertEqual(code[0], read("examples/quick_start.cpp"))

    def test_quick_start_prints_what_the_readme_shows(self):
        [shown] = [content for language, content in blocks(README) if language == "text"]
        self.assertEqual(run("quick_start", self.folder), shown)

    def test_commands_print_what_the_documents_show(self):
        for document in DOCUMENTS:
            for language, content in blocks(document.read_text(encoding="utf-8")):
                if language != "console":
                    continue
                for command, shown in sessions(content):
                    printed = run(command, self.folder).splitlines()
                    with self.subTest(document=document.name, command=command):
                        self.assertTrue(matches(shown, printed), "\n".join(printed))

    def test_there_are_commands_to_run(self):
        self.assertIn("console", [language for language, _ in blocks(README)])

    def test_first_commands_are_the_two(self):
        language, content = blocks(README)[0]
        self.assertEqual(language, "sh")
        self.assertEqual(
            [line.split("#")[0].split() for line in content.splitlines()],
            [["make", "demo"], ["make", "check"]],
        )

    def test_every_make_target_exists(self):
        makefile = read("Makefile")
        targets = set(re.findall(r"^([a-z-]+):", makefile, re.MULTILINE))
        for document in DOCUMENTS:
            named = re.findall(r"^make ([a-z-]+)|`make ([a-z-]+)", document.read_text("utf-8"), re.M)
            with self.subTest(document=document.name):
                self.assertLessEqual({first or second for first, second in named}, targets)

    def test_every_package_has_its_reason(self):
        setup = read("scripts/setup")
        lists = re.findall(r'_packages="\n(.*?)"', setup, re.DOTALL)
        installed = {package for packages in lists for package in packages.split()}
        rows = [row for row in read("docs/dependencies.md").splitlines() if row.startswith("| `")]
        explained = {name for row in rows for name in re.findall("`([^`]+)`", row.split("|")[1])}
        self.assertEqual(explained, installed)
        self.assertTrue(all(row.split("|")[2].strip() for row in rows))

    def test_every_promise_has_its_test(self):
        rows = [row for row in read("docs/promises.md").splitlines() if row.startswith("| ")][1:]
        named = {name for row in rows for name in re.findall("`([^`]+)`", row.split("|")[2])}
        sources = [path.read_text(encoding="utf-8") for path in (ROOT / "tests").rglob("*_test.cpp")]
        tests = re.findall(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", "\n".join(sources), re.MULTILINE)
        known = {".".join(test) for test in tests} | {"project.abi"}
        self.assertGreater(len(rows), 15)
        self.assertEqual(named - known, set())

    def test_every_header_is_in_the_guide(self):
        guide = README.split("## Guide to the headers")[1].split("\n## ")[0]
        rows = [row for row in guide.splitlines() if row.startswith("| `")]
        named = [name for row in rows for name in re.findall(r"`([\w/]+\.h)`", row.split("|")[1])]
        folder = ROOT / "include" / "OVAddressBookSDK"
        headers = {path.name for path in folder.glob("*.h")} - {"OVAddressBookSDK.h"}
        hosts = {name for name in named if "/" in name}
        self.assertEqual(sorted(set(named) - hosts), sorted(headers))
        self.assertEqual(len(named), len(set(named)))
        for name in hosts:
            self.assertTrue(list((ROOT / "hosts").glob(f"*/include/{name}")), name)

    def test_the_shown_block_is_a_stored_one(self):
        """Golden blocks are what the library writes and reads."""
        text = read("docs/archive-format.md")
        rows = re.findall(r"^    [0-9a-f]0  ((?:[0-9a-f]{2} )+) ", text, re.MULTILINE)
        stored = ROOT / "tests" / "golden" / "1.0" / "one_label.plist"
        self.assertEqual(bytes.fromhex("".join(rows)), stored.read_bytes())

    def test_every_link_leads_somewhere(self):
        for document in DOCUMENTS:
            text = re.sub("^    .*", "", prose(document.read_text("utf-8")), flags=re.MULTILINE)
            links = re.findall(r"\]\(([^)#]+)[^)]*\)", text)
            for link in links:
                if "://" not in link:
                    with self.subTest(document=document.name, link=link):
                        self.assertTrue((document.parent / link).exists())

    def test_every_path_exists(self):
        """`src/book` and the like are files or folders of this project."""
        top = "include|src|hosts|tools|examples|tests|docs|scripts|cmake|bench|fuzz|abi|debian|man|completions"
        for document in DOCUMENTS:
            text = prose(document.read_text(encoding="utf-8"))
            for path in re.findall(rf"`((?:{top})/[\w./-]*)`", text):
                with self.subTest(document=document.name, path=path):
                    self.assertTrue((ROOT / path).exists())


if __name__ == "__main__":
    unittest.main()
