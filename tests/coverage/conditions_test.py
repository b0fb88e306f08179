#!/usr/bin/python3
"""What conditions.py leaves of what the compiler counts in a small program.

    conditions_test.py CXX
"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = r"""
#include <stdexcept>
#include <string>
struct Two { std::string a, b; };
template <class T>
bool positive(T number) {
    if (number > 0) return true;  // a template
    return false;
}
std::string text(bool fails) {
    if (fails) throw std::runtime_error("x");  // both ways
    return "y";
}
bool handled(bool logic) {
    try {
        if (logic) throw std::logic_error("x");  // one way
        text(true);
    } catch (const std::runtime_error& error) {
        if (error.what() == text(false)) return false;  // in a handler
    }
    return true;
}
int main() {
    const std::string joined = text(false) + text(false) + "z";  // calls
    const Two two{text(false), text(false)};  // parts
    if (positive(1) || positive(-1.0)) positive(1u);  // the first operand alone
    if (positive(-1) || positive(-1.0)) return 1;  // both operands
    return !handled(false) || joined.empty() || two.a.empty() ? 1 : 0;
}
"""


class Conditions(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder).resolve()
            (root / "src").mkdir()
            (root / "build").mkdir()
            (root / "src/a.cpp").write_text(SOURCE)
            subprocess.run([sys.argv[1], "-std=c++20", "-O0", "--coverage", "-c", root / "src/a.cpp", "-o", "a.o"],
                           cwd=root / "build", check=True)
            subprocess.run([sys.argv[1], "--coverage", "a.o", "-o", "a"], cwd=root / "build", check=True)
            subprocess.run([root / "build/a"], check=True)
            lines = [{"line_number": number, "branches": [{"count": 1}] if "//" in line else []}
                     for number, line in enumerate(SOURCE.split("\n"), 1)]
            report = json.dumps({"files": [{"file": "src/a.cpp", "lines": lines}]})
            done = subprocess.run([sys.executable, HERE / "conditions.py", "build"], cwd=root, check=True, text=True,
                                  input=report, stdout=subprocess.PIPE)
            cls.lines = json.loads(done.stdout)["files"][0]["lines"]

    def counts(self, comment):
        number = next(number for number, line in enumerate(SOURCE.split("\n")) if line.endswith("// " + comment))
        return sorted(branch["count"] for branch in self.lines[number]["branches"])

    def test_a_condition_has_two_ways(self):
        self.assertEqual(self.counts("both ways"), [1, 5])
        self.assertEqual(self.counts("one way"), [0, 1])

    def test_calls_and_what_is_undone_after_an_exception_are_none(self):
        self.assertEqual(self.counts("calls"), [])
        self.assertEqual(self.counts("parts"), [])

    def test_the_copies_of_a_template_are_one(self):
        self.assertEqual(self.counts("a template"), [2, 2])

    def test_a_condition_and_each_of_its_operands_have_their_own(self):
        self.assertEqual(self.counts("the first operand alone"), [0, 0, 0, 0, 1, 1])
        self.assertEqual(self.counts("both operands"), [0, 0, 0, 1, 1, 1])

    def test_a_condition_of_a_handler_stays(self):
        self.assertEqual(self.counts("in a handler"), [0, 1])

    def test_where_gcovr_has_left_no_branches_there_are_none(self):
        elsewhere = [line for line, text in zip(self.lines, SOURCE.split("\n")) if "//" not in text]
        self.assertFalse([line for line in elsewhere if line["branches"]])


unittest.main(argv=sys.argv[:1])
