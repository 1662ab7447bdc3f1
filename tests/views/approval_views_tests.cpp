// The approval's views in windows of their own, used as a reviewer would.
#include <QGuiApplication>
#include <QQuickItem>
#include <QStyleHints>
#include <QTest>

#include "views/approval_views_test.hpp"

namespace vellix {
namespace {

class ApprovalViews : public ApprovalViewsTest {};

TEST_F(ApprovalViews, SendByKeyAlone) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  EXPECT_EQ(focused(), "Address") << "the first field";
  key(Qt::Key_Tab);
  EXPECT_EQ(focused(), "Name");
  key(Qt::Key_Tab);
  EXPECT_EQ(focused(), "A line for them") << "there is nothing to add";
  type("Look at p3");
  key(Qt::Key_Return);
  EXPECT_TRUE(closes("Send v1 for approval"));
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_EQ(posted()[0], R"(POST api/files/t1/approval {"action":"request",)"
                         R"("approvers":["mara@tessarine.example","olo@tessarine.example"],)"
                         R"("note":"Look at p3"})");
}

TEST_F(ApprovalViews, SendNothingByTheSecondOfTwoQuickPresses) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  key(Qt::Key_Return);
  EXPECT_TRUE(posted().empty()) << "it opened the sheet and no more";
  type("rina@tessarine.example");
  key(Qt::Key_Return);
  key(Qt::Key_Return);
  EXPECT_EQ(posted().size(), 1U) << "she was added and nothing was sent out";
  EXPECT_TRUE(send_.open());
}

TEST_F(ApprovalViews, SendByReturnBehindALineWrittenAtOnce) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  type("Look at p3");
  key(Qt::Key_Return);
  EXPECT_TRUE(closes("Send v1 for approval")) << "nobody presses twice and writes between";
  EXPECT_EQ(posted().size(), 1U);
}

TEST_F(ApprovalViews, SendNothingThatChangedWhileALineWasWritten) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  type("Look at ");
  change([](BoardState& board) { board.files[0].version = 2; });
  ASSERT_TRUE(opens("Send v2 for approval"));
  type("p3");
  key(Qt::Key_Return);
  EXPECT_TRUE(posted().empty());
  EXPECT_TRUE(send_.open());
}

TEST_F(ApprovalViews, SendNothingThatChangedUnderTheFinger) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  change([](BoardState& board) { board.files[0].version = 2; });
  ASSERT_TRUE(opens("Send v2 for approval"));
  key(Qt::Key_Return);
  EXPECT_TRUE(posted().empty());
  EXPECT_TRUE(send_.open());
}

TEST_F(ApprovalViews, SendByReturnOnABoxToo) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  QTest::keyClick(window(), Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_EQ(focused(), "Olo Brandt");
  key(Qt::Key_Space);
  EXPECT_TRUE(posted().empty());
  key(Qt::Key_Return);
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_TRUE(posted()[0].find(kMara) != std::string::npos);
  EXPECT_TRUE(posted()[0].find(kOlo) == std::string::npos) << "Space had unticked them";
}

TEST_F(ApprovalViews, GiveTheKeyboardBack) {
  showCard();
  window()->contentItem()->nextItemInFocusChain(true)->forceActiveFocus(Qt::TabFocusReason);
  for (int i = 0; i < 4 && focused() != "Send for approval"; ++i) key(Qt::Key_Tab);
  ASSERT_EQ(focused(), "Send for approval");
  key(Qt::Key_Space);
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  key(Qt::Key_Escape);
  EXPECT_TRUE(closes("Send v1 for approval"));
  settle();
  EXPECT_EQ(focused(), "Send for approval");
  EXPECT_FALSE(send_.open());
}

TEST_F(ApprovalViews, AddAnApproverWithoutSending) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  type("rina");
  key(Qt::Key_Return);
  EXPECT_TRUE(posted().empty()) << "half an address sends nothing out";
  EXPECT_TRUE(send_.open());
  type("@tessarine.example");
  key(Qt::Key_Return);
  EXPECT_EQ(send_.adding(), "");
  EXPECT_EQ(focused(), "Address");
  EXPECT_TRUE(has("rina", QAccessible::CheckBox));
  EXPECT_EQ(posted().size(), 1U);
}

TEST_F(ApprovalViews, KeepWhatIsTypedInTheSheet) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  type("rin");
  change([](BoardState& board) {
    board.files[0].version = 2;
    board.approvers->push_back({.email = "teva@tessarine.example"});
  });
  EXPECT_TRUE(has("Send v2 for approval", QAccessible::Dialog));
  EXPECT_EQ(send_.adding(), "rin");
  EXPECT_EQ(focused(), "Address");
  type("a");
  EXPECT_EQ(send_.adding(), "rina");
}

