"""The check above must see each colour without a row, and nothing where all is well."""

import unittest

from colours_are_measured import complaints, used_in

TABLE = """# words faint : window : board/Other
words text,muted : anywhere : *
words faint : window column : board/Row board/Head
mark fore.red,fore.blue : raised : board/Row
given light words faint : window : 3.20
"""
ROW = "color: on ? Theme.faint : Theme.fore[tone]"
HEAD = "color: Theme.faint"


class Complaints(unittest.TestCase):
    def of(self, row=ROW, head=HEAD, table=TABLE):
        return complaints(table, {"board/Row.qml": row, "board/Head.qml": head})

    def test_finds_every_colour(self):
        self.assertEqual(used_in("Theme.faint Theme.strong.red Theme.strong[a ? b : c] Theme.faintly "
                                 "Theme.text Theme.window Theme.underWhite(Theme.onPaper.accent)"),
                         {"faint", "strong.red", "strong.*", "text", "onPaper.accent"})

    def test_is_quiet_where_each_has_its_row(self):
        self.assertEqual(self.of(), [])
        self.assertEqual(self.of(row=ROW + " Theme.text Theme.muted Theme.hoverFill"), [])

    def test_sees_what_is_not_measured(self):
        self.assertEqual(len(self.of(head=HEAD + " Theme.accent")), 1)
        self.assertEqual(len(self.of(head=HEAD + " Theme.fore.red")), 1)
        self.assertEqual(len(self.of(head=HEAD + " Theme.fore[tone]")), 1)
        self.assertEqual(len(self.of(row=ROW + " Theme.fore.green")), 1)

    def test_sees_rows_that_are_left_over(self):
        self.assertEqual(len(self.of(head="")), 1)
        self.assertEqual(len(self.of(table=TABLE + "mark accent : window : board/Gone\n")), 1)


if __name__ == "__main__":
    unittest.main()
