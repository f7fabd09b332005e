"""The life of one mutant: compiled, linked, tested until a test notices it."""

import os
import re
import resource
import shutil
import signal
import subprocess
import time
from pathlib import Path

from . import journal
from .sources import Candidate
from .workshop import TestProgram, Workshop, WorkshopError, environment_for, word_replaced

_COMPILE_SECONDS = 300
_LEAST_SECONDS = 10.0  # of a test program, however quick it is
_PATIENCE = 5.0  # times as long as without a mutant: hung
_MEMORY = 6 << 30
_FILE_SIZE = 4 << 30  # tests make files of 3 GB that take no room


class Trial:
    """Tries mutants one at a time; the sources of the copy and its build stay as they are."""

    def __init__(self, workshop: Workshop, tests: list[TestProgram], seconds: float):
        self.workshop = workshop
        self.tests = tests
        self.most_seconds = seconds
        self.bin = workshop.build / "bin-mutant"
        self.scratch = workshop.tree.parent / "scratch"
        self.object = str(workshop.build / "mutant.o")
        self._libraries: dict[str, list[str]] = {}

    def measure(self) -> None:
        """Runs all tests without a mutant: they must pass, and their times are the measure."""
        shutil.rmtree(self.bin, ignore_errors=True)
        for test in self.tests:
            begun = time.monotonic()
            outcome, _, output = self._run(test, [], 600, None)
            if outcome != journal.SURVIVED:
                raise WorkshopError(f"{test.name} fails without a mutant:\n{output[-1500:]}")
            test.seconds = time.monotonic() - begun
        self.tests.sort(key=lambda test: test.seconds)

    def of(self, candidate: Candidate, text: str) -> dict:
        """The record of one mutant for the log."""
        begun = time.monotonic()
        mutant = candidate.mutant
        outcome, by = self._try(candidate, text)
        return {
            "key": candidate.key(text),
            "path": candidate.path,
            "line": mutant.line,
            "operator": mutant.operator,
            "old": mutant.old,
            "new": mutant.new,
            "text": text.split("\n")[mutant.line - 1],
            "outcome": outcome,
            "by": by,
            "seconds": round(time.monotonic() - begun, 1),
        }

    def _try(self, candidate: Candidate, text: str) -> tuple[str, str]:
        target_object = self._compile(candidate, text)
        if target_object is None:
            return journal.BROKEN, ""
        self._fresh_bin()
        library_path = self._link_libraries(target_object)
        folder = candidate.path.split("/", maxsplit=1)[0]
        tests = [test for test in self.tests if test.folder == folder]
        begun = time.monotonic()
        judged = False
        for test, words in stages(tests, candidate.path, self.workshop.tree):
            if time.monotonic() - begun > self.most_seconds:
                return journal.HUNG, "time of the mutant"
            if not self._links_to(test, target_object):
                continue
            judged = True
            limit = max(_LEAST_SECONDS, _PATIENCE * test.seconds)
            outcome, by, _ = self._run(test, words, limit, library_path)
            if outcome != journal.SURVIVED:
                return outcome, by
        return (journal.SURVIVED if judged else journal.UNJUDGED), ""

    def _compile(self, candidate: Candidate, text: str) -> str | None:
        command = self.workshop.compile_command(candidate.path)
        if command is None:
            return None
        words, target_object = command
        source = self.workshop.tree / candidate.path
        changed = source.with_name(f"{source.stem}.mutant.cpp")
        changed.write_text(candidate.mutant.apply(text), encoding="utf-8")
        words = [str(changed) if word == str(source) else word for word in words]
        words[words.index("-o") + 1] = self.object
        try:
            done = subprocess.run(words, cwd=self.workshop.build, capture_output=True,
                                  timeout=_COMPILE_SECONDS, check=False)  # fmt: skip
        except subprocess.TimeoutExpired:
            return None
        finally:
            changed.unlink()
        return target_object if done.returncode == 0 else None

    def _fresh_bin(self) -> None:
        """The programs as links, so that mutants among them find the rest beside themselves."""
        shutil.rmtree(self.bin, ignore_errors=True)
        self.bin.mkdir()
        for path in (self.workshop.build / "bin").iterdir():
            (self.bin / path.name).symlink_to(path)

    def _link_libraries(self, target_object: str) -> Path | None:
        if target_object not in self._libraries:
            self._libraries[target_object] = self.workshop.libraries_with(target_object)
        for library in self._libraries[target_object]:
            self._link(library, target_object)
        return self.bin if self._libraries[target_object] else None

    def _links_to(self, test: TestProgram, target_object: str) -> bool:
        """Links the program with the mutant; false if it would not come into it at all."""
        output = f"bin/{test.program}"
        if not self.workshop.goes_into(target_object, output):
            return self._loads(output, self._libraries[target_object])
        if (self.bin / test.program).is_symlink():
            self._link(output, target_object)
        return True

    def _loads(self, output: str, libraries: list[str]) -> bool:
        """Linked with one of the libraries; of those that no program is linked with, which are loaded
        at run time, nobody knows by whom."""
        commands = [self.workshop.link_command(f"bin/{test.program}") for test in self.tests]
        linked = [lib for lib in libraries if any(lib in command for command in commands)]
        own = self.workshop.link_command(output)
        return bool(libraries) and (not linked or any(lib in own for lib in linked))

    def _link(self, output: str, target_object: str) -> None:
        command = word_replaced(self.workshop.link_command(output), target_object, self.object)
        for archive in self.workshop.archives_with(target_object, output):
            command = word_replaced(command, archive, self._archive(archive, target_object))
        made = self.bin / Path(output).name
        self._make(made, command.replace(f"-o {output} ", f"-o {made} "))

    def _archive(self, archive: str, target_object: str) -> str:
        """The archive with the mutant as a member, made once for each."""
        made = self.bin / archive.replace("/", "-")
        if not made.exists():
            command = word_replaced(self.workshop.link_command(archive), target_object, self.object)
            self._make(made, word_replaced(command, archive, str(made)))
        return str(made)

    def _make(self, made: Path, command: str) -> None:
        made.unlink(missing_ok=True)
        done = subprocess.run(["sh", "-c", command], cwd=self.workshop.build,
                              capture_output=True, text=True, check=False)  # fmt: skip
        if done.returncode != 0 or not made.exists():
            raise WorkshopError(f"{made.name} can't be linked:\n{done.stderr[-4000:]}")

    def _run(self, test: TestProgram, words: list[str], limit: float,
             library_path: Path | None) -> tuple[str, str, str]:  # fmt: skip
        shutil.rmtree(self.scratch, ignore_errors=True)
        self.scratch.mkdir(parents=True, mode=0o700)
        program = self.bin / test.program if self.bin.exists() else Path(test.command[0])
        environment = environment_for(test, self.scratch)
        if library_path is not None:
            environment["LD_LIBRARY_PATH"] = str(library_path)
        process = subprocess.Popen(
            [str(program), *test.command[1:], *words, "--gtest_fail_fast", "--gtest_brief=1"],
            cwd=self.scratch, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            start_new_session=True, preexec_fn=_limit_resources)  # fmt: skip
        try:
            output = process.communicate(timeout=limit)[0].decode("utf-8", "replace")
        except subprocess.TimeoutExpired:
            return journal.HUNG, test.name, ""
        finally:
            _end_group(process)
        if process.returncode == 0:
            return journal.SURVIVED, "", output
        failed = re.search(r"\[  FAILED  \] (\S+)", output)
        return journal.KILLED, f"{test.name} {failed[1].rstrip(',') if failed else 'ended'}", output


