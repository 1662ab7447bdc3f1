// Each field of the figures, the update feed and the sign-in answer, with the right value.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

TEST(StatsValues, OfAPersonsFigures) {
  const auto stats = decoded<Stats>(fullDocument("PersonStats"));
  EXPECT_EQ(stats.at, 1.5);
  ASSERT_EQ(stats.users.size(), 1u);
  const auto& ann = stats.users.at("ann@x.example");
  EXPECT_EQ(ann.reviewed, 101);
  EXPECT_EQ(ann.reviewed_week, 7);
  EXPECT_EQ(ann.on_time, 90);
  EXPECT_EQ(ann.on_time_rate, 89);
  EXPECT_EQ(ann.avg_hours, 5.25);
  EXPECT_EQ(ann.issues, 33);
  EXPECT_EQ(ann.fine, 44);
  EXPECT_EQ(ann.by_kind, (std::map<std::string, Int>{{"barcode", 2}, {"text", 31}}));
  EXPECT_EQ(ann.notes, 55);
  EXPECT_EQ(ann.streak, 6);
  EXPECT_EQ(ann.weekly, (std::vector{WeekCount{.start = 1.5, .count = 2},
                                     WeekCount{.start = 2.5, .count = 5}}));
  EXPECT_EQ(ann.open, 8);
  EXPECT_EQ(ann.overdue, 1);
  EXPECT_EQ(ann.reprints, 3);
  EXPECT_EQ(ann.new_titles, 4);
  EXPECT_EQ(ann.mentions,
            (std::vector{Mention{.file_id = "f1", .page = {}, .text = "t", .by = "b", .at = 3.5}}));
}

TEST(StatsValues, OfAWeekAndAMention) {
  const auto weeks = decoded<Stats>(fullDocument("WeekCount"));
  EXPECT_EQ(weeks.users.at("ann@x.example").weekly,
            (std::vector{WeekCount{.start = 1700000000020.5, .count = 12}}));
  const auto mentions = decoded<Stats>(fullDocument("Mention"));
  EXPECT_EQ(mentions.users.at("ann@x.example").mentions,
            (std::vector{Mention{.file_id = "f1",
                                 .page = 9,
                                 .text = "Ann, look",
                                 .by = "bo@x.example",
                                 .at = 1700000000018.5}}));
}

TEST(StatsValues, OfTheUpdateFeed) {
  EXPECT_EQ(decoded<VersionInfo>(fullDocument("VersionInfo")),
            (VersionInfo{.version = "1.4",
                         .build = 140,
                         .url = "https://x.example/p.zip",
                         .notes = "Faster",
                         .min_build = 120}));
}

TEST(StatsValues, OfTheSignInAnswer) {
  EXPECT_EQ(decoded<SignInAnswer>(fullDocument("SignInAnswer")),
            (SignInAnswer{.token = "secret", .me = {.email = "ann@x.example", .name = "Ann Lee"}}));
}

TEST(StatsEdges, APersonWithoutMentionsFailsTheWholeAnswer) {
  const auto stats = decode<Stats>(
      R"({"at":1,"users":{"ann":{"reviewed":1,"reviewed_week":1,"on_time":1,"issues":0,"fine":0,
          "by_kind":{},"notes":0,"streak":0,"weekly":[],"open":0,"overdue":0,"reprints":0,
          "new_titles":0}}})");
  ASSERT_FALSE(stats);
  EXPECT_EQ(stats.error().where, "users.ann.mentions");
}

TEST(StatsEdges, ManyPeopleAreKeyedByTheirAddress) {
  const auto one = objectOf({{"reviewed", Presence::required, "1"}});
  const auto stats = decode<Stats>(R"({"at":1,"users":{"a":)" + one + R"(,"b":7}})");
  ASSERT_FALSE(stats);
  EXPECT_EQ(stats.error().where, "users.a.reviewed_week") << "the first bad one is named";
}

}  // namespace
}  // namespace vellix::test
