// What others did rises as one toast a poll.
#include "store/notices_test.hpp"

namespace vellix {
namespace {

using Notices = NoticesTest;

TEST_F(Notices, TheFirstBoardRaisesNone) {
  std::vector<Event> events;
  for (Int id = 50; id > 0; --id) events.push_back(now(eventOf(id, kBo, "x", "y")));
  pollWith(events);
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 50);
}

TEST_F(Notices, AFirstBoardWithoutEventsLeavesTheNextOneTheFirst) {
  pollWith({});
  EXPECT_EQ(store().seenEvent, 0);
  pollWith({now(eventOf(3, kBo, "x", "y"))});
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 3);
}

TEST_F(Notices, OnlyTheNewestOfSeveralIsTold) {
  beginAt(1);
  pollWith({now(eventOf(4, kBo, "status", "Fourth.")), now(eventOf(3, kBo, "status", "Third.")),
            now(eventOf(2, kBo, "status", "Second."))});
  EXPECT_EQ(desk.toastText(), "Bo: Fourth.");
  EXPECT_FALSE(desk.toast()->undo);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_EQ(store().seenEvent, 4);
}

TEST_F(Notices, OnesOwnDoingsArePassedOverForTheNextNewest) {
  beginAt(1);
  pollWith({now(eventOf(3, kMe, "status", "Mine.")), now(eventOf(2, kBo, "status", "Bo's."))});
  EXPECT_EQ(desk.toastText(), "Bo: Bo's.");
  EXPECT_EQ(store().seenEvent, 3);
}

TEST_F(Notices, OnesOwnDoingsAloneRaiseNone) {
  beginAt(1);
  pollWith({now(eventOf(2, kMe, "status", "Mine."))});
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 2);
}

TEST_F(Notices, WordsThatAreEmptyAreAbsent) {
  beginAt(1);
  struct Case {
    std::optional<std::string> by;
    std::optional<std::string> text;
    std::string told;
  };
  Int id = 1;
  for (const auto& each :
       {Case{kBo, "", "Bo: made a change"}, Case{kBo, "  ", "Bo: made a change"},
        Case{"", "A proof came.", "A proof came."}, Case{"", "", "Something new came in."}}) {
    pollWith({now(eventOf(++id, each.by, "status", each.text))});
    EXPECT_EQ(desk.toastText(), each.told);
  }
}

TEST_F(Notices, WhatHappenedBeforeTheStartRaisesNone) {
  beginAt(1);
  Event old = eventOf(2, kBo, "status", "Old.");
  old.at = wireOf(store().started);
  pollWith({old});
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 2);
  old.id = 3;
  old.at += 1;
  pollWith({old});
  EXPECT_EQ(desk.toastText(), "Bo: Old.");
}

TEST_F(Notices, TurnedOffTheyStillCountAsSeen) {
  beginAt(1);
  store().prefs.liveToasts.set(false);
  const auto event = now(eventOf(2, kBo, "status", "Off."));
  pollWith({event});
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 2);
  store().prefs.liveToasts.set(true);
  pollWith({event});
  EXPECT_FALSE(desk.toast());
}

TEST_F(Notices, ABoardOfOlderEventsNeverTurnsThemBack) {
  beginAt(9);
  pollWith({now(eventOf(4, kBo, "status", "Older."))});
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(store().seenEvent, 9);
  pollWith({});
  EXPECT_EQ(store().seenEvent, 9);
}

TEST_F(Notices, AnUnchangedBoardRaisesNone) {
  beginAt(1);
  pollWith({now(eventOf(2, kBo, "status", "Once."))});
  store().toast.set(std::nullopt);
  poll();  // the tag matches: not modified
  EXPECT_FALSE(desk.toast());
}

TEST_F(Notices, ReplaceTheToastOnShow) {
  beginAt(1);
  store().toast.set(Toast{"Marked fine.", "Undo", [] {}});
  pollWith({now(eventOf(2, kBo, "status", "Newer."))});
  EXPECT_EQ(desk.toastText(), "Bo: Newer.");
}

TEST_F(Notices, OfASessionsGapRiseAfterTheNextSignIn) {
  beginAt(1);
  store().signOut(false);
  desk.time.run();
  desk.tokens.item = "token-2";
  desk.api.setToken("token-2");
  store().resume();
  BoardState board = boardOf({});
  board.events = {now(eventOf(2, "jorvas@tessarine.example", "status", "Meanwhile."))};
  serveBoard(board, "\"gap\"");
  poll();
  EXPECT_EQ(desk.toastText(), "Jorvas Lind: Meanwhile.");
}

struct Wording {
  const char* name;
  std::optional<std::string> by;
  std::string kind;
  std::optional<std::string> text;
  std::string told;
};
BOOST_DESCRIBE_STRUCT(Wording, (), (name, by, kind, text, told))

class NoticeWording : public Notices, public testing::WithParamInterface<Wording> {};

TEST_P(NoticeWording, IsToldSo) {
  beginAt(1);
  pollWith({now(eventOf(2, GetParam().by, GetParam().kind, GetParam().text))});
  EXPECT_EQ(desk.toastText(), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Words, NoticeWording,
    testing::Values(
        Wording{"tag", kBo, "tag", "Tagged Ann: look at p4", "Bo tagged you: look at p4"},
        Wording{"tagTwice", kBo, "tag", "Tagged Ann: a Tagged Ann: b", "Bo tagged you: a b"},
        Wording{"tagNoColon", kBo, "tag", "Tagged Ann", "Bo tagged you: Tagged Ann"},
        Wording{"tagByNobody", std::nullopt, "tag", "Tagged Ann: look", "Vellix tagged you: look"},
        Wording{"tagOfAnother", kBo, "tag", "Tagged Cy: look", "Bo: Tagged Cy: look"},
        Wording{"tagWithoutText", kBo, "tag", std::nullopt, "Bo: made a change"},
        Wording{"action", kBo, "status", "Reviewed The Salt Roads.",
                "Bo: Reviewed The Salt Roads."},
        Wording{"actionWithoutText", kBo, "status", std::nullopt, "Bo: made a change"},
        Wording{"stranger", "cy@else.example", "status", "Came by.", "cy@else.example: Came by."},
        Wording{"nobody", std::nullopt, "status", "It happened.", "It happened."},
        Wording{"nobodyWithoutText", std::nullopt, "status", std::nullopt,
                "Something new came in."},
        Wording{"synced", kBo, "synced", "Two new proofs.", "Two new proofs."},
        Wording{"syncedWithoutText", kBo, "synced", std::nullopt, "Something new came in."},
        Wording{"newFile", kBo, "new_file", "Rain came in.", "Rain came in."},
        Wording{"report", kBo, "report_ready", "Report is ready.", "Report is ready."}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
