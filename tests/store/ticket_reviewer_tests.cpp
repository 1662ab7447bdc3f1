// Handing a ticket to a reviewer.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kPost = "POST api/files/t1/assign";
constexpr const char* kRenny = "renny@tessarine.example";
constexpr const char* kJorvas = "jorvas@tessarine.example";

class TicketReviewer : public StoreTest {
 protected:
  void SetUp() override { routes.set("GET api/files/t1", answerOf(304)); }
  FileItem of(std::optional<std::string> assignee) {
    FileItem file = ticketOf("t1");
    file.assignee = std::move(assignee);
    return file;
  }
  void assign(const FileItem& file, const std::string& email) {
    store().assign(file, email);
    desk.time.run();
  }
  void show(const FileItem& file) { store().board.set(boardOf({file})); }
};

TEST_F(TicketReviewer, ChangesWithTheBoardAlone) {
  show(of(kRenny));
  store().etag = "\"b1\"";
  assign(of(kRenny), kJorvas);
  EXPECT_EQ(store().board(), boardOf({of(kRenny)}));
  EXPECT_THAT(store().busy(), ElementsAre("assign"));
  EXPECT_FALSE(store().toast());
  ASSERT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(desk.http.exchanges[0].request.body, R"({"email":"jorvas@tessarine.example"})");
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Assigned to Jorvas.");
  ASSERT_THAT(lines(), ElementsAre(kPost, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre("assign"));
  answer(1, answerOf(200, jsonOf(boardOf({of(kJorvas)}))));
  EXPECT_EQ(store().board()->files[0].assignee, kJorvas);
  EXPECT_TRUE(store().busy().empty());
}

struct AssignCase {
  const char* name;
  std::optional<std::string> before;
  const char* email;
  const char* text;
  bool undoable;
};
BOOST_DESCRIBE_STRUCT(AssignCase, (), (name, before, email, text, undoable))

class Assigned : public TicketReviewer, public testing::WithParamInterface<AssignCase> {};

TEST_P(Assigned, SaysToWhomAndOffersTheWayBackWhereThereIsOne) {
  BoardState board = boardOf({of(GetParam().before)});
  board.users.push_back({.email = "mono@tessarine.example", .name = "Mononym"});
  store().board.set(board);
  assign(of(GetParam().before), GetParam().email);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_EQ(desk.toast()->undoLabel.has_value(), GetParam().undoable);
  EXPECT_EQ(static_cast<bool>(desk.toast()->undo), GetParam().undoable);
}

INSTANTIATE_TEST_SUITE_P(
    All, Assigned,
    testing::Values(
        AssignCase{"FromAnother", kRenny, kJorvas, "Assigned to Jorvas.", true},
        AssignCase{"FromNobody", std::nullopt, kJorvas, "Assigned to Jorvas.", false},
        AssignCase{"ToTheSame", kJorvas, kJorvas, "Assigned to Jorvas.", false},
        AssignCase{"OneName", kRenny, "mono@tessarine.example", "Assigned to Mononym.", true},
        AssignCase{"ToAStranger", kRenny, "who@tessarine.example", "Assigned to them.", true}),
    [](const auto& each) { return each.param.name; });

TEST_F(TicketReviewer, GoesBackToWhoItWas) {
  show(of(kRenny));
  routes.set(kPost, answerOf(200, "{}"));
  serveBoard(boardOf({of(kJorvas)}));
  assign(of(kRenny), kJorvas);
  serveBoard(boardOf({of(kRenny)}));
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(desk.http.matching(kPost).back()->request.body,
            R"({"email":"renny@tessarine.example"})");
  EXPECT_EQ(desk.toastText(), "Assigned to Renny.");
  EXPECT_FALSE(desk.toast()->undoLabel) << "the ticket as it was first had that reviewer";
}

TEST_F(TicketReviewer, WithoutABoardIsThem) {
  assign(of(std::nullopt), kJorvas);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Assigned to them.");
}

struct RefusedAssign {
  const char* name;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(RefusedAssign, (), (name, text))

class RefusedAssigns : public TicketReviewer, public testing::WithParamInterface<RefusedAssign> {};

TEST_P(RefusedAssigns, ChangeNothing) {
  show(of(kRenny));
  assign(of(kRenny), kJorvas);
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(store().board(), boardOf({of(kRenny)}));
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().signedIn());
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedAssigns,
    testing::Values(
        RefusedAssign{"Refused", answerOf(409, R"({"error":"They left."})"), "They left."},
        RefusedAssign{"Broken", answerOf(500), kRefusedText},
        RefusedAssign{"SignedOut", answerOf(401), kSignedOutText},
        RefusedAssign{"Offline", std::unexpected(HttpError::notConnected), kOfflineText}),
    [](const auto& each) { return each.param.name; });

TEST_F(TicketReviewer, ThatJsonCannotHoldDidNotSave) {
  assign(of(kRenny), "\xff");
  EXPECT_EQ(desk.toastText(), "That didn't save.");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(TicketReviewer, OutlivesASignOutInTheMiddle) {
  show(of(kRenny));
  assign(of(kRenny), kJorvas);
  store().signOut(false);
  const auto sent = desk.http.exchanges.size();
  answer(0, answerOf(200, "{}"));
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(desk.http.count(kStateLine), 0U);
  EXPECT_LE(desk.http.exchanges.size(), sent + 1) << "but the sign-out itself";
  EXPECT_TRUE(store().busy().empty());
}

}  // namespace
}  // namespace vellix
