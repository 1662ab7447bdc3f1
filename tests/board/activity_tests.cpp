// The board's events, each as one line.
#include "board/activity.hpp"

#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kJorvas = "jorvas@tessarine.example";

class Activity : public StoreTest {
 protected:
  void show(std::vector<Event> events) {
    BoardState board = boardOf({ticketOf("t1"), ticketOf("t2")});
    board.files[0].title = "The Lighthouse";
    board.events = std::move(events);
    store().board.set(board);
  }
  std::vector<ActivityRow> rows() { return activity(store(), desk.time.now(), desk.calendar); }
  Event event(Int id, std::string kind) {
    return {.id = id, .at = wireOf(desk.time.now()), .by = kJorvas, .kind = std::move(kind)};
  }
};

struct Said {
  const char* kind;
  std::optional<std::string> text;
  const char* who;      // with somebody named
  const char* whoElse;  // with nobody named
  const char* sentence;
};
BOOST_DESCRIBE_STRUCT(Said, (), (kind, text, who, whoElse, sentence))

class Sentences : public Activity, public testing::WithParamInterface<Said> {};

TEST_P(Sentences, ReadByKind) {
  const auto& each = GetParam();
  Event named = event(2, each.kind);
  named.text = each.text;
  Event nobodys = named;
  nobodys.id = 1;
  nobodys.by.reset();
  show({named, nobodys});
  EXPECT_EQ(rows()[0].who, each.who);
  EXPECT_EQ(rows()[0].said, each.sentence);
  EXPECT_EQ(rows()[1].who, each.whoElse);
  EXPECT_EQ(rows()[1].said, each.sentence);
}

INSTANTIATE_TEST_SUITE_P(
    All, Sentences,
    testing::Values(
        Said{"comment", "Is this old?", "Jorvas", "Claude", "left a note: “Is this old?”"},
        Said{"comment", std::nullopt, "Jorvas", "Claude", "left a note: “”"},
        Said{"comment", "Große “Frage”", "Jorvas", "Claude", "left a note: “Große “Frage””"},
        Said{"finding", "Marked “A” Fine", "Jorvas", "Claude", "marked “A” Fine"},
        Said{"finding", std::nullopt, "Jorvas", "Claude", ""},
        Said{"status", "Marked reviewed", "Jorvas", "Claude", "marked reviewed"},
        Said{"status", "Öffnete", "Jorvas", "Claude", "öffnete"},
        Said{"sync", "Whatever", "Jorvas", "Claude", "started a sync"},
        Said{"synced", "2 new proofs", "Jorvas", "", "· 2 new proofs"},
        Said{"synced", std::nullopt, "Jorvas", "", "· "},
        Said{"new_file", "Rain came in", "Jorvas", "", "· Rain came in"},
        Said{"report", "Asked for a report", "Jorvas", "Claude", "asked for a report"},
        Said{"report_ready", "Whatever", "Jorvas", "", "· Report ready"},
        Said{"signin", "Whatever", "Jorvas", "Claude", "signed in"},
        Said{"photo", std::nullopt, "Jorvas", "Claude", "changed their photo"},
        Said{"resolve", "Reopened a note", "Jorvas", "Claude", "resolved a note"},
        Said{"stop", "Stopped the sync", "Jorvas", "Claude", "stopped the sync"},
        Said{"assign", "Assigned to Renny", "Jorvas", "Claude", "assigned to Renny"},
        Said{"due", "Set the due date", "Jorvas", "Claude", "set the due date"},
        Said{"track", "Moved to Reprints", "Jorvas", "Claude", "moved to Reprints"},
        Said{"tag", "Tagged Renny", "Jorvas", "Claude", "Tagged Renny"},
        Said{"mystery", std::nullopt, "Jorvas", "Claude", ""}));

TEST_F(Activity, IsNothingWithoutABoardOrEvents) {
  EXPECT_TRUE(rows().empty());
  show({});
  EXPECT_TRUE(rows().empty());
}

