// Targets that a person's figures reach.
#include "profile/milestones.hpp"

#include <gmock/gmock.h>

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

struct MilestoneCase {
  const char* name;
  std::size_t place;
  const char* id;
  const char* icon;
  std::function<void(PersonStats&, Int)> have;
  Int need;
};
BOOST_DESCRIBE_STRUCT(MilestoneCase, (), (name, place, id, icon, need))

class EachMilestone : public testing::TestWithParam<MilestoneCase> {
 protected:
  static MilestoneView with(Int have) {
    PersonStats stats;
    GetParam().have(stats, have);
    return milestones(stats).rows.at(GetParam().place);
  }
};

TEST_P(EachMilestone, HasItsPlaceAndIcon) {
  EXPECT_EQ(with(0).id, GetParam().id);
  EXPECT_EQ(with(0).icon, GetParam().icon);
}

TEST_P(EachMilestone, TellsHowFarItIs) {
  const std::string need = std::to_string(GetParam().need);
  for (const Int have : {Int{0}, GetParam().need - 1}) {
    const auto row = with(have);
    const std::string progress = std::to_string(have) + " of " + need;
    EXPECT_FALSE(row.earned) << have;
    EXPECT_EQ(row.progress, progress);
    EXPECT_DOUBLE_EQ(row.fraction,
                     static_cast<double>(have) / static_cast<double>(GetParam().need));
    EXPECT_EQ(row.spoken, std::string{GetParam().id} + ", " + progress);
  }
}

TEST_P(EachMilestone, IsEarnedFromItsNeedOn) {
  for (const Int have : {GetParam().need, GetParam().need + 1, kMost}) {
    const auto row = with(have);
    EXPECT_TRUE(row.earned) << have;
    EXPECT_EQ(row.progress, "Earned");
    EXPECT_EQ(row.fraction, 1);
    EXPECT_EQ(row.spoken, std::string{GetParam().id} + ", Earned");
  }
}

TEST_P(EachMilestone, TakesACountBelowNoneForNone) {
  for (const Int have : {Int{-1}, kLeast}) EXPECT_EQ(with(have), with(0)) << have;
}

// Nothing else that is counted moves it.
TEST_P(EachMilestone, IsFilledFromOneCounterAlone) {
  PersonStats others{.reviewed = 500,
                     .reviewed_week = 500,
                     .on_time = 500,
                     .on_time_rate = 100,
                     .avg_hours = 500,
                     .issues = 500,
                     .fine = 500,
                     .by_kind = {{"barcode", 500}, {"spots", 500}, {"words", 500}},
                     .notes = 500,
                     .streak = 500,
                     .weekly = {{.start = 0, .count = 500}},
                     .open = 500,
                     .overdue = 500,
                     .reprints = 500,
                     .new_titles = 500};
  GetParam().have(others, 0);
  EXPECT_FALSE(milestones(others).rows.at(GetParam().place).earned);
}

const auto kReviewed = [](PersonStats& stats, Int have) { stats.reviewed = have; };
const auto kIssues = [](PersonStats& stats, Int have) { stats.issues = have; };
const auto kStreak = [](PersonStats& stats, Int have) { stats.streak = have; };
const auto kOnTime = [](PersonStats& stats, Int have) { stats.on_time = have; };
const auto kBarcodes = [](PersonStats& stats, Int have) { stats.by_kind["barcode"] = have; };
const auto kSpots = [](PersonStats& stats, Int have) { stats.by_kind["spots"] = have; };
const auto kNotes = [](PersonStats& stats, Int have) { stats.notes = have; };

INSTANTIATE_TEST_SUITE_P(
    All, EachMilestone,
    testing::Values(
        MilestoneCase{"FirstReview", 0, "First review", "checkmark.seal", kReviewed, 1},
        MilestoneCase{"TenReviews", 1, "10 reviews", "square.stack.3d.up", kReviewed, 10},
        MilestoneCase{"FiftyReviews", 2, "50 reviews", "square.stack.3d.up.fill", kReviewed, 50},
        MilestoneCase{"HundredReviews", 3, "100 reviews", "trophy", kReviewed, 100},
        MilestoneCase{"FirstIssue", 4, "First real issue", "exclamationmark.triangle", kIssues, 1},
        MilestoneCase{"TwentyFiveIssues", 5, "25 issues caught", "scope", kIssues, 25},
        MilestoneCase{"HundredIssues", 6, "100 issues caught", "eye", kIssues, 100},
        MilestoneCase{"ThreeDays", 7, "3 days in a row", "flame", kStreak, 3},
        MilestoneCase{"TenDays", 8, "10 days in a row", "flame.fill", kStreak, 10},
        MilestoneCase{"TenOnTime", 9, "10 on time", "clock.badge.checkmark", kOnTime, 10},
        MilestoneCase{"FirstBarcode", 10, "First barcode catch", "barcode", kBarcodes, 1},
        MilestoneCase{"FirstSpot", 11, "First spot color catch", "paintpalette", kSpots, 1},
        MilestoneCase{"TwentyFiveNotes", 12, "25 notes", "text.bubble", kNotes, 25}),
    [](const auto& each) { return each.param.name; });

TEST(Milestones, CountThoseThatAreEarned) {
  EXPECT_EQ(milestones({}).title, "Milestones 0 of 13");
  EXPECT_EQ(milestones({}).rows.size(), 13U);
  EXPECT_EQ(milestones({.reviewed = 9}).title, "Milestones 1 of 13");
  EXPECT_EQ(milestones({.reviewed = 10, .notes = 25}).title, "Milestones 3 of 13");
  const PersonStats all{.reviewed = 100,
                        .on_time = 10,
                        .issues = 100,
                        .by_kind = {{"barcode", 1}, {"spots", 1}},
                        .notes = 25,
                        .streak = 10};
  EXPECT_EQ(milestones(all).title, "Milestones 13 of 13");
}

TEST(Milestones, TakeAKindThatIsNotToldForNone) {
  const auto rows = milestones({.by_kind = {{"words", 4}}}).rows;
  EXPECT_EQ(rows[10].progress, "0 of 1");
  EXPECT_EQ(rows[11].progress, "0 of 1");
}

TEST(Milestones, AreLostWhereTheFiguresFallBack) {
  EXPECT_TRUE(milestones({.streak = 3}).rows[7].earned);
  EXPECT_FALSE(milestones({.streak = 2}).rows[7].earned);
}

}  // namespace
}  // namespace vellix
