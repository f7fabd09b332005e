"""A copy of the code in which mutants are built, and what its build says about the tests."""

import fcntl
import json
import os
import re
import shlex
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

_SUITE = re.compile(r"^\s*(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+)\s*,", re.MULTILINE)


class WorkshopError(Exception):
    """The copy can't be made, built or tested."""


@dataclass
class TestProgram:
    """A test of ctest that is a program of GoogleTest."""

    name: str
    folder: str  # of the source that it tests: "console"
    command: list[str]
    environment: dict[str, str]
    suites: dict[str, list[str]] = field(default_factory=dict)  # by test file from the top folder
    seconds: float = 0.0

    @property
    def program(self) -> str:
        return Path(self.command[0]).name


def run(words: list[str], cwd: Path, what: str) -> str:
    done = subprocess.run(words, cwd=cwd, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise WorkshopError(f"{what} failed:\n{(done.stdout + done.stderr)[-4000:]}")
    return done.stdout


def snapshot_of(root: Path) -> str:
    """A commit that holds the sources as they stand, new files excepted; no branch knows it."""
    made = run(["git", "stash", "create"], root, "git stash create").strip()
    return made or run(["git", "rev-parse", "HEAD"], root, "git rev-parse").strip()


class Workshop:
    """A clone below `folder` that borrows the objects of the repository and changes nothing there."""

    def __init__(self, root: Path, folder: Path, snapshot: str):
        self.root = root
        self.tree = folder / "tree"
        self.build = self.tree / "build" / "dev"
        folder.mkdir(parents=True, exist_ok=True)
        self._lock = (folder / "lock").open("w")
        try:
            fcntl.flock(self._lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise WorkshopError(f"another run is at work in {folder}") from None
        if not (self.tree / ".git").exists():
            words = ["git", "clone", "-q", "--shared", "--no-checkout", str(root), str(self.tree)]
            run(words, root, "git clone")
        run(["git", "checkout", "-q", "--force", "--detach", snapshot], self.tree, "git checkout")
        run(["cmake", "--preset", "dev"], self.tree, "cmake")
        self._commands = self._compile_commands()
        self._links: dict[str, str] = {}

    def _compile_commands(self) -> dict[str, dict]:
        commands = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            path = Path(entry["file"])
            if path.is_relative_to(self.tree):
                name = str(path.relative_to(self.tree))
                # A source that a test program also compiles for itself is judged as its library's.
                if name not in commands or not self._object_of(entry).startswith("tests/"):
                    commands[name] = entry
        return commands

    def compile_command(self, path: str) -> tuple[list[str], str] | None:
        """Words without a compiler cache and without warnings, and the object's name in the build
        folder; nothing for what isn't compiled."""
        entry = self._commands.get(path)
        if entry is None:
            return None
        words = shlex.split(entry["command"])
        compiler = next(
            at for at, word in enumerate(words) if Path(word).name in ("c++", "g++", "clang++")
        )
        words = [word for word in words[compiler:] if word != "-Werror"]
        return words + ["-w", "-g0"], words[words.index("-o") + 1]

    def build_tests(self, folders: set[str]) -> None:
        """All test programs of the folders: ctest tells the words only of what is built."""
        targets = set()
        for path, entry in self._commands.items():
            made = re.search(r"/CMakeFiles/(\w+)\.dir/", self._object_of(entry))
            if path.startswith(tuple(f"tests/{folder}/" for folder in folders)) and made:
                if _SUITE.search((self.tree / path).read_text(encoding="utf-8")):
                    targets.add(made[1])
        if targets:
            words = ["cmake", "--build", "--preset", "dev", "--target", *sorted(targets)]
            run(words, self.tree, "the build")

    @staticmethod
    def _object_of(entry: dict) -> str:
        words = shlex.split(entry["command"])
        return words[words.index("-o") + 1]

    def tests(self, folders: set[str]) -> list[TestProgram]:
        """Of programs that are built. A test belongs to the source folder that its CMakeLists.txt
        mirrors below tests/."""
        listed = json.loads(
            run(["ctest", "--show-only=json-v1"], self.build, "ctest --show-only")
        )
        found = []
        for test in listed["tests"]:
            folder = self._folder_of(test, listed["backtraceGraph"])
            properties = {p["name"]: p["value"] for p in test.get("properties", [])}
            command = test.get("command", [])
            if folder not in folders or "scripts" in properties.get("LABELS", []) or not command:
                continue
            environment = dict(word.split("=", 1) for word in properties.get("ENVIRONMENT", []))
            found.append(TestProgram(test["name"], folder, command, environment))
        untested = folders - {test.folder for test in found}
        if untested:
            raise WorkshopError(f"no tests for {', '.join(sorted(untested))}")
        self._add_suites(found)
        return found

    def _folder_of(self, test: dict, graph: dict) -> str:
        node = test.get("backtrace")
        while node is not None:
            entry = graph["nodes"][node]
            path = Path(graph["files"][entry["file"]])
            path = path if path.is_absolute() else self.tree / path
            parts = path.relative_to(self.tree).parts if path.is_relative_to(self.tree) else ()
            if len(parts) > 2 and parts[0] == "tests":
                return parts[1]
            node = entry.get("parent")
        return ""

    def _add_suites(self, tests: list[TestProgram]) -> None:
        for path, entry in self._commands.items():
            if not path.startswith("tests/"):
                continue
            suites = _SUITE.findall((self.tree / path).read_text(encoding="utf-8"))
            for test in tests:
                if suites and f"/{test.program}.dir/" in self._object_of(entry):
                    test.suites[path] = sorted(set(suites))

    def link_command(self, output: str) -> str:
        """The shell command that makes a program, a library or an archive of the build folder."""
        if output not in self._links:
            self._links[output] = self._ninja_command(output)
        return self._links[output]

    def _ninja_command(self, output: str) -> str:
        return run(["ninja", "-t", "commands", "-s", output], self.build, f"ninja on {output}").strip()

    def goes_into(self, target_object: str, output: str) -> bool:
        """Whether a file is linked with an object, by itself or in an archive."""
        named = has_word(self.link_command(output), target_object)
        return named or bool(self.archives_with(target_object, output))

    def archives_with(self, target_object: str, output: str) -> list[str]:
        """Archives of the build folder with which a file is linked and that hold an object."""
        words = dict.fromkeys(shlex.split(self.link_command(output)))
        archives = [w for w in words if w.endswith(".a") and w[0] not in "/-" and w != output]
        return [archive for archive in archives if has_word(self.link_command(archive), target_object)]

    def libraries_with(self, target_object: str) -> list[str]:
        """Shared libraries of the build folder into which an object goes."""
        return [
            f"bin/{path.name}"
            for path in sorted((self.build / "bin").glob("lib*.so"))
            if self.goes_into(target_object, f"bin/{path.name}")
        ]


def _word(word: str) -> str:
    return rf"(?<!\S){re.escape(word)}(?!\S)"


def has_word(command: str, word: str) -> bool:
    return re.search(_word(word), command) is not None


def word_replaced(command: str, word: str, other: str) -> str:
    return re.sub(_word(word), lambda _: other, command)


def environment_for(test: TestProgram, scratch: Path) -> dict[str, str]:
    """What ctest gives, with home and temporary folders of its own: mutants write where they like."""
    environment = dict(os.environ)
    environment.update(test.environment)
    for name in ("HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                 "XDG_RUNTIME_DIR"):  # fmt: skip
        environment[name] = str(scratch)
    return environment
