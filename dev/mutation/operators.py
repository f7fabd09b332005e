"""The changes that are tried on a file. Knows text only.

Each operator gives single changes of the text. Left alone: comments, preprocessor lines, assertions,
logs, declarations, names of objects, and calls that a test can't see by their meaning (reserve).
"""

from dataclasses import dataclass
from typing import Iterator

from .tokens import Source

_SWAPS = {
    "<": ("relation", "<="),
    "<=": ("relation", "<"),
    ">": ("relation", ">="),
    ">=": ("relation", ">"),
    "==": ("relation", "!="),
    "!=": ("relation", "=="),
    "&&": ("logic", "||"),
    "||": ("logic", "&&"),
    "+": ("arithmetic", "-"),
    "-": ("arithmetic", "+"),
    "*": ("arithmetic", "/"),
    "/": ("arithmetic", "*"),
    "%": ("arithmetic", "*"),
    "+=": ("arithmetic", "-="),
    "-=": ("arithmetic", "+="),
    "*=": ("arithmetic", "/="),
    "/=": ("arithmetic", "*="),
    "|": ("bits", "&"),
    "&": ("bits", "|"),
    "|=": ("bits", "&="),
    "&=": ("bits", "|="),
}
_STEPS = {"++": "--", "--": "++"}
_TRUTH = {"true": "false", "false": "true"}

# Calls whose absence or whose arguments nothing can tell apart, or that are no behaviour.
_SILENT = {
    "Q_ASSERT", "Q_ASSERT_X", "Q_UNUSED", "Q_UNREACHABLE", "assert", "static_assert",
    "qDebug", "qInfo", "qWarning", "qCritical", "qFatal", "qCDebug", "qCInfo", "qCWarning",
    "reserve", "squeeze", "shrink_to_fit", "static_cast", "setObjectName",
}  # fmt: skip
_SYMMETRIC = {"min", "max", "qMin", "qMax", "connect", "qMakePair", "swap"}
_NO_STATEMENT = {
    "return", "break", "continue", "goto", "throw", "case", "default", "using", "typedef", "delete",
    "const", "constexpr", "static", "auto", "else", "do", "if", "for", "while", "switch", "try",
    "public", "private", "protected", "struct", "class", "enum", "mutable", "volatile", "template",
    "co_return", "co_yield", "co_await",
}  # fmt: skip
_EMPTY = {"{}", "std::nullopt"}  # returned, the same by the language
_ASSIGNS = {"=", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "<<=", ">>="}


@dataclass(frozen=True)
class Mutant:
    """One change: `old` at [start, end) becomes `new`."""

    operator: str
    start: int
    end: int
    old: str
    new: str
    line: int
    function: int  # index in Source.functions; -1: at file scope

    def apply(self, text: str) -> str:
        return text[: self.start] + self.new + text[self.end :]


def mutants_of(text: str) -> list[Mutant]:
    """All changes of a file, in the order of the text."""
    source = Source(text)
    silent = _silent_ranges(source)
    found = []
    for operator in (_swaps, _steps, _truth, _conditions, _nots, _numbers, _strings, _returns,
                     _statements, _arguments):  # fmt: skip
        for start, end, name, new, at in operator(source):
            if any(first <= at <= last for first, last in silent):
                continue
            token = source.tokens[at]
            found.append(
                Mutant(name, start, end, text[start:end], new, source.line_of(start), token.function)
            )
    return sorted(found, key=lambda mutant: (mutant.start, mutant.end, mutant.operator, mutant.new))


# What an operator gives: start, end, name, new text, index of the token that it hangs on.
_Changes = Iterator[tuple[int, int, str, str, int]]


def _silent_ranges(source: Source) -> list[tuple[int, int]]:
    ranges = []
    for at, token in enumerate(source.tokens[:-1]):
        follower = source.tokens[at + 1]
        if token.text in _SILENT and follower.text == "(":
            ranges.append((at, follower.partner))
    return ranges