TEST_F(ApprovalViews, CloseTheSheetWithTheSession) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  store().signOut(true);
  settle();
  EXPECT_TRUE(closes("Send v1 for approval"));
}

TEST_F(ApprovalViews, SayThatTheTicketHasGone) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  change([](BoardState& board) { board.files.erase(board.files.begin()); });
  EXPECT_TRUE(has("Send v1 for approval", QAccessible::Dialog));
  EXPECT_TRUE(has("This ticket isn't on the board any more.", QAccessible::AlertMessage));
  EXPECT_EQ(reader().enabled("Send for approval"), 0);
}

TEST_F(ApprovalViews, UploadWhatIsChosen) {
  showCard();
  ASSERT_TRUE(press("Upload revision"));
  ASSERT_TRUE(opens("Upload v2"));
  settle();
  EXPECT_EQ(focused(), "What changed");
  key(Qt::Key_Return);
  EXPECT_TRUE(upload_.open()) << "there is no file yet";
  type("Fixed p25");
  upload_.choose(QUrl::fromLocalFile("/proofs/new.pdf"));
  desk.files.sizes["/proofs/new.pdf"] = 10;
  settle();
  EXPECT_TRUE(has("new.pdf", QAccessible::StaticText));
  key(Qt::Key_Return);
  EXPECT_TRUE(closes("Upload v2"));
  ASSERT_EQ(desk.http.count("PUT api/files/t1/versions"), 1U);
  EXPECT_EQ(desk.http.matching("PUT")[0]->header("x-note"), "Fixed%20p25");
}

TEST_F(ApprovalViews, FitASmallWindow) {
  change([](BoardState& board) {
    for (int i = 0; i < 30; ++i) {
      board.approvers->push_back({.email = "a" + std::to_string(i) + "@tessarine.example"});
    }
  });
  showCard({760, 540});
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  for (const char* button : {"Cancel", "Send for approval"}) {
    const auto* found = reader().find(button, QAccessible::Button);
    ASSERT_TRUE(found) << button;
    EXPECT_LE(found->rect().bottom() - window()->position().y(), 540) << button;
  }
}

TEST_F(ApprovalViews, ReadEachAnswerOut) {
  change([](BoardState& board) { board.files[0].approval = "pending"; });
  FileDetail detail = lighthouse();
  detail.approval = Approval{.asked = {kMara, kOlo}};
  detail.approval->answers[kMara] = {.kind = "approved"};
  store().details.edit([&](auto& all) { all["t1"] = detail; });
  showCard();
  EXPECT_TRUE(has("Waiting on Olo", QAccessible::Heading));
  EXPECT_TRUE(has("Mara, Approved", QAccessible::ListItem));
  EXPECT_TRUE(has("Olo, Waiting", QAccessible::ListItem));
}

TEST_F(ApprovalViews, SwitchTheLink) {
  show("Approval/ShareButton", {{"share", QVariant::fromValue(&share_)}}, {760, 540});
  theme()->setReducedMotion(true);
  ASSERT_TRUE(press("Share"));
  ASSERT_TRUE(opens("Share link"));
  EXPECT_FALSE(has("Copy link", QAccessible::Button));
  ASSERT_TRUE(press("Share link", QAccessible::CheckBox));
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_EQ(posted()[0], R"(POST api/files/t1/share {"enabled":true})");
  store().busy.set({});
  change(shareIt);
  EXPECT_TRUE(has("Shared", QAccessible::Button));
  ASSERT_TRUE(press("Copy link"));
  EXPECT_EQ(desk.clipboard.texts.back(), "https://proofs.example/s/1");
  ASSERT_TRUE(press("Make a new link"));
  EXPECT_TRUE(has("Make a new link?", QAccessible::Button));
  change([](BoardState& board) { board.files.erase(board.files.begin()); });
  EXPECT_TRUE(closes("Share link"));
}

TEST_F(ApprovalViews, TellTheStory) {
  FileDetail detail = lighthouse();
  detail.versions = std::vector<Version>{{.n = 1, .status = "done"}};
  detail.history = std::vector<Event>{{.id = 1,
                                       .at = wireOf(desk.time.now()),
                                       .by = "jorvas@tessarine.example",
                                       .kind = "comment",
                                       .text = "Too red?"}};
  store().details.edit([&](auto& all) { all["t1"] = detail; });
  show("Approval/HistoryList", {{"history", QVariant::fromValue(&history_)}}, {330, 540});
  EXPECT_TRUE(has("1 version", QAccessible::StaticText));
  EXPECT_TRUE(has("v1 · Harrow Print proof", QAccessible::Heading));
  EXPECT_TRUE(has("Jorvas, Left a note: “Too red?”, just now", QAccessible::ListItem));
}

