"""Which mutants are wanted: of files, of folders, of the functions that changed since a commit."""

import hashlib
import random
import re
from dataclasses import dataclass
from pathlib import Path

from .operators import Mutant, mutants_of
from .tokens import Source


@dataclass(frozen=True)
class Candidate:
    """A mutant of a file; `path` from the top folder."""

    path: str
    mutant: Mutant

    def key(self, text: str) -> str:
        """Stays as long as the file does."""
        mutant = self.mutant
        parts = (self.path, text, str(mutant.start), mutant.operator, mutant.old, mutant.new)
        return hashlib.sha256("\0".join(parts).encode()).hexdigest()[:16]


def lines_changed(diff: str) -> dict[str, set[int]]:
    """By file the lines that `git diff -U0` shows as new or, of what was removed, the two around."""
    changed: dict[str, set[int]] = {}
    path = None
    for line in diff.splitlines():
        if line.startswith("+++ "):
            path = line[6:] if line.startswith("+++ b/") else None
        hunk = re.match(r"@@ -\S+ \+(\d+)(?:,(\d+))? @@", line)
        if hunk and path is not None:
            first, count = int(hunk[1]), int(hunk[2] or 1)
            lines = range(first, first + count) if count else range(first, first + 2)
            changed.setdefault(path, set()).update(lines)
    return changed


def in_changed_functions(text: str, mutants: list[Mutant], lines: set[int]) -> list[Mutant]:
    """Those in a function of which a line changed; at file scope those on a changed line."""
    functions = Source(text).functions
    touched = {
        at
        for at, function in enumerate(functions)
        if any(function.first_line <= line <= function.last_line for line in lines)
    }
    return [m for m in mutants if (m.function in touched if m.function >= 0 else m.line in lines)]


def of_files(root: Path, paths: list[str], since: dict[str, set[int]] | None) -> list[Candidate]:
    found = []
    for path in paths:
        text = (root / path).read_text(encoding="utf-8")
        mutants = mutants_of(text)
        if since is not None:
            mutants = in_changed_functions(text, mutants, since.get(path, set()))
        found += [Candidate(path, mutant) for mutant in mutants]
    return found


def drawn(candidates: list[Candidate], seed: int, shard: tuple[int, int]) -> list[Candidate]:
    """In an order that depends on the seed alone; shard (1, 2) has the first of two halves of it."""
    order = list(candidates)
    random.Random(seed).shuffle(order)
    number, count = shard
    return order[number - 1 :: count]
