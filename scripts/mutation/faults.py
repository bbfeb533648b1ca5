"""The faults that may be put into the sources, and the choice among them."""

import random
import re
from dataclasses import asdict, dataclass

from mutation.sources import Source, statements

COMPARISONS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"]}
CONNECTIVES = {"&&": "||", "||": "&&"}
QUANTIFIERS = ["any_of", "all_of", "none_of"]
FLAGS = {"true": "false", "false": "true"}
STEPS = {"+ 1": ["+ 0", "+ 2"], "- 1": ["- 0"]}
BUTTONS = {"Yes": "No", "No": "Yes"}
MOST_LINES = 4  # of a statement that is dropped
NAMESPACE_OF_CODES = re.compile(r"^namespace (\w+) \{.*\n((?:(?!namespace|\}).*\n)*)\}", re.MULTILINE)
CODE = re.compile(r"^inline constexpr std::int32_t (k\w+) = ", re.MULTILINE)
FILES_OF_CODES = ["src/common/RadioCodes.h", "src/common/modProjectGlobals.h"]


@dataclass(frozen=True)
class Fault:
    file: str
    line: int
    column: int
    kind: str
    before: str
    after: str
    text: str  # of the line as it stands
    start: int  # in the file

    def record(self):
        return asdict(self)

    def put_into(self, text):
        return text[:self.start] + self.after + text[self.start + len(self.before):]

    def __str__(self):
        return f"{self.file}:{self.line}:{self.column}: {self.kind}: `{short(self.before)}` -> `{short(self.after)}`"


def short(code):
    """Code of any length on one line."""
    code = " ".join(code.split())
    return code if len(code) <= 80 else code[:77] + "..."


# Each kind is a routine that tells places, by their first and last token, and what may stand there.


def comparisons(source, _):
    for i in source.code():
        if source.word(i) in COMPARISONS and source.is_binary(i):
            for other in COMPARISONS[source.word(i)]:
                yield i, i, other


def connectives(source, _):
    for i in source.code():
        word = source.word(i)
        if word in CONNECTIVES and source.is_binary(i):
            yield i, i, CONNECTIVES[word]
        elif word == "!":
            yield i, i, ""
        elif word in QUANTIFIERS:
            for other in QUANTIFIERS:
                if other != word:
                    yield i, i, other


def exchanged_codes(source, codes):
    """`Namespace::kCode`, and of the codes without namespace kOn and kOff; not where they are defined."""
    for i in source.code():
        if source.word(i + 1) == "::" and source.word(i) in codes:
            for other in neighbours(codes[source.word(i)], source.word(i + 2)):
                yield i + 2, i + 2, other
        elif source.word(i) in codes[""] and source.word(i - 1) != "::" and not source.is_word(i - 1):
            for other in neighbours(codes[""], source.word(i)):
                yield i, i, other


def neighbours(names, name):
    if name not in names:
        return []
    at = names.index(name)
    return names[max(at - 1, 0):at] + names[at + 1:at + 2]


def flags(source, _):
    for i in source.code():
        if source.word(i) in FLAGS:
            yield i, i, FLAGS[source.word(i)]


def is_step(source, i):
    return f"{source.word(i)} {source.word(i + 1)}" in STEPS and source.is_binary(i)


def steps(source, _):
    for i in source.code():
        if is_step(source, i):
            for other in STEPS[f"{source.word(i)} {source.word(i + 1)}"]:
                yield i, i + 1, other


def numbers(source, _):
    """Constants in tables, bounds and arguments; not the 0 of a pure virtual routine."""
    for i in source.code():
        pure = source.word(i) == "0" and source.word(i - 1) == "=" and source.word(i - 2) in (")", "const", "noexcept")
        if re.fullmatch(r"\d{1,3}", source.word(i)) and not pure and not is_step(source, i - 1):
            yield i, i, str(int(source.word(i)) + 1)


def answers(source, _):
    for i in source.code():
        if source.word(i) == "Button" and source.word(i + 1) == "::" and source.word(i + 2) in BUTTONS:
            other = BUTTONS[source.word(i + 2)]
            yield i + 2, i + 2, other
            if source.word(i - 1) in ("==", "!="):
                yield i - 1, i + 2, f"{COMPARISONS[source.word(i - 1)][0]} Button::{other}"


def dropped_statements(source, _):
    for first, last in statements(source):
        begin, end = source.tokens[first].start, source.tokens[last].end
        if source.text.count("\n", begin, end) < MOST_LINES:
            yield first, last, "{}"


KINDS = {"comparison": comparisons, "connective": connectives, "code": exchanged_codes, "flag": flags, "step": steps,
         "number": numbers, "answer": answers, "dropped statement": dropped_statements}


def faults_of(source, codes):
    lines = source.text.splitlines()
    for kind, places in KINDS.items():
        for first, last, after in places(source, codes):
            start, end = source.tokens[first].start, source.tokens[last].end
            line = source.line(start)
            column = start - (source.text.rfind("\n", 0, start) + 1) + 1
            yield Fault(source.path, line, column, kind, source.text[start:end], after, lines[line - 1], start)


def named_codes(tree):
    """The codes by their namespaces, in their order; kOff and kOn have none."""
    codes = {"": ["kOff", "kOn"]}
    for file in FILES_OF_CODES:
        for namespace, body in NAMESPACE_OF_CODES.findall((tree / file).read_text()):
            codes[namespace] = CODE.findall(body)
    return codes


def all_faults(tree, files):
    """All that there may be in those of the files that are sources of the tier."""
    codes = named_codes(tree)
    sources = sorted(file for file in files if re.fullmatch(r"src/.*\.(cpp|h)", file))
    return [fault for file in sources for fault in faults_of(Source(file, (tree / file).read_text()), codes)]


def drawn(faults, seed):
    """The faults in a random order: first the kind, each as likely as any other, then the place; no line twice."""
    chance = random.Random(seed)
    left = {kind: [fault for fault in faults if fault.kind == kind] for kind in KINDS}
    for of_kind in left.values():
        chance.shuffle(of_kind)
    taken = set()
    while kinds := [kind for kind in KINDS if left[kind]]:
        fault = left[chance.choice(kinds)].pop()
        if (fault.file, fault.line) not in taken:
            taken.add((fault.file, fault.line))
            yield fault


def still_standing(faults, record):
    """The fault of a former run, wherever its line stands now; None when the line has changed."""
    same = [fault for fault in faults
            if all(getattr(fault, name) == record[name]
                   for name in ("file", "column", "kind", "before", "after", "text"))]
    return min(same, key=lambda fault: abs(fault.line - record["line"]), default=None)
