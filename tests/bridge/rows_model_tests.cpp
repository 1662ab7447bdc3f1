#include "bridge/RowsModel.hpp"
#include "support/words_of_rows.hpp"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <random>

namespace vellix {
namespace {

struct Row {
  std::string key;
  Int value = 0;
  bool operator==(const Row&) const = default;
};
BOOST_DESCRIBE_STRUCT(Row, (), (key, value))

using Model = RowsModel<Row, &Row::key>;

// Writes every row operation down as a short text.
class Operations {
 public:
  explicit Operations(Model& model) {
    QObject::connect(&model, &Model::rowsInserted, &context_, [this](const auto&, int a, int b) {
      all.push_back("insert " + std::to_string(a) + "-" + std::to_string(b));
    });
    QObject::connect(&model, &Model::rowsRemoved, &context_, [this](const auto&, int a, int b) {
      all.push_back("remove " + std::to_string(a) + "-" + std::to_string(b));
    });
    QObject::connect(&model, &Model::rowsMoved, &context_,
                     [this](const auto&, int a, int, const auto&, int to) {
                       all.push_back("move " + std::to_string(a) + ">" + std::to_string(to));
                     });
    QObject::connect(&model, &Model::dataChanged, &context_,
                     [this](const auto& a, const auto&, const QList<int>& roles) {
                       all.push_back("change " + std::to_string(a.row()) + " roles " +
                                     std::to_string(roles.size()));
                     });
    QObject::connect(&model, &Model::modelReset, &context_, [this] { all.push_back("reset"); });
  }
  std::vector<std::string> all;

 private:
  QObject context_;
};

std::vector<Row> rowsOf(const std::string& keys) {
  std::vector<Row> rows;
  for (const char c : keys) rows.push_back({std::string(1, c), 0});
  return rows;
}

struct Transition {
  const char* name;
  const char* from;
  const char* to;
  std::vector<std::string> operations;
};
BOOST_DESCRIBE_STRUCT(Transition, (), (name, from, to, operations))

class RowsModelTransitions : public testing::TestWithParam<Transition> {};

TEST_P(RowsModelTransitions, TakeTheFewestOperations) {
  Model model;
  model.setRows(rowsOf(GetParam().from));
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  Operations operations{model};
  model.setRows(rowsOf(GetParam().to));
  EXPECT_EQ(operations.all, GetParam().operations);
  EXPECT_EQ(model.rows(), rowsOf(GetParam().to));
}

INSTANTIATE_TEST_SUITE_P(
    All, RowsModelTransitions,
    testing::Values(Transition{"Equal", "abc", "abc", {}},
                    Transition{"FromNothing", "", "abc", {"insert 0-2"}},
                    Transition{"ToNothing", "abc", "", {"remove 0-2"}},
                    Transition{"OneGone", "abc", "ac", {"remove 1-1"}},
                    Transition{"TwoRunsGone", "abcde", "c", {"remove 3-4", "remove 0-1"}},
                    Transition{"OneNewInside", "abc", "abxc", {"insert 2-2"}},
                    Transition{"FirstToEnd", "abcd", "bcda", {"move 0>4"}},
                    Transition{"LastToFront", "abcd", "dabc", {"move 3>0"}},
                    Transition{"AllOthers", "abc", "xyz", {"remove 0-2", "insert 0-2"}}),
    [](const auto& each) { return each.param.name; });

TEST(RowsModel, SignalsOneRowAndOneRoleWhenOneFieldDiffers) {
  Model model;
  std::vector<Row> rows;
  for (int i = 0; i < 5'000; ++i) rows.push_back({"k" + std::to_string(i), i});
  model.setRows(rows);
  Operations operations{model};
  rows[1234].value = -1;
  model.setRows(rows);
  EXPECT_EQ(operations.all, std::vector<std::string>{"change 1234 roles 1"});
}

TEST(RowsModel, KeepsTheFirstOfRowsWithTheSameKey) {
  Model model;
  model.setRows({{"a", 1}, {"a", 2}, {"b", 3}});
  EXPECT_EQ(model.rows(), (std::vector<Row>{{"a", 1}, {"b", 3}}));
}

TEST(RowsModel, StaysAValidModelThroughRandomTransitions) {
  std::mt19937 random{7};
  Model model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  for (int round = 0; round < 2'000; ++round) {
    std::string keys = "abcdefghijkl";
    std::ranges::shuffle(keys, random);
    auto rows = rowsOf(keys.substr(0, random() % (keys.size() + 1)));
    for (auto& row : rows) row.value = static_cast<Int>(random() % 3);
    model.setRows(rows);
    ASSERT_EQ(model.rows(), rows);
  }
}

TEST(RowsModel, GivesEveryFieldUnderItsName) {
  Model model;
  model.setRows({{"a", 41}});
  const auto names = model.roleNames();
  const int role = names.key("value");
  EXPECT_EQ(model.data(model.index(0), role).toLongLong(), 41);
  EXPECT_EQ(model.data(model.index(0), names.key("key")).toString(), "a");
  EXPECT_FALSE(model.data(model.index(1), role).isValid());
}

}  // namespace
}  // namespace vellix
