// The real issues that a person has marked, by the kind of finding, as bars.
#include "profile/issue_bars.hpp"

#include <gmock/gmock.h>

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(IssueBars, SayThatThereAreNone) {
  const std::vector<std::map<std::string, Int>> none{
      {}, {{"words", 0}}, {{"words", 0}, {"size", -3}}, {{"words", kLeast}}};
  for (const auto& byKind : none) {
    const auto bars = issueBars(byKind);
    EXPECT_EQ(bars.none, "None marked as a real issue yet.");
    EXPECT_THAT(bars.rows, IsEmpty());
  }
}

TEST(IssueBars, AreMeasuredByTheLargest) {
  const auto bars = issueBars({{"words", 8}, {"barcode", 2}, {"size", 4}});
  EXPECT_EQ(bars.none, "");
  EXPECT_THAT(bars.rows, ElementsAre(IssueBarView{"words", "Words", 1, "8", "Words: 8"},
                                     IssueBarView{"size", "Size", 0.5, "4", "Size: 4"},
                                     IssueBarView{"barcode", "Barcode", 0.25, "2", "Barcode: 2"}));
}

struct OrderCase {
  const char* name;
  std::map<std::string, Int> byKind;
  std::vector<std::string> kinds;
};
BOOST_DESCRIBE_STRUCT(OrderCase, (), (name, byKind, kinds))

class IssueOrders : public testing::TestWithParam<OrderCase> {};

TEST_P(IssueOrders, GoByCountWordAndKind) {
  std::vector<std::string> kinds;
  for (const auto& row : issueBars(GetParam().byKind).rows) kinds.push_back(row.kind);
  EXPECT_EQ(kinds, GetParam().kinds);
}

INSTANTIATE_TEST_SUITE_P(All, IssueOrders,
                         testing::Values(OrderCase{"TheMostFirst",
                                                   {{"barcode", 1}, {"size", 2}, {"words", 3}},
                                                   {"words", "size", "barcode"}},
                                         OrderCase{"ThenByTheWord",
                                                   {{"breaks", 2}, {"expected", 2}, {"picture", 2}},
                                                   {"picture", "breaks", "expected"}},
                                         OrderCase{"ThenByTheKind",
                                                   {{"missing_page", 2}, {"extra_page", 2}},
                                                   {"extra_page", "missing_page"}},
                                         OrderCase{"NoneAndBelowNoneLast",
                                                   {{"barcode", -9}, {"fonts", 0}, {"words", 1}},
                                                   {"words", "barcode", "fonts"}}),
                         [](const auto& each) { return each.param.name; });

TEST(IssueBars, HaveARowForEachKindAlsoWithoutAnIssue) {
  const auto bars = issueBars({{"words", 4}, {"size", 0}, {"fonts", -1}});
  ASSERT_EQ(bars.rows.size(), 3U);
  EXPECT_EQ(bars.rows[1], (IssueBarView{"fonts", "Fonts", 0, "0", "Fonts: 0"}));
  EXPECT_EQ(bars.rows[2], (IssueBarView{"size", "Size", 0, "0", "Size: 0"}));
}

TEST(IssueBars, CallUnknownKindsOther) {
  const auto bars = issueBars({{"", 1}, {"mystery", kMost}});
  EXPECT_THAT(bars.rows,
              ElementsAre(IssueBarView{"mystery", "Other", 1, "9223372036854775807",
                                       "Other: 9223372036854775807"},
                          IssueBarView{"", "Other", 1 / 9223372036854775807.0, "1", "Other: 1"}));
}

}  // namespace
}  // namespace vellix
