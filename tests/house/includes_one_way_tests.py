"""The check above must see each wrong way, and nothing where all is well."""

import unittest

from includes_one_way import complaints


class Complaints(unittest.TestCase):
    def test_is_quiet_when_all_points_down(self):
        self.assertEqual(complaints({
            "records/records.hpp": "#include <string>\n#include \"platform/ports/moment.hpp\"\n",
            "store/store.hpp": '#include "gateway/api.hpp"\n',
            "board/BoardModel.cpp": '#include "bridge/value.hpp"\n#include "BoardModel.hpp"\n',
            "board/FileRow.qml": "import QtQuick\nimport Vellix.Board\nimport Vellix.Pieces\n",
            "inspector/findings_panel.cpp": '#include "compare/canvas.hpp"\n',
        }), [])

    def sees(self, word, files):
        self.assertTrue(any(word in sentence for sentence in complaints(files)), files)

    def test_sees_what_points_up(self):
        self.sees("above", {"records/decode.cpp": '#include "store/store.hpp"\n'})
        self.sees("above", {"board/FileRow.qml": "import Vellix.Shell\n"})

    def test_sees_logic_that_uses_qt(self):
        self.sees("Qt's side", {"board/file_row.cpp": '#include "bridge/value.hpp"\n'})
        self.sees("Qt's side", {"store/store.cpp": '#include "platform/qt/QtHttp.hpp"\n'})

    def test_sees_circles(self):
        self.sees("circle", {"board/a.cpp": '#include "compare/b.hpp"\n',
                             "compare/b.cpp": '#include "board/a.hpp"\n'})

    def test_sees_folders_without_a_place(self):
        self.sees("no place", {"misc/a.cpp": ""})


if __name__ == "__main__":
    unittest.main()
