"""Makes one test program of the samples in the public headers.

A sample is what a header's comment has between \\code and \\endcode. It becomes a test that runs
it and compares what it prints with what its own comments say, blanks and line breaks aside: the
comment behind a use of std::cout, or any that begins with "prints:" or "opens:".

make_program.py OUTPUT HEADER...
"""

import pathlib
import re
import sys

SAMPLE = re.compile(r"^/// \\code\n(.*?)^/// \\endcode\n", re.MULTILINE | re.DOTALL)
MAX_LINES = 8


def code_of(comment):
    return [line.removeprefix("///").removeprefix(" ") for line in comment.splitlines()]


def printed_by(lines):
    """The words that the sample says it prints."""
    said = []
    for line in lines:
        code, _, comment = line.partition("  // ")
        told = re.fullmatch(r"(?:prints|opens): (.*)", comment)
        if told:
            said.append(told[1])
        elif "std::cout" in code:
            said.append(comment)
    return " ".join(" ".join(said).split())


def samples_in(path):
    """The samples of a header as (line number, lines)."""
    text = path.read_text(encoding="utf-8")
    for match in SAMPLE.finditer(text):
        lines = code_of(match[1])
        number = text.count("\n", 0, match.start()) + 2
        if len(lines) > MAX_LINES:
            sys.exit(f"{path}:{number}: a sample has at most {MAX_LINES} lines")
        yield number, lines
    if text.count("\\code") != len(SAMPLE.findall(text)):
        sys.exit(f"{path}: a \\code that is not a whole sample")


def test_of(path, ordinal, number, lines):
    return f"""
TEST(HeaderSample, {path.stem}_{ordinal}) {{
  const Printed printed;
  [&] {{
#line {number} "{path}"
{chr(10).join(lines)}
  }}();
  EXPECT_EQ(printed.words(), {quoted(printed_by(lines))});
}}
"""


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def main(output, *headers):
    tests = [
        test_of(path, ordinal, number, lines)
        for path in sorted(map(pathlib.Path, headers))
        for ordinal, (number, lines) in enumerate(samples_in(path), 1)
    ]
    prelude = '#include "project/header_samples/prelude.h"\n'
    pathlib.Path(output).write_text(prelude + "".join(tests), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
