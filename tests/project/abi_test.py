"""The comparison of binary interfaces names what changed, seen on small libraries."""

import pathlib
import subprocess
import tempfile
import unittest

ABI = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "abi.py"

HEADER = """
#pragma once

template <class T>
struct Shared {
  T* object;
};
template <class T>
using OVRef = Shared<T>;

struct Inner;

class __attribute__((visibility("default"))) Book {
 public:
  virtual ~Book();
  OVRef<int> pages() const;
  OVRef<double> price() const;
  virtual void open();

 private:
  int count_ = 0;
  Inner* inner_ = nullptr;
};
"""

INNER = """
struct Inner {
  int depth = 0;
};
"""

SOURCE = """
#include "book.h"
#include "inner.h"

Book::~Book() { delete inner_; }
OVRef<int> Book::pages() const { return {new int(count_)}; }
OVRef<double> Book::price() const { return {}; }
void Book::open() { inner_ = new Inner; }
"""


class Abi(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.baseline = self.folder / "stored" / "book.abi.gz"

    def library(self, header=HEADER, source=SOURCE, inner=INNER, debug="-g"):
        headers = self.folder / "include"
        headers.mkdir(exist_ok=True)
        (headers / "book.h").write_text(header, encoding="utf-8")
        (self.folder / "inner.h").write_text(inner, encoding="utf-8")
        (self.folder / "book.cpp").write_text(source, encoding="utf-8")
        library = self.folder / "libbook.so"
        command = ["clang++-14", "-std=c++20", debug, "-fstandalone-debug", "-shared", "-fPIC"]
        command += ["-fvisibility=hidden", "-Iinclude", "book.cpp", "-o", library]
        subprocess.run(command, cwd=self.folder, check=True)
        return library

    def run_abi(self, action, library):
        command = [ABI, action, library]
        command += ["--headers", self.folder / "include", "--baseline", self.baseline]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def changes(self, header=HEADER, source=SOURCE):
        """What is said about a library that took the place of the stored one."""
        self.assertEqual(self.run_abi("update", self.library()).returncode, 0)
        done = self.run_abi("compare", self.library(header, source))
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn("make abi-baseline", done.stderr)
        return done.stdout

    def test_an_unchanged_library_passes(self):
        self.run_abi("update", self.library())
        done = self.run_abi("compare", self.library())
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)

    def test_what_lies_behind_the_interface_may_change(self):
        self.run_abi("update", self.library())
        inner = INNER.replace("int depth", "long width = 1;\n  int depth")
        self.assertEqual(self.run_abi("compare", self.library(inner=inner)).returncode, 0)

    def test_the_stored_interface_is_the_same_each_time(self):
        self.run_abi("update", self.library())
        first = self.baseline.read_bytes()
        self.run_abi("update", self.library())
        self.assertEqual(self.baseline.read_bytes(), first)

    def test_a_new_function_is_named(self):
        header = HEADER.replace("virtual void open();", "virtual void open();\n  void shut();")
        said = self.changes(header, SOURCE + "void Book::shut() {}\n")
        self.assertIn("1 Added function", said)
        self.assertIn("void Book::shut()", said)

    def test_a_lost_function_is_named(self):
        header = HEADER.replace("OVRef<double> price() const;", "")
        said = self.changes(header, SOURCE.replace("OVRef<double> Book::price()", "// "))
        self.assertIn("1 Removed function", said)
        self.assertIn("Book::price()", said)

    def test_a_new_virtual_function_is_named(self):
        header = HEADER.replace("virtual void open", "virtual void shut();\n  virtual void open")
        said = self.changes(header, SOURCE + "void Book::shut() {}\n")
        self.assertIn("Book::shut()", said)
        self.assertIn("vtable", said)

    def test_a_new_field_is_named(self):
        said = self.changes(HEADER.replace("int count_", "double worth_ = 0;\n  int count_"))
        self.assertIn("1 data member insertion", said)
        self.assertIn("double worth_", said)

    def test_a_lost_field_is_named(self):
        header = HEADER.replace("int count_ = 0;", "")
        said = self.changes(header, SOURCE.replace("(count_)", "(0)"))
        self.assertIn("1 data member deletion", said)
        self.assertIn("int count_", said)

    def test_another_type_behind_an_alias_is_named(self):
        header = HEADER.replace("OVRef<double>", "OVRef<long>")
        said = self.changes(header, SOURCE.replace("OVRef<double>", "OVRef<long>"))
        self.assertIn("Shared<long", said)

    def test_without_debug_information_nothing_is_stored(self):
        done = self.run_abi("update", self.library(debug="-g0"))
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("no debug information", done.stderr)
        self.assertFalse(self.baseline.exists())


if __name__ == "__main__":
    unittest.main()
