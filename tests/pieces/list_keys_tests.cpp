// Which key means which step through a list.
#include "pieces/ListKeys.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

TEST(ListKeys, GoByLinesByPagesAndAllTheWay) {
  struct Case {
    const char* name;
    int key;
    qreal by;
  };
  for (const Case& each : {Case{"Up", Qt::Key_Up, -1},
                           {"Down", Qt::Key_Down, 1},
                           {"Page Up", Qt::Key_PageUp, -7.5},
                           {"Page Down", Qt::Key_PageDown, 7.5},
                           {"Home", Qt::Key_Home, -90},
                           {"End", Qt::Key_End, 90},
                           {"Left", Qt::Key_Left, 0},
                           {"Right", Qt::Key_Right, 0},
                           {"Return", Qt::Key_Return, 0},
                           {"Tab", Qt::Key_Tab, 0},
                           {"a letter", Qt::Key_A, 0}}) {
    EXPECT_EQ(ListKeys::by(each.key, 1, 7.5, 90), each.by) << each.name;
  }
}

}  // namespace
}  // namespace vellix