def _limit_resources() -> None:
    resource.setrlimit(resource.RLIMIT_AS, (_MEMORY, _MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (_FILE_SIZE, _FILE_SIZE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def _end_group(process: subprocess.Popen) -> None:
    """The program and what it started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.communicate()


def stages(tests: list[TestProgram], path: str, tree: Path) -> list[tuple[TestProgram, list[str]]]:
    """What is run, in order: the tests whose file is near to the source, then the rest of each
    program. A test with words of its own has its own filter and runs whole at the end."""
    near, rest, whole = [], [], []
    for test in tests:
        if len(test.command) > 1:
            whole.append((test, []))
            continue
        suites = sorted(
            {suite for file, names in test.suites.items() if is_near(file, path, tree) for suite in names}
        )
        pattern = ":".join(f"{suite}.*:{suite}/*:*/{suite}.*:*/{suite}/*" for suite in suites)
        if suites:
            near.append((test, [f"--gtest_filter={pattern}"]))
        rest.append((test, [f"--gtest_filter=-{pattern}"] if suites else []))
    return near + rest + whole


def is_near(test_file: str, path: str, tree: Path) -> bool:
    """By its name, or because it includes the header."""
    stem = Path(path).stem
    name = Path(test_file).stem.removesuffix("Test")
    if stem.startswith(name) or name.startswith(stem):
        return True
    header = f'#include "{path.removesuffix(".cpp")}.h"'
    return header in (tree / test_file).read_text(encoding="utf-8")
