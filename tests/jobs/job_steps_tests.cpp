// What is told of the work while it goes on: its steps, and the lines that pass the time.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "jobs/job_block.hpp"

namespace vellix {
namespace {

using Words = std::vector<std::string>;

struct StepsCase {
  const char* name;
  int count;
  const char* earlier;
  Words texts;
};
BOOST_DESCRIBE_STRUCT(StepsCase, (), (name, count, earlier, texts))

class StepsLists : public testing::TestWithParam<StepsCase> {
 protected:
  static Words steps() {
    Words all;
    for (int i = 1; i <= GetParam().count; ++i) all.push_back(std::to_string(i));
    return all;
  }
  static Words texts(const StepsListView& view) {
    Words all;
    for (const StepView& row : view.rows) all.push_back(row.text);
    return all;
  }
};

TEST_P(StepsLists, ShowTheLastFour) {
  const StepsListView view = stepsList(steps(), true);
  EXPECT_EQ(view.earlier, GetParam().earlier);
  EXPECT_EQ(texts(view), GetParam().texts);
}

TEST_P(StepsLists, SpinOnTheLastAloneWhileLive) {
  for (const bool live : {true, false}) {
    const auto rows = stepsList(steps(), live).rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool spins = live && i + 1 == rows.size();
      EXPECT_EQ(rows[i].live, spins);
      EXPECT_EQ(rows[i].icon, spins ? "" : "checkmark.circle.fill");
      EXPECT_EQ(rows[i].tone, spins ? "" : "green");
    }
  }
}

TEST_P(StepsLists, KeepTheirKeysAsMoreCome) {
  Words all = steps();
  all.emplace_back("next");
  const auto rows = stepsList(steps(), true).rows;
  const auto grown = stepsList(all, true).rows;
  for (const StepView& row : rows) {
    const auto same = std::ranges::find(grown, row.key, &StepView::key);
    EXPECT_TRUE(same == grown.end() || same->text == row.text) << row.text;
  }
  EXPECT_EQ(grown.back().text, "next");
  EXPECT_EQ(std::ranges::find(rows, grown.back().key, &StepView::key), rows.end());
}

INSTANTIATE_TEST_SUITE_P(
    All, StepsLists,
    testing::Values(StepsCase{"None", 0, "", {}}, StepsCase{"One", 1, "", {"1"}},
                    StepsCase{"Four", 4, "", {"1", "2", "3", "4"}},
                    StepsCase{"Five", 5, "1 earlier step", {"2", "3", "4", "5"}},
                    StepsCase{"Six", 6, "2 earlier steps", {"3", "4", "5", "6"}},
                    StepsCase{
                        "Many", 1004, "1000 earlier steps", {"1001", "1002", "1003", "1004"}}),
    [](const auto& each) { return each.param.name; });

struct LineCase {
  Int n;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(LineCase, (), (n, text))

class WorkingLines : public testing::TestWithParam<LineCase> {};

TEST_P(WorkingLines, GoRound) { EXPECT_EQ(workingLine("Claude", GetParam().n), GetParam().text); }

constexpr const char* kFirstLine = "Claude is percolating…";
constexpr const char* kLastLine = "Claude is holding it up to the light…";
INSTANTIATE_TEST_SUITE_P(
    All, WorkingLines,
    testing::Values(LineCase{0, kFirstLine}, LineCase{1, "Claude is reading the fine print…"},
                    LineCase{2, "Claude is lining pages up…"},
                    LineCase{3, "Claude is squinting at kerning…"},
                    LineCase{4, "Claude is comparing notes…"},
                    LineCase{5, "Claude is checking the quote marks…"},
                    LineCase{6, "Claude is counting the lines…"}, LineCase{7, kLastLine},
                    LineCase{8, kFirstLine}, LineCase{15, kLastLine},
                    LineCase{8'000'000'001, "Claude is reading the fine print…"},
                    LineCase{-1, kLastLine}, LineCase{-8, kFirstLine},
                    LineCase{std::numeric_limits<Int>::max(), kLastLine},
                    LineCase{std::numeric_limits<Int>::min(), kFirstLine}));

TEST(WorkingLine, SaysWhoIsAtWork) { EXPECT_EQ(workingLine("Olo", 4), "Olo is comparing notes…"); }

}  // namespace
}  // namespace vellix
