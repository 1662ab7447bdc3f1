#include "check/gathered.hpp"

#include <gtest/gtest.h>

namespace vellix::demo {
namespace {

Finding made(Int page, double y, const std::string& title) {
  Finding finding;
  finding.page = page;
  finding.against = "submitted";
  finding.kind = "words";
  finding.severity = "high";
  finding.state = "open";
  finding.title = title;
  finding.box = {0.1, y, 0.2, 0.02};
  return finding;
}

std::vector<std::string> titles(const std::vector<Finding>& all) {
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const Finding& finding : all) names.push_back(finding.title);
  return names;
}

TEST(Gathered, StandInTheOrderOfThePagesAndDownEachOne) {
  std::vector<Finding> all;
  std::set<std::string> told;
  putAmong(all, {made(2, 0.5, "later"), made(0, 0.7, "low")}, "t-v1", "t", told);
  Finding passed = made(0, 0.1, "passed");
  passed.kind = "pass";
  putAmong(all, {made(0, 0.2, "high"), passed, made(1, 0.9, "between")}, "t-v1", "t", told);
  EXPECT_EQ(titles(all), (std::vector<std::string>{"high", "low", "passed", "between", "later"}));
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(all[i].ord, static_cast<Int>(i));
    EXPECT_EQ(all[i].file_id, "t");
  }
}

TEST(Gathered, KeepsADecisionWhenACheckTellsTheSameAgain) {
  std::vector<Finding> all;
  std::set<std::string> told;
  putAmong(all, {made(0, 0.2, "one"), made(0, 0.4, "two")}, "t-v1", "t", told);
  const std::string id = all.front().id;
  all.front().state = "issue";
  all.front().state_by = "renny@tessarine.example";
  all.front().state_at = 5;

  std::set<std::string> again;
  putAmong(all, {made(0, 0.4, "two"), made(0, 0.2, "one")}, "t-v1", "t", again);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all.front().id, id);
  EXPECT_EQ(all.front().state, "issue");
  EXPECT_EQ(all.front().state_by, "renny@tessarine.example");
  EXPECT_EQ(all.back().state, "open");
  EXPECT_EQ(again, told);
}

TEST(Gathered, TellsTwoThatSayTheSameApart) {
  std::vector<Finding> all;
  std::set<std::string> told;
  putAmong(all, {made(0, 0.2, "one"), made(0, 0.2, "one")}, "t-v1", "t", told);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_NE(all.front().id, all.back().id);
}

TEST(Gathered, NamesAnotherVersionsFindingOtherwise) {
  std::vector<Finding> first;
  std::vector<Finding> second;
  std::set<std::string> told;
  std::set<std::string> others;
  putAmong(first, {made(0, 0.2, "one")}, "t-v1", "t", told);
  putAmong(second, {made(0, 0.2, "one")}, "t-v2", "t", others);
  EXPECT_NE(first.front().id, second.front().id);
}

TEST(Gathered, DropsWhatIsNotToldAgainUnlessSomebodyDecidedIt) {
  std::vector<Finding> all;
  std::set<std::string> told;
  putAmong(all, {made(0, 0.2, "gone"), made(0, 0.4, "decided"), made(0, 0.6, "stays")}, "t-v1", "t",
           told);
  all[1].state = "fine";
  all[1].state_by = "renny@tessarine.example";
  std::set<std::string> again;
  putAmong(all, {made(0, 0.6, "stays")}, "t-v1", "t", again);
  dropUntold(all, again);
  EXPECT_EQ(titles(all), (std::vector<std::string>{"decided", "stays"}));
  EXPECT_EQ(all[0].detail, "The last check did not find it again.");
  EXPECT_FALSE(all[1].detail);
  dropUntold(all, again);
  EXPECT_EQ(all[0].detail, "The last check did not find it again.") << "said once";
}

TEST(Gathered, KeepsWhatSomebodyWroteOn) {
  std::vector<Finding> all;
  std::set<std::string> told;
  putAmong(all, {made(0, 0.2, "noted"), made(0, 0.4, "gone")}, "t-v1", "t", told);
  dropUntold(all, {}, {all[0].id});
  EXPECT_EQ(titles(all), std::vector<std::string>{"noted"});
}

TEST(Gathered, SumsUpWhatIsToBeLookedAt) {
  EXPECT_EQ(summaryOf({}, 1), "Nothing differs on 1 page.");
  EXPECT_EQ(summaryOf({}, 12), "Nothing differs on 12 pages.");
  Finding expected = made(3, 0.1, "ours");
  expected.kind = "expected";
  EXPECT_EQ(summaryOf({expected}, 12), "Nothing differs on 12 pages.");
  EXPECT_EQ(summaryOf({made(0, 0.1, "a")}, 1), "One thing to look at on one page.");
  EXPECT_EQ(summaryOf({made(0, 0.1, "a"), made(0, 0.2, "b"), made(4, 0.2, "c"), expected}, 12),
            "3 things to look at on 2 of 12 pages.");
}

}  // namespace
}  // namespace vellix::demo