TEST_F(Activity, KeepsTheBoardsOrder) {
  show({event(7, "photo"), event(9, "photo"), event(8, "photo")});
  std::vector<std::string> keys;
  for (const auto& row : rows()) keys.push_back(row.key);
  EXPECT_EQ(keys, (std::vector<std::string>{"7", "9", "8"}));
}

TEST_F(Activity, ShowsWhoeverDidIt) {
  Event mine = event(1, "photo");
  mine.by = "renny@tessarine.example";
  Event workers = event(2, "new_file");
  workers.by = "";
  show({mine, event(3, "photo"), workers});
  EXPECT_EQ(rows()[0].who, "You");
  EXPECT_EQ(rows()[0].avatar, avatarOf(mine.by, store()));
  EXPECT_EQ(rows()[1].avatar, avatarOf(kJorvas, store()));
  EXPECT_EQ(rows()[2].who, "") << "an address of nothing is nobody's";
  EXPECT_EQ(rows()[2].avatar, avatarOf(std::nullopt, store()));
}

TEST_F(Activity, TellsWhenAndWhere) {
  Event on = event(1, "status");
  on.at -= 120'000;
  on.file_id = "t1";
  Event onPage = on;
  onPage.page = 11;
  Event onFirst = on;
  onFirst.page = 0;
  Event gone = onPage;
  gone.file_id = "t9";
  Event untitled = on;
  untitled.file_id = "t2";
  Event nowhere = onPage;
  nowhere.file_id.reset();
  show({on, onPage, onFirst, gone, untitled, nowhere});
  std::vector<std::string> places;
  for (const auto& row : rows()) {
    EXPECT_EQ(row.when, "2 min ago");
    places.push_back(row.where);
  }
  EXPECT_EQ(places, (std::vector<std::string>{"The Lighthouse", "The Lighthouse · p12",
                                              "The Lighthouse · p1", "", "Untitled file", ""}));
}

TEST_F(Activity, IsSpokenAsOneSentence) {
  Event told = event(1, "new_file");
  told.by.reset();
  told.text = "Rain came in";
  Event mute = event(2, "mystery");
  Event said = event(3, "signin");
  show({told, mute, said});
  EXPECT_EQ(rows()[0].spoken, "· Rain came in");
  EXPECT_EQ(rows()[1].spoken, "Jorvas");
  EXPECT_EQ(rows()[2].spoken, "Jorvas signed in");
}

TEST_F(Activity, LeadsToTheTicketAndItsPage) {
  Event onPage = event(1, "comment");
  onPage.file_id = "t2";
  onPage.page = 4;
  Event on = event(2, "status");
  on.file_id = "t1";
  show({onPage, on});
  store().selection.set({"t1", "t2"});
  store().focus.set("f1");
  store().page.set({{"t1", 3}});
  EXPECT_TRUE(openEvent(store(), "1"));
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_EQ(store().page().at("t2"), 4);
  EXPECT_EQ(store().focus(), std::nullopt);
  EXPECT_TRUE(openEvent(store(), "2"));
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
  EXPECT_EQ(store().page().at("t1"), 3) << "where it was";
}

TEST_F(Activity, TakesAPageBeforeTheFirstForTheFirst) {
  for (const Int page : {Int{-1}, Int{-7}, std::numeric_limits<Int>::min()}) {
    Event before = event(1, "comment");
    before.file_id = "t1";
    before.page = page;
    show({before});
    EXPECT_EQ(rows()[0].where, "The Lighthouse · p1") << page;
    EXPECT_TRUE(openEvent(store(), "1"));
    EXPECT_EQ(store().page().at("t1"), 0) << page;
  }
}

TEST_F(Activity, LeadsNowhereWithoutATicketOfTheBoard) {
  Event gone = event(1, "comment");
  gone.file_id = "t9";
  gone.page = 4;
  show({gone, event(2, "signin")});
  store().selection.set({"t1"});
  for (const char* key : {"1", "2", "3", ""}) EXPECT_FALSE(openEvent(store(), key)) << key;
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
  EXPECT_TRUE(store().page().empty());
  store().board.set(std::nullopt);
  EXPECT_FALSE(openEvent(store(), "1"));
}

}  // namespace
}  // namespace vellix
