"""The check above must see each unknown name, and nothing where all is well."""

import unittest

from symbols_are_known import complaints

TABLE = "# name, drawing, form\narrow.up  arrow-up  line\nclock  clock  line\neye  eye  line\n"


class Complaints(unittest.TestCase):
    def quiet(self, path, text):
        self.assertEqual(complaints(TABLE, {path: text}), [])

    def sees(self, name, path, text):
        said = complaints(TABLE, {path: text})
        self.assertTrue(any(f'"{name}"' in sentence for sentence in said), said)

    def test_is_quiet_where_all_names_are_known(self):
        self.quiet("board/A.qml", 'Symbol {\n  size: 12\n  name: late ? "clock" : "eye"\n}\n')
        self.quiet("board/a.cpp", 'return {.text = "New", .icon = "arrow.up", .tone = "red"};\n')
        self.quiet("board/A.qml", 'Pill { title: "Up"; icon: "" }\nItem { name: "eyes" }\n')

    def test_is_quiet_about_what_is_no_symbol(self):
        self.quiet("shell/a.cpp", 'open("sample.json"); find("approval"); say("Wait... what");\n')
        self.quiet("platform/linux/A.cpp", 'const auto kName = "org.freedesktop.secrets";\n')

    def test_sees_unknown_names(self):
        self.sees("clocks", "board/A.qml", 'Symbol { name: late ? "clocks" : "eye" }\n')
        self.sees("clocks", "board/A.qml", 'Pill { icon: "clocks" }\n')
        self.sees("clocks", "board/A.qml", 'IconButton { symbol: "clocks"; help: "Due" }\n')
        self.sees("clocks", "board/a.cpp", '  view.icon = late ? "eye" : "clocks";\n')
        self.sees("arrow.sideways", "board/a.cpp", 'return {"Move", "arrow.sideways", "gray"};\n')

    def test_sees_a_table_out_of_order(self):
        for table in ("b  x  line\na  x  line\n", "a  x  line\na  y  line\n"):
            self.assertTrue(complaints(table, {}))


if __name__ == "__main__":
    unittest.main()