def _swaps(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.text not in _SWAPS or token.kind != "op" or not token.in_body:
            continue
        if not source.is_spaced(at):
            continue
        neighbours = (source.tokens[at - 1], source.tokens[min(at + 1, len(source.tokens) - 1)])
        name, new = _SWAPS[token.text]
        if name == "arithmetic" and any(n.kind == "string" for n in neighbours):
            continue  # texts are joined, nothing else is done with them
        yield token.start, token.end, name, new, at


def _steps(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.text in _STEPS and token.in_body:
            yield token.start, token.end, "step", _STEPS[token.text], at


def _truth(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.kind == "name" and token.text in _TRUTH:
            yield token.start, token.end, "truth", _TRUTH[token.text], at


def _conditions(source: Source) -> _Changes:
    """The condition of an if or a while, behind its declaration if it has one."""
    for at, token in enumerate(source.tokens[:-1]):
        if token.text not in ("if", "while") or source.tokens[at + 1].text != "(":
            continue
        first, last = at + 2, source.tokens[at + 1].partner
        for inner in range(first, last):
            if source.tokens[inner].text == ";":
                first = inner + 1
        words = [source.tokens[i].text for i in range(first, last)]
        if not words or "=" in words or _is_turned_by_another(words):
            continue
        start, end = source.tokens[first].start, source.tokens[last].start
        yield start, end, "condition", f"!({source.text[start:end]})", at


def _is_turned_by_another(words: list[str]) -> bool:
    """A single comparison or a single `!` has the same mutant by its own operator."""
    joined = "&&" in words or "||" in words
    return not joined and (words[0] == "!" or "==" in words or "!=" in words)


def _nots(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.text == "!" and token.in_body:
            yield token.start, token.end, "not", "", at


def _numbers(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.kind != "number" or (at > 0 and source.tokens[at - 1].text == "case"):
            continue
        for new in _other_numbers(token.text):
            yield token.start, token.end, "number", new, at


def _other_numbers(text: str) -> list[str]:
    digits = text.rstrip("uUlLzZ").replace("'", "")
    suffix = text[len(text.rstrip("uUlLzZ")) :]
    if digits.isdigit() and (digits == "0" or not digits.startswith("0")):
        value = int(digits)
        return [f"{value + 1}{suffix}"] + ([f"{value - 1}{suffix}"] if value > 0 else [])
    if digits[:2] in ("0x", "0X"):
        value = int(digits.rstrip("uUlL"), 16)
        return [f"0x{value ^ 0x80:X}{suffix}"]
    try:
        value = float(digits)
    except ValueError:
        return []  # with a unit of its own
    return [f"{value + 1.0}", f"{value / 2}"] if value != 0 else ["1.0"]


def _strings(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.kind != "string" or not token.text.startswith("u"):
            continue
        if at > 0 and source.tokens[at - 1].kind == "string":
            continue
        new = 'u"mutant"' + token.text[token.text.rindex('"') + 1 :]
        if new != token.text:
            yield token.start, token.end, "text", new, at


def _returns(source: Source) -> _Changes:
    for at, token in enumerate(source.tokens):
        if token.text != "return" or not token.in_body:
            continue
        last = _end_of_statement(source, at)
        words = source.tokens[at + 1 : last]
        is_constant = len(words) == 1 and (words[0].kind != "name" or words[0].text in
                                           ("true", "false", "nullptr"))  # fmt: skip
        value = "".join(word.text for word in words)
        if not words or is_constant or value in _EMPTY:
            continue
        yield words[0].start, words[-1].end, "return", "{}", at


def _statements(source: Source) -> _Changes:
    """Statements that are a call or an assignment are left out."""
    for at in _statement_starts(source):
        last = _end_of_statement(source, at)
        words = source.tokens[at:last]
        if last < 0 or not words or words[0].text in _NO_STATEMENT:
            continue
        if any(word.text in _SILENT for word in words[:8]) or _declares(source, at, last):
            continue
        top = _top_level(source, at, last)
        if any(source.tokens[i].text in _ASSIGNS for i in top):
            yield words[0].start, words[-1].end, "left-out assignment", "", at
        elif words[-1].text == ")" and not any(source.tokens[i].text in ("?", "<<") for i in top):
            yield words[0].start, words[-1].end, "left-out call", "", at


def _statement_starts(source: Source) -> Iterator[int]:
    for at, token in enumerate(source.tokens):
        if at == 0 or not token.in_body or token.kind not in ("name", "op"):
            continue
        before = source.tokens[at - 1]
        if before.text in (";", "{", "}", "else", "do"):
            if not _stands_in_value(source, at):
                yield at
        elif before.text == ")" and _closes_control(source, at - 1):
            yield at
        elif before.text == ":" and _ends_label(source, at - 1):
            yield at


def _stands_in_value(source: Source, at: int) -> bool:
    """True behind the brace of a value: no statement stands there."""
    before = source.tokens[at - 1]
    if before.text != "{":
        return False
    opener = source.tokens[at - 2]
    return not (opener.text in (")", "else", "do", "{", "}", ";", "const", "mutable", "override",
                                "noexcept", "]", ":") or opener.kind == "name" and
                source.tokens[at - 3].text in ("->", "::", "*", "&"))  # fmt: skip


def _closes_control(source: Source, at: int) -> bool:
    opened = source.tokens[at].partner
    return opened > 0 and source.tokens[opened - 1].text in ("if", "for", "while", "switch")


def _ends_label(source: Source, at: int) -> bool:
    for back in range(at - 1, max(at - 8, -1), -1):
        if source.tokens[back].text in ("case", "default"):
            return True
        if source.tokens[back].kind not in ("name", "number", "char") and source.tokens[back].text != "::":
            return False
    return False


def _end_of_statement(source: Source, at: int) -> int:
    """Index of the semicolon; -1 if a bracket closes before one comes."""
    while at < len(source.tokens):
        token = source.tokens[at]
        if token.text == ";":
            return at
        if token.text in ("(", "[", "{"):
            at = token.partner
            if at < 0:
                return -1
        elif token.text in (")", "]", "}"):
            return -1
        at += 1
    return -1


def _top_level(source: Source, first: int, last: int) -> list[int]:
    """Indices of the tokens that stand in no bracket."""
    top, at = [], first
    while at < last:
        top.append(at)
        token = source.tokens[at]
        at = token.partner if token.text in ("(", "[", "{") and token.partner > at else at
        at += 1
    return top


def _declares(source: Source, first: int, last: int) -> bool:
    """`Type name...`: two names in a row, or a name behind the end of a type, before any bracket."""
    previous = source.tokens[first]
    for at in range(first + 1, last):
        token = source.tokens[at]
        if token.text in ("(", "[", "{") or token.text in _ASSIGNS:
            return False
        if token.kind == "name" and (
            previous.kind == "name"
            and previous.text != "emit"
            or previous.text in (">", "*", "&", "&&")
            and at > first + 1
        ):
            return True
        previous = token
    return False


def _arguments(source: Source) -> _Changes:
    """Two arguments change places."""
    for at, token in enumerate(source.tokens):
        if token.text != "(" or not token.in_body or token.partner < 0 or at == 0:
            continue
        name = source.tokens[at - 1]
        if name.kind != "name" or name.text in _SYMMETRIC | _SILENT | _NO_STATEMENT:
            continue
        top = _top_level(source, at + 1, token.partner)
        commas = [i for i in top if source.tokens[i].text == ","]
        if len(commas) != 1 or any(source.tokens[i].text in ("<", ">") for i in top):
            continue
        first = source.text[source.tokens[at + 1].start : source.tokens[commas[0] - 1].end]
        second = source.text[source.tokens[commas[0] + 1].start : source.tokens[token.partner - 1].end]
        if first == second or "[" in first[:1] + second[:1] or _declared_there(first, second):
            continue
        start, end = source.tokens[at + 1].start, source.tokens[token.partner - 1].end
        yield start, end, "arguments", f"{second}, {first}", at


def _declared_there(first: str, second: str) -> bool:
    """The parameters of a lambda or of a function that is declared."""
    return any(part.startswith(("const ", "int ", "bool ", "auto ")) for part in (first, second))
