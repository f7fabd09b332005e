"""C++ source text as tokens, with the function in which each stands. Knows text only."""

import bisect
import re
from dataclasses import dataclass

_TOKEN = re.compile(
    r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<preprocessor>^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*)
  | (?P<string>(?:u8|u|U|L)?R"(?P<mark>[^()\\\s]{0,16})\(.*?\)(?P=mark)"(?:_\w+)?
      |(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*"(?:_\w+)?)
  | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+'(?:_\w+)?)
  | (?P<number>\.?\d(?:[eEpP][+-]|'(?=\w)|[\w.])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<space>\s+)
  | (?P<op><<=|>>=|<=>|\.\.\.|->\*|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

_OPENS = {"(": ")", "[": "]", "{": "}"}
_CONTROL = {"if", "for", "while", "switch", "catch"}


@dataclass
class Token:
    """One token that isn't space, comment or preprocessor line."""

    kind: str  # string, char, number, name, op
    text: str
    start: int
    end: int
    function: int = -1  # index in Source.functions; -1: in none
    in_body: bool = False  # behind the brace of its function
    partner: int = -1  # index of the bracket that belongs to this one


@dataclass
class Function:
    """From the line in which its head begins to the line of its closing brace, 1-based."""

    first_line: int
    last_line: int


class Source:
    """The tokens of one file."""

    def __init__(self, text: str):
        self.text = text
        self._line_starts = [0] + [m.end() for m in re.finditer("\n", text)]
        self.tokens = [
            Token(m.lastgroup if m.lastgroup != "mark" else "string", m.group(), m.start(), m.end())
            for m in _TOKEN.finditer(text)
            if m.lastgroup not in ("comment", "preprocessor", "space")
        ]
        self.functions: list[Function] = []
        self._pair()
        self._find_functions()

    def line_of(self, position: int) -> int:
        return bisect.bisect_right(self._line_starts, position)

    def line_text(self, line: int) -> str:
        return self.text.split("\n")[line - 1]

    def is_spaced(self, at: int) -> bool:
        """True for an operator with space on both sides: by the formatter's rules a binary one,
        never a bracket of a template, a pointer or a reference."""
        token = self.tokens[at]
        before, behind = self.text[token.start - 1 : token.start], self.text[token.end : token.end + 1]
        return before.isspace() and behind.isspace()

    def _pair(self) -> None:
        open_ones: list[int] = []
        for at, token in enumerate(self.tokens):
            if token.kind != "op":
                continue
            if token.text in _OPENS:
                open_ones.append(at)
            elif token.text in _OPENS.values() and open_ones:
                other = open_ones.pop()
                token.partner, self.tokens[other].partner = other, at

    def _find_functions(self) -> None:
        at = 0
        head = 0  # where the present declaration begins
        while at < len(self.tokens):
            token = self.tokens[at]
            if token.text == "{" and token.partner > at:
                if self._opens_function(head, at):
                    self._mark_function(head, at)
                    at = head = token.partner + 1
                    continue
                if self._opens_scope(head, at):
                    head = at + 1
                else:  # the braces of a value
                    at = token.partner
            elif token.text == "(" and token.partner > at:
                at = token.partner
            elif token.text in (";", "}"):
                head = at + 1
            at += 1

    def _head(self, head: int, brace: int) -> list[str]:
        return [token.text for token in self.tokens[head:brace]]

    def _opens_scope(self, head: int, brace: int) -> bool:
        words = self._head(head, brace)
        return "=" not in words and any(
            word in words for word in ("namespace", "class", "struct", "union", "extern")
        )

    def _opens_function(self, head: int, brace: int) -> bool:
        words = self._head(head, brace)
        if not words or "(" not in words or words[0] in ("namespace", "enum"):
            return False
        depth = 0
        for at, word in enumerate(words):
            if word == "(":
                depth += 1
            elif word == ")":
                depth -= 1
            elif depth == 0 and word == "=" and words[max(at - 1, 0)] != "operator":
                return False
        return self._is_behind_head(brace)

    def _is_behind_head(self, brace: int) -> bool:
        """What stands before the brace of a function: `)`, a qualifier, a type behind `->`, or the
        last initialiser of a constructor, but not the name of a member that is initialised."""
        before = self.tokens[brace - 1]
        if before.text in (")", "}", "const", "noexcept", "override", "final", "mutable", "try"):
            return True
        at = brace - 1
        of_a_type = ("::", "*", "&", "<", ">")
        while at > 0 and (self.tokens[at].kind == "name" or self.tokens[at].text in of_a_type):
            at -= 1
        return self.tokens[at].text == "->"

    def _mark_function(self, head: int, brace: int) -> None:
        last = self.tokens[brace].partner
        self.functions.append(
            Function(self.line_of(self.tokens[head].start), self.line_of(self.tokens[last].start))
        )
        for at in range(head, last + 1):
            self.tokens[at].function = len(self.functions) - 1
            self.tokens[at].in_body = at > brace
