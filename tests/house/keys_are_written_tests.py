"""The check above must see each key that is left as a sign, and nothing where all is well."""

import unittest

from keys_are_written import complaints

TABLE = 'Sign{"⌘", "Ctrl+"}, Sign{"↩", "Return"}\n'


class Complaints(unittest.TestCase):
    def quiet(self, path, text):
        self.assertEqual(complaints(TABLE, {path: text}), [])

    def sees(self, what, path, text):
        said = complaints(TABLE, {path: text})
        self.assertTrue(any(what in sentence for sentence in said), said)

    def test_is_quiet_where_all_are_written_out(self):
        self.quiet("board/A.qml", 'help: Theme.keys("Fit (⌘0)")\ntext: label + Theme.keys(" (⌘Z)")\n')
        self.quiet("board/a.cpp", 'writtenKeys(open ? "Hide (⌘I)" : "Show (⌘I)");\n')
        self.quiet("board/a.hpp", '// "⌘R" is "Ctrl+R".\n')
        self.quiet("board/A.qml", 'text: "Pages 3 − 7"\n')

    def test_sees_what_is_left_as_signs(self):
        self.sees("signs", "board/A.qml", 'help: "Fit (⌘0)"\n')
        self.sees("signs", "board/a.cpp", 'view.help = problem.value_or("Refresh (⌘R)");\n')
        self.sees("signs", "board/A.qml", 'help: Theme.keys("Fit (⌘0)") + "⌘↩"\n')

    def test_sees_signs_that_have_no_name(self):
        self.sees("no name for ⌫", "board/A.qml", 'help: Theme.keys("Delete (⌘⌫)")\n')


if __name__ == "__main__":
    unittest.main()