TEST_F(ApprovalViews, RemoveAndAddApprovers) {
  show("Approval/ApproversSection", {{"approvers", QVariant::fromValue(&approvers_)}}, {460, 540});
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  ASSERT_TRUE(press("Remove Olo Brandt"));
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_EQ(posted()[0], R"(POST api/approvers {"approvers":[)"
                         R"({"email":"mara@tessarine.example","name":"Mara Quell"}]})");
  EXPECT_EQ(reader().enabled("Remove Mara Quell"), 0) << "one change at a time";
  BoardState board = *store().board();
  board.approvers->pop_back();
  serveBoard(board, "\"b2\"");
  desk.http.answer(*desk.http.matching("POST api/approvers")[0], answerOf(200, "{}"));
  settle();
  EXPECT_FALSE(has("Remove Olo Brandt", QAccessible::Button));
  ASSERT_EQ(reader().enabled("Remove Mara Quell"), 1);

  QQuickItem* first = nullptr;
  for (int i = 0; i < 9 && focused() != "Address"; ++i) key(Qt::Key_Tab);
  ASSERT_EQ(focused(), "Address");
  first = window()->activeFocusItem();
  type("rina@tessarine.example");
  EXPECT_EQ(reader().enabled("Add"), 1);
  key(Qt::Key_Tab);
  QQuickItem* second = window()->activeFocusItem();
  ASSERT_EQ(focused(), "Name");
  type("Rina Vale");
  key(Qt::Key_Return);
  ASSERT_EQ(posted().size(), 2U);
  EXPECT_EQ(posted()[1], R"(POST api/approvers {"approvers":[)"
                         R"({"email":"mara@tessarine.example","name":"Mara Quell"},)"
                         R"({"email":"rina@tessarine.example","name":"Rina Vale"}]})");
  EXPECT_EQ(first->property("text"), "");
  EXPECT_EQ(second->property("text"), "");
  EXPECT_EQ(focused(), "Address");
  key(Qt::Key_Return);
  EXPECT_EQ(posted().size(), 2U) << "there is nothing to add";
}

TEST_F(ApprovalViews, LeaveNoApproverToTheNextSession) {
  show("Approval/ApproversSection", {{"approvers", QVariant::fromValue(&approvers_)}}, {460, 540});
  const auto text = [this](const QString& field) {
    return reader().find(field, QAccessible::EditableText)->text(QAccessible::Value);
  };
  const BoardState board = *store().board();
  reader().find("Address", QAccessible::EditableText)->setText(QAccessible::Value, "rina@x");
  reader().find("Name", QAccessible::EditableText)->setText(QAccessible::Value, "Rina");
  settle();
  EXPECT_EQ(approvers_.adding(), "rina@x");
  EXPECT_EQ(approvers_.addName(), "Rina");
  approvers_.setAdding("rina@tessarine.example");
  settle();
  ASSERT_EQ(text("Address"), "rina@tessarine.example");
  EXPECT_EQ(reader().enabled("Add"), 1);
  store().signOut(true);
  settle();
  EXPECT_EQ(reader().enabled("Add"), 0);
  EXPECT_FALSE(has("No key approvers yet.", QAccessible::StaticText));
  EXPECT_FALSE(has("Mara Quell, mara@tessarine.example", QAccessible::ListItem));
  store().board.set(board);
  settle();
  EXPECT_TRUE(has("Mara Quell, mara@tessarine.example", QAccessible::ListItem));
  EXPECT_EQ(text("Address"), "");
  EXPECT_EQ(text("Name"), "");
  change([](BoardState& held) { held.approvers.reset(); });
  EXPECT_TRUE(has("No key approvers yet.", QAccessible::StaticText));
}

TEST_F(ApprovalViews, ChooseAVersion) {
  change([](BoardState& board) { board.files[0].version = 2; });
  FileDetail detail = lighthouse();
  detail.version = 2;
  detail.versions = std::vector<Version>{{.n = 1, .status = "done"}, {.n = 2, .status = "failed"}};
  store().details.edit([&](auto& all) { all["t1"] = detail; });
  show("Approval/VersionChips", {{"approval", QVariant::fromValue(&approval_)}}, {460, 100});
  EXPECT_TRUE(has("v2, Revision by Claude, the check failed", QAccessible::RadioButton));
  ASSERT_TRUE(press("v1, Harrow Print proof", QAccessible::RadioButton));
  EXPECT_EQ(store().viewVersion().at("t1"), 1);
}

}  // namespace
}  // namespace vellix
