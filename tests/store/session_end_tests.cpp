// What was asked in a session that has ended is nobody's in the next one.
#include "store/store_test.hpp"

namespace vellix {
namespace {

struct Deed {
  const char* name;
  std::function<void(Store&)> act;
  const char* line;
};
BOOST_DESCRIBE_STRUCT(Deed, (), (name, line))

FileItem ticket() {
  FileItem file = ticketAt("t1", 1);
  file.assignee = "renny@tessarine.example";
  return file;
}

constexpr const char* kPdf = "/home/renny/rain.pdf";

Note note() {
  Note made;
  made.id = "n1";
  return made;
}

class SessionEnd : public StoreTest, public testing::WithParamInterface<Deed> {
 protected:
  void SetUp() override {
    desk.files.sizes[kPdf] = 9;
    show();
  }
  void show() {
    store().board.set(boardOf({ticket()}));
    store().selection.set({"t1"});
    store().details.set({{"t1", detailOf(ticket(), {findingOf("f1")})}});
    desk.time.run();
  }
  void act() {
    GetParam().act(store());
    desk.time.run();
  }
  // Somebody signs out and in again, and has the same ticket on show.
  void nextSession() {
    store().signOut(false);
    desk.time.run();
    desk.api.setToken("token-2");
    store().signedIn.set(true);
    show();
    sent = desk.http.exchanges.size();
  }
  std::size_t at(const std::string& line) {
    for (std::size_t i = 0; i < desk.http.exchanges.size(); ++i) {
      if (desk.http.exchanges[i].line() == line) return i;
    }
    return desk.http.exchanges.size();
  }
  void expectPeace() {
    EXPECT_FALSE(store().toast());
    EXPECT_EQ(desk.http.exchanges.size(), sent) << "nothing is asked for";
    EXPECT_TRUE(store().signedIn());
    EXPECT_EQ(desk.api.token(), "token-2");
    EXPECT_EQ(store().board(), boardOf({ticket()}));
    EXPECT_TRUE(store().busy().empty());
    EXPECT_TRUE(desk.clipboard.texts.empty());
    EXPECT_TRUE(desk.opener.opened.empty());
  }

  std::size_t sent = 0;
};

class UndoableEnd : public SessionEnd {};

TEST_P(SessionEnd, LeavesTheNextOneInPeaceWithALateYes) {
  act();
  nextSession();
  answer(at(GetParam().line), answerOf(200, "{}"));
  expectPeace();
}

TEST_P(SessionEnd, LeavesTheNextOneInPeaceWithALateNo) {
  for (const HttpResult& no : {HttpResult{answerOf(401)}, HttpResult{answerOf(500)},
                               HttpResult{std::unexpected(HttpError::notConnected)}}) {
    act();
    const std::size_t late = desk.http.exchanges.size() - 1;
    nextSession();
    answer(late, no);
    expectPeace();
  }
}

TEST_P(SessionEnd, KeepsWhatWasAskedInItsLastTurnFromBeingSent) {
  GetParam().act(store());
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(at(GetParam().line), desk.http.exchanges.size());
  EXPECT_FALSE(store().toast());
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(SessionEnd, LeavesTheNextOnesKeysAlone) {
  act();
  nextSession();
  act();
  const std::set<std::string> keys = store().busy();
  const std::size_t second = desk.http.exchanges.size() - 1;
  answer(at(GetParam().line), answerOf(200, "{}"));
  EXPECT_EQ(store().busy(), keys);
  answer(second, answerOf(500));
  for (std::size_t i = second + 1; i < desk.http.exchanges.size(); ++i) answer(i, answerOf(500));
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(UndoableEnd, TakesTheOfferOfAWayBackAway) {
  routes.set(GetParam().line, answerOf(200, "{}"));
  act();
  ASSERT_TRUE(store().toast());
  store().signOut(false);
  EXPECT_FALSE(store().toast());
}

TEST_P(UndoableEnd, TakesTheWayBackAway) {
  routes.set(GetParam().line, answerOf(200, "{}"));
  routes.set(kStateLine, answerOf(304));
  routes.set("GET api/files/t1", answerOf(304));
  act();
  const Toast toast = store().toast().value();
  ASSERT_TRUE(toast.undo);
  nextSession();
  store().toast.set(std::nullopt);
  store().selection.set({"t2"});
  toast.undo();
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), sent);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
}

TEST_P(SessionEnd, OutlivesTheStoreAtEachWait) {
  routes.leaveOpen(kStateLine);
  act();
  const std::size_t first = at(GetParam().line);
  answer(first, answerOf(200, "{}"));  // on to what is fetched then
  desk.endStore();
  for (std::size_t i = first + 1; i < desk.http.exchanges.size(); ++i) {
    answer(i, answerOf(200, jsonOf(boardOf({ticket()}))));
  }
  const std::size_t before = desk.http.exchanges.size();
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), before);
}

TEST_P(SessionEnd, OutlivesTheStoreWhileItIsAsked) {
  act();
  desk.endStore();
  answer(at(GetParam().line), answerOf(200, "{}"));
  EXPECT_EQ(desk.http.count(kStateLine), 0U);
}

const Deed kFinding{"Finding", [](Store& store) { store.setFindingState(findingOf("f1"), "fine"); },
                    "POST api/findings/f1"};
const Deed kStatus{"Status", [](Store& store) { store.setStatus(ticket(), "in_review"); },
                   "POST api/files/t1/status"};
const Deed kAssign{"Assign",
                   [](Store& store) { store.assign(ticket(), "jorvas@tessarine.example"); },
                   "POST api/files/t1/assign"};
const Deed kNote{"Note", [](Store& store) { store.addNote("Move it.", ticket(), 0, {}); },
                 "POST api/comments"};
const Deed kNoteChange{"NoteChange",
                       [](Store& store) { store.updateNote(note(), "Anew", std::nullopt); },
                       "POST api/comments/n1"};
const Deed kDue{"Due", [](Store& store) { store.resetDue(ticket()); }, "POST api/files/t1/due"};
const Deed kApproval{"Approval",
                     [](Store& store) { store.requestApproval(ticket(), {}, "", "notion"); },
                     "POST api/files/t1/approval"};
const Deed kShare{"Share",
                  [](Store& store) { store.setShare(ticket(), true, std::nullopt, false); },
                  "POST api/files/t1/share"};
const Deed kApprovers{"Approvers", [](Store& store) { store.saveApprovers({}); },
                      "POST api/approvers"};
const Deed kRevision{"Revision", [](Store& store) { store.uploadRevision(ticket(), kPdf, ""); },
                     "PUT api/files/t1/versions"};

const auto kNameOf = [](const auto& each) { return each.param.name; };

INSTANTIATE_TEST_SUITE_P(All, SessionEnd,
                         testing::Values(kFinding, kStatus, kAssign, kNote, kNoteChange, kDue,
                                         kApproval, kShare, kApprovers, kRevision),
                         kNameOf);
INSTANTIATE_TEST_SUITE_P(All, UndoableEnd, testing::Values(kFinding, kStatus, kAssign), kNameOf);

}  // namespace
}  // namespace vellix
