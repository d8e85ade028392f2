"""The mutants of a small source file are found, compiled and run."""
import os
import pathlib
import subprocess
import tempfile
import unittest

from tests.mutation import build, equivalents, mutants, schema

SOURCE = """#include <string>
#include <vector>
constexpr int most = 7;
// a < b, true
int larger(int a, int b) { return a < b ? b : a; }
struct Names {
  std::vector<std::string> all;
  void add(const std::string& name) {
    all.reserve(all.size() + 1);
    if (!name.empty() && name != "1 < 2") all.push_back(name);
  }
};
"""
MUTANTS = [
    (5, "larger", "< to <="),
    (5, "larger", "< to >="),
    (5, "larger", "return {}"),
    (10, "Names::add", "!= to =="),
    (10, "Names::add", "&& to ||"),
    (10, "Names::add", "delete"),
    (10, "Names::add", "negate condition"),
    (10, "Names::add", "remove !"),
]


class Mutation(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def find(self, code):
        (self.folder / "some.cpp").write_text(code, encoding="utf-8")
        return mutants.find(self.folder, "some.cpp", ["-std=c++20"])

    def changes(self, code):
        _, sites = self.find(code)
        return [mutant.change for site in sites for mutant in site.mutants]

    def compile(self, code):
        path = self.folder / "mutated.cpp"
        path.write_bytes(code)
        program = self.folder / "mutated"
        done = subprocess.run(["c++", "-std=c++20", path, "-o", program], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        return program, done.stdout

    def test_the_mutants_of_a_file_are_found(self):
        _, sites = self.find(SOURCE)
        found = [(m.line, m.function, m.change) for site in sites for m in site.mutants]
        self.assertEqual(sorted(found), MUTANTS)

    def test_one_mutant_is_killed_and_one_survives(self):
        check = "int main() { return larger(1, 2) == 2 && larger(2, 1) == 2 && larger(1, 1) == 1 ? 0 : 1; }\n"
        source, sites = self.find(SOURCE)
        rewritten, found = schema.rewrite(source, sites, 1, set())
        program, complaints = self.compile(rewritten.code + check.encode())
        self.assertEqual(complaints, "")
        verdicts = {}
        for mutant in found:
            done = subprocess.run([program], env=os.environ | {"PLIMO_MUTANT": str(mutant.number)}, check=False)
            verdicts[mutant.change] = done.returncode
        self.assertEqual(subprocess.run([program], check=False).returncode, 0)
        self.assertEqual(verdicts["< to >="], 1)
        self.assertEqual(verdicts["return {}"], 1)
        self.assertEqual(verdicts["< to <="], 0)

    def test_what_does_not_compile_is_left_out(self):
        (self.folder / "src").mkdir()
        (self.folder / "src" / "some.cpp").write_text(
            "struct Number {\n  explicit Number(int);\n};\nNumber half(int whole) { return Number(whole / 2); }\n",
            encoding="utf-8")
        copy = self.folder / "copy"
        copy.mkdir()
        sources = build.MutatedSources(self.folder, copy, ["src/some.cpp"], ["-std=c++20"])
        command = ["c++", "-std=c++20", "-fsyntax-only", copy / "src" / "some.cpp"]
        said = []
        build.build(sources, [[str(word) for word in command]], said.append)
        self.assertEqual([mutant.change for mutant in sources.all()], ["/ to *", "2 to 3", "2 to 1"])
        self.assertEqual(said, ["1 mutants do not compile and are left out"])

    def test_equal_changes_in_equal_lines_are_counted(self):
        code = "void f();\nvoid g(int a) {\n  if (a == 0) {\n    f();\n  } else {\n    f();\n  }\n}\n"
        self.assertEqual([change for change in self.changes(code) if "delete" in change], ["delete", "delete #2"])

    def test_a_key_does_not_depend_on_the_position(self):
        keys = []
        for code in (SOURCE, "\n\n" + SOURCE):
            _, sites = self.find(code)
            keys.append([mutant.key() for site in sites for mutant in site.mutants])
        self.assertEqual(*keys)

    def test_an_equivalent_mutant_is_read_as_it_is_written(self):
        _, sites = self.find(SOURCE)
        mutant = sites[0].mutants[0]
        text = "# A comment.\n" + equivalents.entry(mutant) + "    Because of\n    something.\n"
        self.assertEqual(equivalents.read(text), {mutant.key(): "Because of something."})
        with self.assertRaises(equivalents.Malformed):
            equivalents.read(equivalents.entry(mutant))


if __name__ == "__main__":
    unittest.main()
