"""The changes that tests/mutants makes, line by line."""

import tempfile
import unittest
from pathlib import Path

import changes


def of(line: str) -> list[tuple[str, str]]:
    return list(changes.of_line(line + "\n"))


class OfLine(unittest.TestCase):
    def test_turns_each_comparison_by_itself(self) -> None:
        self.assertEqual(of("    return a < b && c == d;"), [
            ("< to <=", "    return a <= b && c == d;\n"),
            ("&& to ||", "    return a < b || c == d;\n"),
            ("== to !=", "    return a < b && c != d;\n"),
        ])

    def test_leaves_templates_references_and_shifts(self) -> None:
        for line in ("    std::vector<Point> points;", "    auto &&value = take<int>();", "    stream << text;"):
            self.assertEqual([name for name, _ in of(line)], [], line)

    def test_raises_whole_numbers_and_turns_truths(self) -> None:
        self.assertEqual(of("    const int left = width - 8;"), [("8 to 9", "    const int left = width - 9;\n")])
        self.assertEqual(of("    mode = 0644;"), [("0644 to 0645", "    mode = 0645;\n")])
        self.assertEqual(of("    open = true;"), [("true to false", "    open = false;\n")])
        self.assertEqual(of("    area = 1.5 + size_2 + 0x20;"), [])

    def test_drops_a_call_that_is_a_statement(self) -> None:
        self.assertEqual(of("    m_list.clear();"), [("call dropped", "    ; // m_list.clear();\n")])
        self.assertEqual(of("    pad->lock(now);"), [("call dropped", "    ; // pad->lock(now);\n")])
        for line in ("    return clear();", "    const int n = count();", "    if (close())", "    throw Error();",
                     '    KV_LOG(key, "text");'):
            self.assertNotIn("call dropped", [name for name, _ in of(line)], line)

    def test_swaps_neighbouring_arguments(self) -> None:
        self.assertEqual(of("    const int n = place(x, y, 0.5);"), [
            ("arguments swapped", "    const int n = place(y, x, 0.5);\n"),
            ("arguments swapped", "    const int n = place(x, 0.5, y);\n"),
        ])
        self.assertEqual(of("    const int n = place(x, x);"), [])
        self.assertEqual(of("    put(value, 'g');"), [
            ("call dropped", "    ; // put(value, 'g');\n"),
            ("arguments swapped", "    put('g', value);\n"),
        ])

    def test_changes_a_function_in_one_line_and_no_declaration(self) -> None:
        self.assertEqual(of("int Pad::place(int x, int y) { return at::place(x, y); }"),
                         [("arguments swapped", "int Pad::place(int x, int y) { return at::place(y, x); }\n")])
        for line in ("int place(int x = 3);", "constexpr int kSide = 3;", "    static_assert(sizeof(int) == 4);",
                     "    using Pair = std::pair<int, int>;", "    points.reserve(12);", "    case 3:", "#if KV == 3"):
            self.assertEqual(of(line), [], line)

    def test_leaves_texts_and_comments(self) -> None:
        self.assertEqual(of('    const char *text = "a == 3, true"; // 4 == 5'), [])
        self.assertEqual(of("    /// the first of 3"), [])
        self.assertEqual(of("    const char digit = '0';"), [])


class OfFolder(unittest.TestCase):
    def test_looks_into_folders_and_leaves_public_headers(self) -> None:
        with tempfile.TemporaryDirectory() as place:
            for name in ("ink/strokes.cpp", "pads.h", "kvsignpadsdk.h", "notes.txt"):
                file = Path(place, name)
                file.parent.mkdir(exist_ok=True)
                file.write_text("void f()\n{\n    open = true;\n}\n", encoding="utf-8")
            found = [(change.file, change.line) for change in changes.of_folder(Path(place), "*")]
            self.assertEqual(found, [("ink/strokes.cpp", 2), ("pads.h", 2)])
            only = [change.file for change in changes.of_folder(Path(place), "strokes*")]
            self.assertEqual(only, ["ink/strokes.cpp"])


if __name__ == "__main__":
    unittest.main()
