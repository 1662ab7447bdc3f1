"""The check above must see Qt where it is, and nothing where it is not."""

import unittest

from core_is_qt_free import arguments_in_reach, symbols_of_qt


class Reach(unittest.TestCase):
    def test_sees_paths_and_definitions(self):
        for argument in ("-I/usr/include/x86_64-linux-gnu/qt6",
                         "-isystem /usr/include/x86_64-linux-gnu/qt6/QtCore",
                         "-isystem/opt/qt/6.4.2/include", "-DQT_CORE_LIB", "-D QT_NO_DEBUG"):
            self.assertTrue(arguments_in_reach(f"g++ {argument} -c a.cpp -o a.o"), argument)

    def test_is_quiet_about_the_rest(self):
        command = ("g++ -I/work/src -isystem /usr/include/boost -DNDEBUG -DBOOST_QTZ=1 -std=c++23 "
                   "-o src/CMakeFiles/vellix_core.dir/platform/qtish.cpp.o -c /work/src/board/a.cpp")
        self.assertEqual(arguments_in_reach(command), [])


class Symbols(unittest.TestCase):
    def test_sees_qt(self):
        listing = """
                 U QString::append(QString const&)
                 U qt_assert(char const*, char const*, int)
                 U vellix::show(QObject*)
                 U QArrayData::shared_null
                 U Qt::endl(QTextStream&)
                 w qRegisterResourceData(int, unsigned char const*)
"""
        self.assertEqual(len(symbols_of_qt(listing)), 6)

    def test_is_quiet_about_the_rest(self):
        listing = """
file_row.cpp.o:
                 U operator new(unsigned long)
                 U std::__cxx11::basic_string<char>::_M_append(char const*, unsigned long)
                 U vellix::QueueView::rows() const
                 U vellix::Store::queue[abi:cxx11]() const
                 U qsort
0000000000000000 T QString::append(QString const&)
"""
        self.assertEqual(symbols_of_qt(listing), [])


if __name__ == "__main__":
    unittest.main()
