// A ticket's story, told under its versions.
#include "approval/history.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Histories : public ApprovalTest {
 protected:
  Histories() {
    file().supplier = "Halden Press";
    detail = detailOf(file());
  }
  // Of versions that came at these times.
  void came(const std::vector<std::optional<double>>& times) {
    detail.versions.emplace();
    for (std::size_t i = 0; i < times.size(); ++i) {
      Version version = versionOf(static_cast<Int>(i) + 1);
      version.at = times[i];
      detail.versions->push_back(version);
    }
  }
  void happened(std::vector<Event> events) { detail.history = std::move(events); }
  HistoryView view() { return history(store(), detail, desk.time.now(), desk.calendar); }
  // The keys of the events under each version.
  std::vector<std::string> under() {
    std::vector<std::string> all;
    for (const auto& block : view().blocks) {
      std::string keys;
      for (const auto& row : block.rows) keys += row.key;
      all.push_back(keys);
    }
    return all;
  }
  static Event at(Int id, double time, std::string kind = "status") {
    return {.id = id, .at = time, .kind = std::move(kind)};
  }

  FileDetail detail;
};

struct KindCase {
  const char* kind;
  const char* icon;
  const char* tone;
};
BOOST_DESCRIBE_STRUCT(KindCase, (), (kind, icon, tone))

class HistoryKinds : public Histories, public testing::WithParamInterface<KindCase> {};

TEST_P(HistoryKinds, HaveTheirIconAndTone) {
  came({0});
  happened({at(1, 5, GetParam().kind)});
  const auto row = view().blocks[0].rows[0];
  EXPECT_EQ(row.icon, GetParam().icon);
  EXPECT_EQ(row.tone, GetParam().tone);
}

INSTANTIATE_TEST_SUITE_P(
    All, HistoryKinds,
    testing::Values(
        KindCase{"new_file", "paperplane", "gray"}, KindCase{"checked", "magnifyingglass", "blue"},
        KindCase{"comment", "text.bubble", "gray"}, KindCase{"tag", "at", "gray"},
        KindCase{"finding", "exclamationmark.triangle", "gray"},
        KindCase{"status", "checkmark.circle", "gray"}, KindCase{"assign", "person", "gray"},
        KindCase{"due", "clock", "gray"}, KindCase{"track", "arrow.triangle.2.circlepath", "gray"},
        KindCase{"share", "link", "gray"}, KindCase{"approval", "clock", "amber"},
        KindCase{"approved", "checkmark.seal", "green"},
        KindCase{"approved_all", "checkmark.seal", "green"},
        KindCase{"changes", "arrow.uturn.backward", "red"}, KindCase{"sent", "paperplane", "green"},
        KindCase{"version", "arrow.up.doc", "blue"}, KindCase{"resolve", "checkmark", "gray"},
        KindCase{"photo", "circle", "gray"}, KindCase{"", "circle", "gray"}),
    [](const auto& each) {
      return *each.param.kind ? std::string{each.param.kind} : std::string{"none"};
    });

struct TellingCase {
  const char* name;
  std::optional<std::string> by;
  const char* kind;
  std::optional<std::string> text;
  const char* who;
  const char* said;
};
BOOST_DESCRIBE_STRUCT(TellingCase, (), (name, by, kind, text, who, said))

class HistoryRows : public Histories, public testing::WithParamInterface<TellingCase> {};

TEST_P(HistoryRows, TellWhoDidWhat) {
  came({0});
  Event event = at(1, minutesAgo(5), GetParam().kind);
  event.by = GetParam().by;
  event.text = GetParam().text;
  happened({event});
  const auto row = view().blocks[0].rows[0];
  EXPECT_EQ(row.who, GetParam().who);
  EXPECT_EQ(row.said, GetParam().said);
  EXPECT_EQ(row.when, "5 min ago");
  const std::string said = GetParam().said;
  EXPECT_EQ(row.spoken, row.who + (said.empty() ? "" : ", " + said) + ", 5 min ago");
}

INSTANTIATE_TEST_SUITE_P(
    All, HistoryRows,
    testing::Values(
        TellingCase{"Colleague", kJorvas, "status", "Marked reviewed", "Jorvas", "Marked reviewed"},
        TellingCase{"Self", kRenny, "due", "Due Friday", "You", "Due Friday"},
        TellingCase{"Approver", kMara, "approved", "Approved v2", "Mara", "Approved v2"},
        TellingCase{"NobodysStatus", std::nullopt, "status", std::nullopt, "Vellix", ""},
        TellingCase{"NobodysFile", std::nullopt, "new_file", "cover.pdf", "Claude", "cover.pdf"},
        TellingCase{"EmptyAddress", "", "new_file", "", "Claude", ""},
        TellingCase{"NobodysComment", std::nullopt, "comment", "x", "Vellix", "Left a note: “x”"},
        TellingCase{"Comment", kMara, "comment", "Too red?", "Mara", "Left a note: “Too red?”"},
        TellingCase{"CommentWithoutText", kMara, "comment", std::nullopt, "Mara",
                    "Left a note: “”"}),
    [](const auto& each) { return each.param.name; });

