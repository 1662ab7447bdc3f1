#include "platform/qt/QtUuids.hpp"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace vellix {
namespace {

TEST(QtUuids, AreRandomAndInTextForm) {
  const std::string one = QtUuids{}.fresh();
  const std::string two = QtUuids{}.fresh();
  EXPECT_NE(one, two);
  const QRegularExpression form{
      "^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$"};
  EXPECT_TRUE(form.match(QString::fromStdString(one)).hasMatch()) << one;
}

}  // namespace
}  // namespace vellix
