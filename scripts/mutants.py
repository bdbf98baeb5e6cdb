"""Places in C++ sources where one small change should make a test fail."""

import dataclasses
import re

OPERATORS = {
    " == ": " != ",
    " != ": " == ",
    " < ": " <= ",
    " <= ": " < ",
    " > ": " >= ",
    " >= ": " > ",
    " && ": " || ",
    " || ": " && ",
    " + ": " - ",
    " - ": " + ",
    " += ": " -= ",
    " -= ": " += ",
}
OPERATOR = re.compile(" (?:==|!=|<=|>=|&&|\\|\\||\\+=|-=|[<>+-]) ")
NEGATION = re.compile(r"(?<![\w!])!(?=[\w(])")
CONSTANT = re.compile(r"(?<![\w.'])(?:true|false|\d+)(?![\w.'])")
TEXT = re.compile(r'"(?:[^"\\\n]|\\.)*"')
SKIPPED = re.compile(r'//[^\n]*|/\*.*?\*/|^#[^\n]*|R"\((?:.*?)\)"|' + r"'(?:[^'\\\n]|\\.)'", re.S | re.M)
# Statements whose change nobody is promised to notice: checks at compile time, how much room is
# kept ahead, the exact bound on memory, hints to the processor, and the wording of errors.
UNPROMISED = re.compile(
    r"\b(?:static_assert|throw|operator|template|__builtin_prefetch|bit_ceil)\b"
    r"|\b(?:reserve|refuse|charge)\("
)


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change of a source: `before` at `position` becomes `after`."""

    kind: str
    position: int
    line: int
    before: str
    after: str

    def apply(self, source):
        end = self.position + len(self.before)
        assert source[self.position : end] == self.before
        return source[: self.position] + self.after + source[end:]


def blanked(source, pattern):
    """The source with what matches replaced by spaces, so that positions stay."""
    return pattern.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), source)


def statement_at(source, position):
    """The text between the ends of statements or blocks around a position."""
    begin = max(source.rfind(end, 0, position) for end in ";{}") + 1
    ends = [source.find(end, position) for end in ";{}"]
    return source[begin : min((end for end in ends if end >= 0), default=len(source))]


def changed_text(text):
    """A literal of the same length with another first letter; None when it starts with none."""
    if text[1] in '"\\':
        return None
    return text[0] + ("x" if text[1] != "x" else "y") + text[2:]


def mutants_of(source):
    """Every mutant of a source, in the order of their positions."""
    visible = blanked(source, SKIPPED)
    code = blanked(visible, TEXT)
    found = []

    def add(kind, position, before, after):
        if after is None or UNPROMISED.search(statement_at(code, position)):
            return
        line = source.count("\n", 0, position) + 1
        found.append(Mutant(kind, position, line, before, after))

    for match in OPERATOR.finditer(code):
        add("operator", match.start(), match[0], OPERATORS[match[0]])
    for match in NEGATION.finditer(code):
        add("operator", match.start(), "!", "")
    for match in CONSTANT.finditer(code):
        words = {"true": "false", "false": "true"}
        after = words.get(match[0]) or str(int(match[0], 10) + 1)
        add("constant", match.start(), match[0], after)
    for match in TEXT.finditer(visible):
        add("text", match.start(), match[0], changed_text(match[0]))
    return sorted(found, key=lambda mutant: mutant.position)
