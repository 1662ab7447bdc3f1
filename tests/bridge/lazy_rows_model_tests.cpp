// Rows that are made as they are asked for: what is told, and how many are made.
#include "bridge/LazyRowsModel.hpp"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "views/operations.hpp"

namespace vellix {
namespace {

struct Line {
  std::string key;
  Int number = 0;
  bool operator==(const Line&) const = default;
};

struct Row {
  std::string key;
  Int tens = 0;
  Int hour = 0;
  bool operator==(const Row&) const = default;
};
BOOST_DESCRIBE_STRUCT(Row, (), (key, tens, hour))

using Lines = std::vector<Line>;
using Told = std::vector<std::string>;

class LazyRows : public testing::Test {
 protected:
  static Lines many(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) lines.push_back({std::to_string(i), Int{10} * i});
    return lines;
  }
  QVariant held(int row) { return fieldOf(&model, row, "kept"); }
  Int tensAt(int row) { return fieldOf(&model, row, "tens").toLongLong(); }
  Int hourAt(int row) { return fieldOf(&model, row, "hour").toLongLong(); }

  int made = 0;
  Int hour = 1;
  LazyRowsModel<Row, Line, &Line::key> model{[this](const Line& line) {
    ++made;
    return Row{line.key, line.number / 10, hour};
  }};
};

TEST_F(LazyRows, MakeNothingThatNobodyAsksFor) {
  model.setLines(many(10'000));
  EXPECT_EQ(model.rowCount(), 10'000);
  EXPECT_EQ(made, 0);
  EXPECT_EQ(tensAt(5'000), 5'000);
  EXPECT_EQ(fieldOf(&model, 5'000, "key"), "5000");
  EXPECT_EQ(made, 1) << "once for all its fields";
  made = 0;
  model.setLines(many(10'000));
  EXPECT_EQ(made, 1) << "what was asked for alone is looked at again";
  EXPECT_FALSE(model.data({}, Qt::UserRole + 1).isValid());
}

TEST_F(LazyRows, TellOfALineThatChangesWhetherItWasAskedForOrNot) {
  auto lines = many(10'000);
  model.setLines(lines);
  tensAt(1);
  made = 0;
  Operations operations{&model};
  lines[1].number = 70;
  lines[9'000].number = 70;
  model.setLines(lines);
  EXPECT_EQ(operations.take(), (Told{"change 1-1 tens", "change 9000-9000 tens"}));
  EXPECT_LE(made, 3) << "one at hand, and what the other was and is";
  EXPECT_EQ(tensAt(1), 7);
  EXPECT_EQ(tensAt(9'000), 7);
}

TEST_F(LazyRows, TellNothingOfALineThatMakesTheSameRow) {
  auto lines = many(3);
  model.setLines(lines);
  tensAt(0);
  Operations operations{&model};
  lines[0].number = 3;
  lines[2].number = 23;
  model.setLines(lines);
  EXPECT_EQ(operations.take(), Told{});
}

TEST_F(LazyRows, TellWhatTimeHasChangedOfWhatWasAskedFor) {
  model.setLines(many(100));
  hourAt(4);
  Operations operations{&model};
  hour = 2;
  model.setLines(many(100));
  EXPECT_EQ(operations.take(), Told{"change 4-4 hour"});
  EXPECT_EQ(hourAt(4), 2);
  EXPECT_EQ(hourAt(5), 2);
}

TEST_F(LazyRows, GoOnTellingOfARowAsLongAsItIsHeld) {
  model.setLines(many(1'000));
  const QVariant kept = held(500);
  for (int row = 0; row < 400; ++row) hourAt(row);
  made = 0;
  hour = 2;
  Operations operations{&model};
  model.setLines(many(1'000));
  const auto told = operations.take();
  EXPECT_EQ(told.back(), "change 500-500 hour");
  EXPECT_LT(made, 100) << "most of those that were let go are not made again";
  made = 0;
  EXPECT_EQ(hourAt(500), 2);
  EXPECT_EQ(made, 0) << "it is at hand";
}

TEST_F(LazyRows, KeepARowThatIsHeldWhereverItGoes) {
  model.setLines({{"a", 10}, {"b", 20}, {"c", 30}});
  const QVariant kept = held(2);
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  Operations operations{&model};
  made = 0;
  model.setLines({{"c", 40}, {"x", 50}, {"b", 20}});
  EXPECT_EQ(operations.take(), (Told{"remove 0-0", "move 1>0", "insert 1-1", "change 0-0 tens"}));
  made = 0;
  EXPECT_EQ(tensAt(0), 4);
  EXPECT_EQ(made, 0);
  EXPECT_EQ(tensAt(1), 5);
}

TEST_F(LazyRows, ForgetTheRowOfALineThatHasGone) {
  model.setLines({{"a", 10}, {"b", 20}});
  const QVariant kept = held(0);
  model.setLines({{"b", 20}});
  EXPECT_EQ(tensAt(0), 2);
  model.setLines({{"a", 50}, {"b", 20}});
  EXPECT_EQ(tensAt(0), 5);
  EXPECT_EQ(tensAt(1), 2);
}

}  // namespace
}  // namespace vellix
