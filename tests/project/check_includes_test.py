"""The include check catches what it is there to catch."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).parents[2] / "scripts" / "check_includes.py"
UMBRELLA = "include/OVAddressBookSDK/OVAddressBookSDK.h"


def problems_of(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        done = subprocess.run(
            [sys.executable, CHECK, folder], capture_output=True, text=True, check=False
        )
        assert done.stderr == "", done.stderr
        assert done.returncode == (1 if done.stdout else 0)
        return done.stdout.splitlines()


class CheckIncludes(unittest.TestCase):
    def assert_caught(self, name, text, words):
        problems = problems_of({name: text})
        self.assertEqual(len(problems), 1, problems)
        self.assertTrue(problems[0].startswith(f"{name}:"), problems[0])
        self.assertIn(words, problems[0])

    def assert_clean(self, files):
        self.assertEqual(problems_of(files), [])

    def test_inner_header_from_above(self):
        self.assert_caught("src/value/a.cpp", '#include "book/b.h"\n', "lies above")
        self.assert_caught("src/platform/services/a.h", '#include "value/b.h"\n', "lies above")

    def test_public_header_from_above(self):
        self.assert_caught(
            "src/contact/phone.cpp", "#include <OVAddressBookSDK/address_book.h>\n", "lies above"
        )
        self.assert_caught(
            "include/OVAddressBookSDK/value.h", "#include <OVAddressBookSDK/person.h>\n", "lies above"
        )

    def test_siblings_do_not_know_each_other(self):
        self.assert_caught("src/contact/a.cpp", '#include "address/b.h"\n', "lies above")
        self.assert_caught(
            "src/address/a.cpp", "#include <OVAddressBookSDK/phone.h>\n", "lies above"
        )

    def test_the_line_is_named(self):
        [problem] = problems_of({"src/value/a.cpp": '#include "value/a.h"\n\n#include "book/b.h"\n'})
        self.assertTrue(problem.startswith("src/value/a.cpp:3: "), problem)

    def test_spacing_does_not_hide_an_include(self):
        self.assert_caught("src/value/a.cpp", '  #  include  "book/b.h"\n', "lies above")

    def test_third_party_header_above_the_platform(self):
        self.assert_caught("src/book/a.cpp", "#include <sqlite3.h>\n", "belongs below")
        self.assert_caught("src/address/a.cpp", "#include <unicode/locid.h>\n", "belongs below")
        self.assert_caught(
            "include/OVAddressBookSDK/locale.h", "#include <unicode/locid.h>\n", "belongs below"
        )

    def test_condition_above_the_platform(self):
        self.assert_caught("src/value/a.cpp", "#ifdef __linux__\n#endif\n", "condition")
        self.assert_caught("src/book/a.h", "#if 1\n#endif\n", "condition")

    def test_header_without_a_folder(self):
        self.assert_caught("include/OVAddressBookSDK/news.h", "#pragma once\n", "does not know")

    def test_inner_header_in_a_public_one(self):
        self.assert_caught(
            "include/OVAddressBookSDK/value.h", '#include "value/a.h"\n', "not a public header"
        )

    def test_library_uses_the_umbrella(self):
        self.assert_caught(
            "src/book/a.cpp", "#include <OVAddressBookSDK/OVAddressBookSDK.h>\n", "do not include"
        )

    def test_umbrella_misses_a_header(self):
        [problem] = problems_of(
            {UMBRELLA: "#pragma once\n", "include/OVAddressBookSDK/text.h": "#pragma once\n"}
        )
        self.assertIn("<OVAddressBookSDK/text.h> is missing", problem)

    def test_hosts_tools_and_examples_see_public_headers_only(self):
        for name in ("hosts/vcard/src/a.cpp", "tools/ovbook/a.cpp", "examples/a.cpp"):
            self.assert_caught(name, '#include "platform/utf8.h"\n', "not a public header")
        self.assert_caught("tools/ovbook/a.cpp", '#include "../../src/a.h"\n', "not a public header")

    def test_rooms_of_the_cards_know_each_other_one_way(self):
        for name, used in (("codec", "mapping"), ("codec", "memory"), ("mapping", "memory")):
            self.assert_caught(f"hosts/card/{name}/a.cpp", f'#include "{used}/b.h"\n', "lies above")
        self.assert_caught("hosts/card/codec/a.cpp", '#include "../mapping/b.h"\n', "lies above")

    def test_the_codec_knows_no_persons(self):
        self.assert_caught(
            "hosts/card/codec/a.h", "#include <OVAddressBookSDK/person.h>\n", "knows nothing"
        )

    def test_only_books_over_cards_see_the_cards(self):
        self.assert_caught("hosts/qt/a.cpp", '#include "codec/line.h"\n', "not a public header")
        self.assert_caught("tools/ovbook/a.cpp", '#include "codec/line.h"\n', "not a public header")

    def test_what_is_allowed(self):
        self.assert_clean(
            {
                "src/platform/a.cpp": "#include <sqlite3.h>\n#ifdef __linux__\n#endif\n",
                "src/book/a.cpp": '#include <map>\n#include "contact/b.h"\n#include "book/c.h"\n'
                "#include <OVAddressBookSDK/address.h>\n",
                "include/OVAddressBookSDK/address.h": "#include <OVAddressBookSDK/text.h>\n",
                "hosts/vcard/src/a.cpp": "#include <glib.h>\n"
                '#include "b.h"\n#include <OVAddressBookSDK/OVAddressBookSDK.h>\n',
                "hosts/vcard/src/b.h": "",
                "hosts/vcard/src/c.cpp": '#include "codec/line.h"\n#include "memory/person.h"\n',
                "hosts/card/memory/a.cpp": '#include "mapping/b.h"\n#include "codec/c.h"\n'
                "#include <OVAddressBookSDK/person.h>\n",
                "hosts/card/mapping/b.h": '#include "codec/c.h"\n',
                "hosts/card/codec/c.h": '#include <memory>\n#include "d.h"\n',
                "hosts/card/codec/d.h": "",
                "examples/a.cpp": "#include <OVAddressBookSDK/OVAddressBookSDK.h>\n",
            }
        )


if __name__ == "__main__":
    unittest.main()