struct GroupCase {
  const char* name;
  std::vector<std::optional<double>> versions;
  std::vector<double> events;
  std::vector<std::string> under;
};
BOOST_DESCRIBE_STRUCT(GroupCase, (), (name, versions, events, under))

class HistoryGroups : public Histories, public testing::WithParamInterface<GroupCase> {};

TEST_P(HistoryGroups, GoByTime) {
  came(GetParam().versions);
  std::vector<Event> events;
  for (const double time : GetParam().events) {
    events.push_back(at(static_cast<Int>(events.size()) + 1, time));
  }
  happened(events);
  EXPECT_EQ(under(), GetParam().under);
}

constexpr std::nullopt_t kUntold = std::nullopt;
INSTANTIATE_TEST_SUITE_P(
    All, HistoryGroups,
    testing::Values(GroupCase{"OneVersionHasAll", {50}, {10, 50, 90}, {"123"}},
                    GroupCase{"BeforeTheSecond", {10, 50}, {5, 49}, {"12", ""}},
                    GroupCase{"AtTheSecond", {10, 50}, {50}, {"", "1"}},
                    GroupCase{"AfterTheSecond", {10, 50}, {51}, {"", "1"}},
                    GroupCase{"OneToEach", {10, 50, 90}, {95, 60, 20}, {"3", "2", "1"}},
                    GroupCase{"TheOrderStays", {10, 50}, {30, 20, 70, 60}, {"12", "34"}},
                    GroupCase{"AtTheStart", {10}, {0}, {"1"}},
                    GroupCase{"BeforeTheStart", {10, 50}, {-1}, {"", ""}},
                    GroupCase{"FirstUntold", {kUntold, 50}, {10, 60}, {"1", "2"}},
                    GroupCase{"SecondUntold", {10, kUntold}, {20}, {"1", "1"}},
                    GroupCase{"LastUntold", {10, 50, kUntold}, {20, 60}, {"1", "2", "12"}},
                    GroupCase{"TurnedAround", {50, 10}, {5, 20, 60}, {"1", "23"}}),
    [](const auto& each) { return each.param.name; });

TEST_F(Histories, CountTheVersions) {
  EXPECT_EQ(view().count, "0 versions");
  came({});
  EXPECT_EQ(view().count, "0 versions");
  came({1});
  EXPECT_EQ(view().count, "1 version");
  came({1, 2});
  EXPECT_EQ(view().count, "2 versions");
}

TEST_F(Histories, HeadEachVersion) {
  came({1, 2, 3});
  (*detail.versions)[0].note = " ";
  (*detail.versions)[1].note = "Fixed p25";
  (*detail.versions)[1].by = kJorvas;
  const auto blocks = view().blocks;
  EXPECT_EQ(blocks[0].head, "v1 · Halden Press proof");
  EXPECT_EQ(blocks[0].note, "");
  EXPECT_EQ(blocks[1].head, "v2 · Revision by Jorvas");
  EXPECT_EQ(blocks[1].note, "Fixed p25");
  EXPECT_EQ(blocks[2].head, "v3 · Revision by Claude");
  detail.file.supplier.reset();
  EXPECT_EQ(view().blocks[0].head, "v1 · Supplier proof");
}

TEST_F(Histories, SayThatNothingHasHappened) {
  came({1});
  EXPECT_EQ(view().nothing, "Nothing yet.");
  EXPECT_EQ(view().blocks.size(), 1U);
  happened({});
  EXPECT_EQ(view().nothing, "Nothing yet.");
  happened({at(1, 5)});
  EXPECT_EQ(view().nothing, "");
  detail.versions.reset();
  detail.history.reset();
  EXPECT_EQ(view().nothing, "Nothing yet.");
  EXPECT_THAT(view().blocks, IsEmpty());
}

TEST_F(Histories, TellWhatHappenedToNoKnownVersion) {
  happened({at(1, 5), at(2, 6)});
  for (const auto& none : {std::optional<std::vector<Version>>{}, {std::vector<Version>{}}}) {
    detail.versions = none;
    EXPECT_THAT(under(), ElementsAre("12"));
    EXPECT_EQ(view().blocks[0].head, "");
    EXPECT_EQ(view().nothing, "");
  }
}

}  // namespace
}  // namespace vellix
