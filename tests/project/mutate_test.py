"""The mutator changes what matters, tells what was noticed, and holds its floor."""

import contextlib
import io
import pathlib
import sys
import unittest
from unittest import mock

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))
sys.dont_write_bytecode = True
import mutants
import mutate


def changes(source):
    return [(each.kind, each.before.strip(), each.after.strip()) for each in mutants.mutants_of(source)]


class Mutants(unittest.TestCase):
    def test_operators(self):
        self.assertEqual(
            changes("if (a == b && !c(d)) e += f;"),
            [
                ("operator", "==", "!="),
                ("operator", "&&", "||"),
                ("operator", "!", ""),
                ("operator", "+=", "-="),
            ],
        )

    def test_every_comparison(self):
        for before, after in [("<", "<="), ("<=", "<"), (">", ">="), (">=", ">"), ("!=", "==")]:
            self.assertEqual(changes(f"return a {before} b;"), [("operator", before, after)])

    def test_constants(self):
        self.assertEqual(
            changes("f(true, 41);"), [("constant", "true", "false"), ("constant", "41", "42")]
        )

    def test_texts(self):
        self.assertEqual(changes('row("Chile", "x");'), [("text", '"Chile"', '"xhile"'), ("text", '"x"', '"y"')])

    def test_what_stands_behind_an_empty_text_is_none(self):
        self.assertEqual(changes('f("", g, "a");'), [("text", '"a"', '"x"')])

    def test_names_and_other_numbers_stay(self):
        self.assertEqual(changes("a1 = 0x10 + b2_3;")[1:], [])
        self.assertEqual(changes("a = 1.5f;"), [])
        self.assertEqual(changes("a = 10'000;"), [])

    def test_templates_and_references_stay(self):
        self.assertEqual(changes("std::vector<int> f(A&& a, const B* b);"), [])

    def test_comments_and_includes_stay(self):
        self.assertEqual(changes("// a == 1\n/* b == 2 */\n#include <c3>\n#if D == 4\n#endif\n"), [])

    def test_the_wording_of_errors_stays(self):
        self.assertEqual(changes('throw Error("no " + what);'), [])

    def test_checks_of_the_compiler_stay(self):
        self.assertEqual(changes("static_assert(sizeof(int) == 4);"), [])

    def test_a_character_is_no_text(self):
        self.assertEqual(changes("f('\"'); g('\"');"), [])

    def test_the_line_is_told(self):
        [mutant] = mutants.mutants_of("a;\nb;\nif (c) d(7);\n")
        self.assertEqual(mutant.line, 3)
        self.assertEqual(mutant.apply("a;\nb;\nif (c) d(7);\n"), "a;\nb;\nif (c) d(8);\n")


class FakeTree:
    """Notices what `answers` says of each change, in their order; None does not build."""

    def __init__(self, answers):
        self.answers = iter(answers)
        self.asked = []

    def prepare(self):
        pass

    def attempt(self, tree, path, mutant):
        self.asked.append((str(path), mutant.line, mutant.before))
        return next(self.answers)


def run(answers, *options):
    """The exit status, what was printed, and what was tried."""
    fake = FakeTree(answers)
    printed = io.StringIO()
    command = ["mutate.py", "--count", str(len(answers)), *options, "build"]
    with (
        mock.patch.object(sys, "argv", command),
        mock.patch.object(mutate, "Tree", lambda folder, jobs: fake),
        mock.patch.object(mutate, "attempt", fake.attempt),
        contextlib.redirect_stdout(printed),
    ):
        status = mutate.main()
    return status, printed.getvalue(), fake.asked


class Mutate(unittest.TestCase):
    def test_what_is_noticed_makes_the_score(self):
        status, printed, _ = run([True] * 9 + [False, None, None])
        self.assertEqual(status, 0)
        self.assertIn("9 of 10 changes were noticed: 90.0 %", printed)
        self.assertEqual(printed.count("not noticed"), 1)

    def test_the_floor_holds(self):
        self.assertEqual(run([True, False])[0], 1)
        self.assertEqual(run([True, False], "--floor", "50")[0], 0)

    def test_a_run_without_a_change_is_no_success(self):
        self.assertEqual(run([None, None])[0], 1)

    def test_a_seed_draws_the_same_again(self):
        once, again, other = (run([True] * 12, "--seed", seed)[2] for seed in "778")
        self.assertEqual(once, again)
        self.assertNotEqual(once, other)

    def test_only_the_named_files(self):
        for path, _, _ in run([True] * 12, "--file", "src/address")[2]:
            self.assertTrue(path.startswith("src/address/"), path)

    def test_equivalents_are_not_drawn(self):
        listed = mutate.read_equivalents(SCRIPTS / "equivalent_mutants.txt")
        self.assertGreater(len(listed), 2)
        root = SCRIPTS.parent
        for line in listed:
            path = pathlib.Path(line.split(":")[0])
            source = (root / path).read_text("utf-8")
            known = {mutate.key(path, source, each) for each in mutants.mutants_of(source)}
            with self.subTest(line=line):
                self.assertIn(line, known)
                drawn = mutate.drawn({path: source}, listed, 9999, 1)
                self.assertNotIn(line, {mutate.key(path, source, each) for _, each in drawn})

    def test_the_others_stay_when_one_is_listed(self):
        path, source = pathlib.Path("a.cpp"), "\n".join(f"f({i});" for i in range(100))
        first, *others = mutate.drawn({path: source}, set(), 30, 1)
        listed = {mutate.key(path, source, first[1])}
        self.assertEqual(mutate.drawn({path: source}, listed, 30, 1), others)


if __name__ == "__main__":
    unittest.main()
