"""The log of a run: one JSON object a line, the first of which says what is run."""

import json
from pathlib import Path

KILLED, HUNG, SURVIVED, BROKEN = "killed", "hung", "survived", "does not compile"
UNJUDGED = "unjudged"  # compiled, but no test program of the folder has it


class Journal:
    """Resumes the log if it was begun for the same run, else begins anew beside the old one."""

    def __init__(self, path: Path, head: dict, fresh: bool):
        self.path = path
        self.results: dict[str, dict] = {}
        path.parent.mkdir(parents=True, exist_ok=True)
        if path.exists() and (fresh or not self._read(head)):
            path.rename(path.with_suffix(".old.jsonl"))
            self.results = {}
        if not path.exists():
            self._append(head)

    def _read(self, head: dict) -> bool:
        lines = [json.loads(line) for line in self.path.read_text().splitlines() if line.strip()]
        if not lines or lines[0] != head:
            return False
        self.results = {line["key"]: line for line in lines[1:]}
        return True

    def add(self, result: dict) -> None:
        self.results[result["key"]] = result
        self._append(result)

    def _append(self, record: dict) -> None:
        with self.path.open("a", encoding="utf-8") as log:
            log.write(json.dumps(record, ensure_ascii=False) + "\n")


def count(results: list[dict]) -> dict[str, int]:
    """By outcome; `tried` are those that a test had before it."""
    counts = {state: 0 for state in (KILLED, HUNG, SURVIVED, BROKEN, UNJUDGED)}
    for result in results:
        counts[result["outcome"]] += 1
    counts["tried"] = counts[KILLED] + counts[HUNG] + counts[SURVIVED]
    return counts


def survivors_table(results: list[dict]) -> str:
    """By file and line: what was changed, the line as it stands and as it was tried."""
    rows = []
    survivors = [result for result in results if result["outcome"] == SURVIVED]
    for result in sorted(survivors, key=lambda r: (r["path"], r["line"], r["operator"])):
        rows.append(f"{result['path']}:{result['line']}: {result['operator']}")
        rows.append(f"    - {_shown(result['old'])}")
        rows.append(f"    + {_shown(result['new']) or '(nothing)'}")
        rows.append(f"      {result['text'].strip()}")
    return "\n".join(rows)


def unjudged_table(results: list[dict]) -> str:
    """The files whose mutants came before no test, with their number."""
    files: dict[str, int] = {}
    for result in results:
        if result["outcome"] == UNJUDGED:
            files[result["path"]] = files.get(result["path"], 0) + 1
    return "\n".join(f"{path}: {files[path]} unjudged, no test program has it" for path in sorted(files))


def _shown(text: str) -> str:
    return " ".join(text.split())


def summary(results: list[dict], seconds: float) -> str:
    counts = count(results)
    tried = counts["tried"]
    share = 100 * counts[SURVIVED] / tried if tried else 0
    return (
        f"{tried} mutants tried in {seconds / 60:.1f} min: {counts[KILLED]} killed, "
        f"{counts[HUNG]} hung, {counts[SURVIVED]} survived ({share:.1f} %); "
        f"{counts[BROKEN]} didn't compile, {counts[UNJUDGED]} unjudged"
    )
