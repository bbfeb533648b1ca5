"""C++ sources as far as faults need them: their tokens, what of them is code, and which are expression statements.

Relies on the format that clang-format gives: a binary operator stands between blanks, a bracket of a template does
not."""

import re
from collections import namedtuple

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      |(?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      |(?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"
               |(?:u8|[uUL])?"(?:\\.|[^"\\\n])*"|(?:u8|[uUL])?'(?:\\.|[^'\\\n])*')
      |(?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<sign><=>|<<=|>>=|\.\.\.|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>|[^\s\w])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)
Token = namedtuple("Token", "kind text start end")

FROZEN = {"static_assert", "namespace", "using"}  # as far as the next semicolon or block
HEADS = {"if", "for", "while", "switch"}
BLOCK_BEHIND = {")", "]", "else", "do", "try", "const", "noexcept", "override", "mutable"}
NO_EXPRESSION = {"return", "break", "continue", "goto", "throw", "const", "constexpr", "static", "auto", "using",
                 "typedef", "struct", "class", "enum", "union", "namespace", "template", "static_assert", "extern",
                 "if", "for", "while", "switch", "do", "try", "delete", "public", "private", "protected"}
ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
CLOSING = {"(": ")", "[": "]", "{": "}"}


class Source:
    """One file and its tokens, without comments and directives."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = [Token(match.lastgroup, match.group(), match.start(), match.end())
                       for match in TOKEN.finditer(text) if match.lastgroup not in ("comment", "directive")]
        self.frozen = frozen_tokens(self.tokens)

    def code(self):
        """The indices of the tokens that a fault may change."""
        return (i for i, token in enumerate(self.tokens) if token.kind != "text" and i not in self.frozen)

    def word(self, i):
        """The text of a token; "" outside the file."""
        return self.tokens[i].text if 0 <= i < len(self.tokens) else ""

    def is_word(self, i):
        return 0 <= i < len(self.tokens) and self.tokens[i].kind == "word"

    def is_binary(self, i):
        token = self.tokens[i]
        return (self.text[token.start - 1].isspace() and self.text[token.end].isspace()
                and self.word(i - 1) not in ("operator", "template"))

    def line(self, place):
        return self.text.count("\n", 0, place) + 1


def frozen_tokens(tokens):
    frozen, within, depth = set(), False, 0
    for i, token in enumerate(tokens):
        if not within and token.text in FROZEN:
            within, depth = True, 0
        if within:
            frozen.add(i)
            depth += (token.text in CLOSING) - (token.text in CLOSING.values())
            within = not (token.text == ";" and depth == 0 or token.text == "{" and depth == 1)
    return frozen


class Bracket:
    """An open bracket. Of a block of code: where the statement in hand starts; of the head of a statement: that it
    is one."""

    def __init__(self, is_code=False, start=0, is_head=False):
        self.is_code, self.start, self.is_head = is_code, start, is_head


def opens_block(source, i, around):
    """Whether the brace at i opens a block of statements, not a type, a namespace or an initialiser."""
    before = source.word(i - 1)
    if before in (";", "{", "}", ":"):
        return around.is_code
    return before in BLOCK_BEHIND or any(source.word(j) == "->" for j in range(i - 6, i))


def opened(source, i, around):
    if source.word(i) == "{":
        return Bracket(opens_block(source, i, around), i + 1)
    before = source.word(i - 2) if source.word(i - 1) == "constexpr" else source.word(i - 1)
    return Bracket(is_head=before in HEADS)


def statements(source):
    """First and last token of each expression statement."""
    around = [Bracket()]
    for i, token in enumerate(source.tokens):
        block = around[-1]
        if token.text in CLOSING and token.kind == "sign":
            around.append(opened(source, i, block))
        elif token.text in CLOSING.values() and token.kind == "sign" and len(around) > 1:
            closed = around.pop()
            if closed.is_head or closed.is_code:
                around[-1].start = i + 1
        elif token.text in ("else", "do") or token.text == ":" and source.word(block.start) in ("case", "default"):
            block.start = i + 1
        elif token.text == ";" and block.is_code:
            if is_expression(source.tokens[block.start:i]):
                yield block.start, i
            block.start = i + 1


def is_expression(tokens):
    """Whether the tokens before a semicolon do something and declare nothing."""
    if not tokens or tokens[0].text in NO_EXPRESSION:
        return False
    head = outside_brackets(tokens)
    acts = any(token.text in ASSIGNMENTS | {"(", "++", "--"} for token in head)
    return acts and not any(declares(*three) for three in zip(head, head[1:], [None, *head]))


def outside_brackets(tokens):
    """The tokens that stand in no bracket, the opening brackets included, up to an assignment."""
    head, depth = [], 0
    for token in tokens:
        depth -= token.text in CLOSING.values() and token.kind == "sign"
        if depth == 0:
            head.append(token)
            if token.text in ASSIGNMENTS:
                return head
        depth += token.text in CLOSING and token.kind == "sign"
    return head


def declares(token, following, before):
    """`Type name`, `Type<Part> name`, `Type& name`."""
    if following.kind != "word":
        return False
    return token.kind == "word" or token.text in (">", "&", "*", "&&") and before is not None
