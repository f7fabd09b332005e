#!/usr/bin/env python3
"""What dev/mutate changes, leaves alone and reports, shown on text."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

from mutation import journal, sources, trial  # noqa: E402
from mutation.operators import mutants_of  # noqa: E402
from mutation.tokens import Source  # noqa: E402
from mutation.workshop import TestProgram, Workshop  # noqa: E402


def changes(body: str, operator: str) -> list[tuple[str, str]]:
    """What an operator does with statements inside of a function."""
    text = f"void F() {{\n{body}\n}}\n"
    return [(m.old, m.new) for m in mutants_of(text) if m.operator == operator]


class Tokens(unittest.TestCase):
    def test_comments_and_preprocessor_lines_are_no_tokens(self):
        text = "#define A \\\n  1 < 2\n// a < b\n/* c\nd */ int x;\n"
        self.assertEqual([token.text for token in Source(text).tokens], ["int", "x", ";"])

    def test_raw_strings_and_their_suffixes_are_one_token(self):
        tokens = Source('f(uR"(a "b" ) c)"_s, u"d\\"e"_s);').tokens
        self.assertEqual([t.text for t in tokens if t.kind == "string"],
                         ['uR"(a "b" ) c)"_s', 'u"d\\"e"_s'])  # fmt: skip

    def test_functions_are_found_in_namespaces_and_classes_and_not_in_values(self):
        text = (
            "namespace a {\n"
            "const T kTable = {\n{1, 2}};\n"
            "class B final : public C {\n"
            "    int D() const override { return 1; }\n"
            "};\n"
            "B::B(int x) : m_x(x), m_y{x} {\n"
            "    m_z = x;\n"
            "}\n"
            "auto E() -> int {\n}\n"
            "}\n"
        )
        lines = [(f.first_line, f.last_line) for f in Source(text).functions]
        self.assertEqual(lines, [(5, 5), (7, 9), (10, 11)])


class Operators(unittest.TestCase):
    def test_relations_move_by_one_and_templates_are_left_alone(self):
        body = "std::vector<int> v; if (a < b && c >= d) v = w;"
        self.assertEqual(changes(body, "relation"), [("<", "<="), (">=", ">")])

    def test_references_and_pointers_are_no_arithmetic(self):
        body = "for (auto&& x : y) f(*x, &x, -x); const int* p = q; r = s * t;"
        self.assertEqual(changes(body, "arithmetic"), [("*", "/")])
        self.assertEqual(changes(body, "logic"), [])
        self.assertEqual(changes(body, "bits"), [])

    def test_joined_texts_are_not_subtracted(self):
        self.assertEqual(changes('a = b + u"c"_s;', "arithmetic"), [])

    def test_conditions_are_negated_behind_their_declaration(self):
        body = "if (const int a = b(); a || c) d(); if (auto* e = f()) g(); while (h(i)) j();"
        self.assertEqual(
            changes(body, "condition"), [("a || c", "!(a || c)"), ("h(i)", "!(h(i))")]
        )

    def test_what_another_operator_turns_is_not_negated_twice(self):
        self.assertEqual(changes("if (!a) b(); if (c == d) e();", "condition"), [])
        self.assertEqual(changes("if (!a) b();", "not"), [("!", "")])

    def test_numbers_move_by_one_labels_excepted(self):
        body = "switch (a) { case 3: b(12); } c = 0.5; d = 0x10; e = 0;"
        self.assertEqual(
            changes(body, "number"),
            [("12", "11"), ("12", "13"), ("0.5", "0.25"), ("0.5", "1.5"), ("0x10", "0x90"), ("0", "1")],
        )  # fmt: skip

    def test_constants_at_file_scope_are_changed_too(self):
        mutants = mutants_of('constexpr int kWidth = 3;\nconst QString kName = u"a"_s;\n')
        self.assertEqual({m.new for m in mutants}, {"2", "4", 'u"mutant"_s'})
        self.assertEqual({m.function for m in mutants}, {-1})

    def test_returned_values_become_empty_ones(self):
        body = "if (a) return b(c); if (d) return 0; if (e) return; return {};"
        self.assertEqual(changes(body, "return"), [("b(c)", "{}")])

    def test_a_returned_nullopt_is_the_empty_value_already(self):
        body = "if (a) return std::nullopt; return b;"
        self.assertEqual(changes(body, "return"), [("b", "{}")])

    def test_calls_are_left_out_and_declarations_stay(self):
        body = (
            "const A a(b); C c(d); std::vector<E> e(f); G* g = h(); i->J(k); l.m(n).o();\n"
            "if (p) q(); else r(); emit s(t); u = v(); return w();"
        )
        self.assertEqual(
            [old for old, _ in changes(body, "left-out call")],
            ["i->J(k)", "l.m(n).o()", "q()", "r()", "emit s(t)"],
        )

    def test_assignments_are_left_out_and_declarations_stay(self):
        body = "int a = 1; auto b = 2; Type* c = d; T& e = f; g = h; i->j[k] += l; *m = n; o.p = {q};"
        self.assertEqual(
            [old for old, _ in changes(body, "left-out assignment")],
            ["g = h", "i->j[k] += l", "*m = n", "o.p = {q}"],
        )

    def test_statements_of_lambdas_are_found_and_values_are_none(self):
        body = "connect(a, &A::B, this, [this] { C(); }); D d = {E(), F()};"
        self.assertEqual(
            [old for old, _ in changes(body, "left-out call")],
            ["connect(a, &A::B, this, [this] { C(); })", "C()"],
        )

    def test_two_arguments_change_places(self):
        self.assertEqual(changes("a(b, c(d)); std::min(e, f); g(h, h); i(j);", "arguments"),
                         [("b, c(d)", "c(d), b")])  # fmt: skip

    def test_assertions_logs_and_reserved_space_are_left_alone(self):
        body = 'Q_ASSERT(a < 3); qWarning("b %d", 4); c.reserve(5 + d); e.setObjectName(u"f"_s);'
        self.assertEqual(mutants_of(f"void F() {{\n{body}\n}}\n"), [])

    def test_a_change_is_made_where_it_is_told(self):
        text = "int F() {\n    return a + 1;\n}\n"
        made = {m.apply(text).split("\n")[1].strip() for m in mutants_of(text)}
        self.assertEqual(made, {"return a - 1;", "return a + 0;", "return a + 2;", "return {};"})


class Sources(unittest.TestCase):
    DIFF = (
        "--- a/x.cpp\n+++ b/x.cpp\n@@ -3,2 +4,2 @@ f\n-a\n+b\n@@ -9 +9,0 @@\n-c\n"
        "+++ /dev/null\n@@ -1 +0,0 @@\n"
    )

    def test_changed_lines_are_read_from_a_diff(self):
        self.assertEqual(sources.lines_changed(self.DIFF), {"x.cpp": {4, 5, 9, 10}})

    def test_of_changed_functions_all_is_tried_and_of_others_nothing(self):
        text = "int A() {\n    return 1;\n}\nint B() {\n    b();\n    return 2;\n}\n"
        mutants = sources.in_changed_functions(text, mutants_of(text), {5})
        self.assertEqual({m.line for m in mutants}, {5, 6})

    def test_an_order_depends_on_the_seed_alone_and_shards_share_it(self):
        text = "int A() {\n    return a + b + c + d + e + f;\n}\n"
        all_of_them = [sources.Candidate("x.cpp", m) for m in mutants_of(text)]
        whole = sources.drawn(all_of_them, 7, (1, 1))
        self.assertEqual(whole, sources.drawn(all_of_them, 7, (1, 1)))
        self.assertNotEqual(whole, sources.drawn(all_of_them, 8, (1, 1)))
        halves = [sources.drawn(all_of_them, 7, (part, 2)) for part in (1, 2)]
        self.assertEqual(halves[0][0], whole[0])
        self.assertEqual(halves[1][0], whole[1])
        self.assertEqual(len(halves[0]) + len(halves[1]), len(whole))


class Stages(unittest.TestCase):
    def test_near_tests_come_first_and_none_twice(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = Path(folder)
            (tree / "AlphaTest.cpp").write_text("")
            (tree / "OtherTest.cpp").write_text('#include "a/Beta.h"\n')
            quick = TestProgram("quick", "a", ["/b/quick"], {}, {"OtherTest.cpp": ["Other"]})
            slow = TestProgram("slow", "a", ["/b/slow"], {}, {"AlphaTest.cpp": ["Alpha"]})
            scaled = TestProgram("scaled", "a", ["/b/slow", "--gtest_filter=Form*"], {})
            run = trial.stages([quick, scaled, slow], "a/Alpha.cpp", tree)
            self.assertEqual([test.name for test, _ in run], ["slow", "quick", "slow", "scaled"])
            self.assertEqual(run[2][1][0], run[0][1][0].replace("=", "=-"))
            self.assertTrue(trial.is_near("OtherTest.cpp", "a/Beta.cpp", tree))
            self.assertFalse(trial.is_near("AlphaTest.cpp", "a/Beta.cpp", tree))


class ScriptedWorkshop(Workshop):
    """Objects are their sources; a program passes while the text that it wants is in what it was
    linked with."""

    LINK = (
        "#!/bin/sh\n"
        "while [ $# -gt 0 ]; do\n"
        'if [ "$1" = -o ]; then out=$2; shift; else inputs="$inputs $1"; fi\n'
        "shift\n"
        "done\n"
        "cat $inputs >$out.data\n"
        'printf \'#!/bin/sh\\ngrep -aq "%s" "%s"\\n\' "$WANTED" "$(realpath $out.data)" >$out\n'
        "chmod +x $out\n"
    )

    def __init__(self, folder: Path, links: dict[str, str]):
        self.tree, self.build = folder / "tree", folder / "tree" / "build"
        (self.build / "bin").mkdir(parents=True)
        (self.tree / "a").mkdir()
        (self.tree / "a" / "Alpha.cpp").write_text(Trials.TEXT)
        (self.build / "Alpha.o").write_text(Trials.TEXT)
        (self.build / "Other.o").write_text("return 1;")
        for name, text in (("link", self.LINK), ("compile", '#!/bin/sh\ncp "$1" "$3"\n')):
            (self.build / name).write_text(text)
            (self.build / name).chmod(0o755)
        self._links = links
        for command in links.values():
            subprocess.run(["sh", "-c", command], cwd=self.build, check=True)

    def compile_command(self, path: str) -> tuple[list[str], str]:
        return [str(self.build / "compile"), str(self.tree / path), "-o", "Alpha.o"], "Alpha.o"


class Trials(unittest.TestCase):
    TEXT = "int F() {\n    return 1;\n}\n"
    ARCHIVE = {"libalpha.a": ": && rm -f libalpha.a && ar qc libalpha.a  Other.o Alpha.o && :"}

    def outcomes(self, links: dict[str, str], *programs: str) -> set[tuple[str, str]]:
        """Of all mutants, by test programs of the folder."""
        with tempfile.TemporaryDirectory() as folder:
            workshop = ScriptedWorkshop(Path(folder), links)
            tests = [TestProgram(name, "a", [str(workshop.build / "bin" / name)], {}) for name in programs]
            life = trial.Trial(workshop, tests, 60)
            life.measure()
            mutants = [sources.Candidate("a/Alpha.cpp", mutant) for mutant in mutants_of(self.TEXT)]
            self.assertGreater(len(mutants), 1)
            records = [life.of(mutant, self.TEXT) for mutant in mutants]
            return {(record["outcome"], record["by"]) for record in records}

    @staticmethod
    def program(name: str, wanted: str, inputs: str) -> dict[str, str]:
        return {f"bin/{name}": f": && WANTED='{wanted}' ./link  {inputs} -o bin/{name}  && :"}

    def test_a_mutant_is_linked_as_an_object(self):
        links = self.program("whole", "^    return 1", "Other.o Alpha.o")
        self.assertEqual(self.outcomes(links, "whole"), {("killed", "whole ended")})

    def test_a_mutant_is_linked_as_a_member_of_an_archive(self):
        # The archive stands behind -o, as libraries do.
        command = ": && WANTED='^    return 1' ./link  -o bin/member  libalpha.a  && :"
        links = self.ARCHIVE | {"bin/member": command}
        self.assertEqual(self.outcomes(links, "member"), {("killed", "member ended")})

    def test_a_mutant_of_an_archive_that_no_program_notices_has_survived(self):
        links = self.ARCHIVE | self.program("blind", "int F", "libalpha.a")
        self.assertEqual(self.outcomes(links, "blind"), {("survived", "")})

    def test_a_mutant_of_an_archive_goes_into_shared_libraries(self):
        links = self.ARCHIVE | self.program("libalpha.so", "int F", "libalpha.a")
        with tempfile.TemporaryDirectory() as folder:
            workshop = ScriptedWorkshop(Path(folder), links)
            self.assertEqual(workshop.libraries_with("Alpha.o"), ["bin/libalpha.so"])
            self.assertEqual(workshop.libraries_with("pha.o"), [])

    def test_a_test_may_make_a_file_of_three_gigabytes_without_content(self):
        with tempfile.TemporaryDirectory() as folder:
            words = ["truncate", "-s", "3G", f"{folder}/huge"]
            done = subprocess.run(words, preexec_fn=trial._limit_resources, check=False)
            self.assertEqual(done.returncode, 0)

    def test_a_mutant_that_is_in_no_program_is_unjudged(self):
        links = self.ARCHIVE | self.program("other", "return 1", "Other.o")
        self.assertEqual(self.outcomes(links, "other"), {("unjudged", "")})


class Journals(unittest.TestCase):
    RESULT = {"key": "1", "path": "a.cpp", "line": 2, "operator": "relation", "old": "<",
              "new": "<=", "text": "  a < b", "outcome": "survived", "by": ""}  # fmt: skip

    def test_a_run_is_resumed_and_another_begins_anew(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "log.jsonl"
            journal.Journal(path, {"seed": 1}, False).add(self.RESULT)
            self.assertEqual(journal.Journal(path, {"seed": 1}, False).results, {"1": self.RESULT})
            self.assertEqual(journal.Journal(path, {"seed": 2}, False).results, {})
            self.assertEqual(journal.Journal(path, {"seed": 2}, True).results, {})
            self.assertTrue(path.with_suffix(".old.jsonl").exists())

    def test_survivors_are_listed_with_both_texts_and_counted_against_those_that_compiled(self):
        results = [self.RESULT, self.RESULT | {"outcome": "killed"},
                   self.RESULT | {"outcome": "hung"}, self.RESULT | {"outcome": "survived"},
                   self.RESULT | {"outcome": "does not compile"},
                   self.RESULT | {"outcome": "unjudged"}]  # fmt: skip
        self.assertEqual(journal.survivors_table(results[:2]),
                         "a.cpp:2: relation\n    - <\n    + <=\n      a < b")  # fmt: skip
        self.assertIn("4 mutants", journal.summary(results, 60))
        self.assertIn("2 survived (50.0 %); 1 didn't compile, 1 unjudged",
                      journal.summary(results, 60))  # fmt: skip
        self.assertEqual(journal.unjudged_table(results),
                         "a.cpp: 1 unjudged, no test program has it")  # fmt: skip
        self.assertEqual(len(journal.survivors_table(results).split("\n")), 8)


if __name__ == "__main__":
    unittest.main()
