"""The check above must see rows without words, and nothing where all have some."""

import unittest

from rows_are_words import complaints


class Complaints(unittest.TestCase):
    def test_hears_of_bytes_once_a_table(self):
        said = complaints("All/Rooms.\n"
                          "  Fit/0  # GetParam() = 16-byte object <01-00 00-00>\n"
                          "  Fit/1  # GetParam() = 16-byte object <02-00 00-00>\n"
                          "Poll.\n  Asks\n")
        self.assertEqual(len(said), 1)
        self.assertTrue(said[0].startswith("All/Rooms:"), said)

    def test_hears_of_bytes_in_a_row_and_of_addresses(self):
        self.assertTrue(complaints("A.\n  B/0  # GetParam() = (1, 8-byte object <00>)\n"))
        self.assertTrue(complaints("A.\n  B/0  # GetParam() = 0x55d0ad3e1f30\n"))

    def test_is_quiet_over_words(self):
        self.assertEqual(complaints("All/Rooms.\n"
                                    '  Fit/0  # GetParam() = {width: 3, says: "2 bytes, 0x1"}\n'
                                    "  Fit/wide  # GetParam() = {color: \"#a0b1c2\"}\n"), [])


if __name__ == "__main__":
    unittest.main()
