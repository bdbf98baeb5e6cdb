"""What is installed beside the contacts program fits the program, and one another.

OV_OVCONTACTS names the program, OV_VERSION its version.
"""

import configparser
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "tools" / "ovcontacts"
PAGE = (ROOT / "man" / "ovcontacts.1").read_text(encoding="utf-8")
LANG = "{http://www.w3.org/XML/1998/namespace}lang"


def ovcontacts(*arguments):
    with tempfile.TemporaryDirectory() as home:
        environment = {"QT_QPA_PLATFORM": "offscreen", "HOME": home, "LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin"}
        return subprocess.run(
            [os.environ["OV_OVCONTACTS"], *arguments],
            env=environment, capture_output=True, text=True, check=True,
        ).stdout


def desktop_entry():
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read(FOLDER / "ovcontacts.desktop", encoding="utf-8")
    return parser["Desktop Entry"]


class ContactsProgram(unittest.TestCase):
    def test_page_tells_of_the_options_of_the_help(self):
        options = set(re.findall(r"^  (-\w), (--\w+)", ovcontacts("--help"), re.MULTILINE))
        told = set(re.findall(r'^\.BR (-\w) ", " (--\w+)$', PAGE.replace("\\-", "-"), re.MULTILINE))
        self.assertEqual(options - {("-h", "--help-all")}, told)

    def test_page_and_program_name_the_version(self):
        self.assertIn(f'"OVAddressBookSDK {os.environ["OV_VERSION"]}"', PAGE)
        self.assertEqual(ovcontacts("--version"), f"ovcontacts {os.environ['OV_VERSION']}\n")

    def test_page_is_well_formed(self):
        done = subprocess.run(
            ["mandoc", "-T", "lint", "-W", "warning", ROOT / "man" / "ovcontacts.1"],
            capture_output=True, text=True, check=False,
        )
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_description_says_what_the_desktop_entry_says(self):
        entry = desktop_entry()
        root = ElementTree.parse(FOLDER / "ovcontacts.metainfo.xml").getroot()
        for tag, key in (("name", "Name"), ("summary", "Comment")):
            for element in root.findall(tag):
                language = element.get(LANG)
                with self.subTest(tag=tag, language=language):
                    self.assertEqual(element.text, entry[f"{key}[{language}]" if language else key])
        self.assertEqual(root.findtext("launchable"), "ovcontacts.desktop")
        self.assertEqual(root.findtext("provides/mediatype") + ";", entry["MimeType"])

    def test_description_is_valid(self):
        if shutil.which("appstreamcli") is None:
            self.skipTest("appstreamcli is not installed")
        done = subprocess.run(
            ["appstreamcli", "validate", "--no-net", "--no-color", FOLDER / "ovcontacts.metainfo.xml"],
            capture_output=True, text=True, check=False,
        )
        self.assertNotRegex(done.stdout, r"(?m)^E: ")

    def test_desktop_entry_starts_the_program_with_its_icon(self):
        entry = desktop_entry()
        self.assertEqual(entry["Exec"].split()[0], pathlib.Path(os.environ["OV_OVCONTACTS"]).name)
        icon = ElementTree.parse(FOLDER / f"{entry['Icon']}.svg").getroot()
        self.assertEqual(icon.tag, "{http://www.w3.org/2000/svg}svg")


if __name__ == "__main__":
    unittest.main()
