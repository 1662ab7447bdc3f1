// What may change under an open sheet, and what stays of what was typed.
#include <QAccessible>

#include "views/approval_views_test.hpp"

namespace vellix {
namespace {

class ApprovalSheets : public ApprovalViewsTest {
 protected:
  void openToSend(QSize size = kSizes.front()) {
    showCard(size);
    ASSERT_TRUE(press("Send for approval"));
    ASSERT_TRUE(opens("Send v1 for approval"));
    settle();
  }
  void openToUpload(QSize size = kSizes.front()) {
    showCard(size);
    ASSERT_TRUE(press("Upload revision"));
    ASSERT_TRUE(opens("Upload v2"));
    settle();
  }
  QString fieldText(const QString& name) {
    auto* found = reader().find(name, QAccessible::EditableText);
    EXPECT_TRUE(found) << name.toStdString();
    return found ? found->object()->property("text").toString() : QString{};
  }
  // Every button of a sheet can be seen whole.
  void expectInSight(std::initializer_list<const char*> buttons) {
    const QRect whole{window()->position(), window()->size()};
    for (const char* name : buttons) {
      auto* found = reader().find(name, QAccessible::Button);
      ASSERT_TRUE(found) << name;
      EXPECT_TRUE(whole.contains(found->rect())) << name;
    }
  }
};

TEST_F(ApprovalSheets, LetWhoLeavesTheListGo) {
  openToSend();
  type("rina");
  key(Qt::Key_Tab);
  type("Rina");
  change([](BoardState& board) { board.approvers->pop_back(); });
  EXPECT_FALSE(has("Olo Brandt", QAccessible::CheckBox));
  EXPECT_TRUE(has("Mara Quell", QAccessible::CheckBox));
  EXPECT_EQ(fieldText("Address"), "rina");
  EXPECT_EQ(fieldText("Name"), "Rina");
  EXPECT_EQ(focused(), "Name");
  change([](BoardState& board) { board.approvers->clear(); });
  EXPECT_FALSE(has("Mara Quell", QAccessible::CheckBox));
  EXPECT_TRUE(has("No key approvers yet. Add one below. They're saved for next time.",
                  QAccessible::StaticText));
  EXPECT_EQ(fieldText("Address"), "rina");
}

TEST_F(ApprovalSheets, AreStillOpenWhereTheListChangesInTheSettings) {
  openToSend();
  type("rina");
  approvers_.remove(kOlo);
  settle();
  ASSERT_EQ(posted().size(), 1U);
  BoardState board = *store().board();
  board.approvers->pop_back();
  serveBoard(board, "\"b2\"");
  desk.http.answer(*desk.http.matching("POST api/approvers")[0], answerOf(200, "{}"));
  settle();
  EXPECT_FALSE(has("Olo Brandt", QAccessible::CheckBox));
  EXPECT_EQ(fieldText("Address"), "rina");
  key(Qt::Key_Escape);
  EXPECT_TRUE(closes("Send v1 for approval"));
}

TEST_F(ApprovalSheets, KeepWhatIsTypedToSendWhereTheWindowShrinks) {
  change([](BoardState& board) {
    for (int i = 0; i < 12; ++i) {
      board.approvers->push_back({.email = "a" + std::to_string(i) + "@tessarine.example"});
    }
  });
  openToSend(kSizes.back());
  type("rina");
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  ASSERT_EQ(focused(), "A line for them");
  type("Look at p3");
  resize(kSizes.front());
  EXPECT_EQ(fieldText("Address"), "rina");
  EXPECT_EQ(fieldText("A line for them"), "Look at p3");
  EXPECT_EQ(focused(), "A line for them");
  expectInSight({"Cancel", "Send for approval"});
  EXPECT_LT(reader().find("Send v1 for approval", QAccessible::Dialog)->rect().height(), 540)
      << "between title and buttons it scrolls";
  type("0");
  EXPECT_EQ(send_.note(), "Look at p30") << "the keyboard is still there";
}

TEST_F(ApprovalSheets, KeepWhatIsChosenToUploadWhereTheWindowShrinks) {
  openToUpload(kSizes.back());
  upload_.choose(QUrl::fromLocalFile("/proofs/new.pdf"));
  type("Fixed p2");
  resize(kSizes.front());
  EXPECT_TRUE(has("new.pdf", QAccessible::StaticText));
  EXPECT_EQ(fieldText("What changed"), "Fixed p2");
  EXPECT_EQ(focused(), "What changed");
  expectInSight({"Choose another…", "Cancel", "Upload"});
  type("5");
  EXPECT_EQ(upload_.note(), "Fixed p25") << "the keyboard is still there";
}

struct Move {
  const char* state;
  const char* sending;  // what is then said in the sheet; empty while it can still be done
  const char* uploading;
};
BOOST_DESCRIBE_STRUCT(Move, (), (state, sending, uploading))

class ApprovalSheetsMovedOn : public ApprovalSheets, public testing::WithParamInterface<Move> {
 protected:
  void moveOn() {
    change([](BoardState& board) { board.files[0].approval = GetParam().state; });
  }
  void expectSaid(const std::string& said, const QString& button) {
    EXPECT_EQ(reader().names(QAccessible::AlertMessage).join('\n').toStdString(), said);
    EXPECT_EQ(reader().enabled(button), said.empty() ? 1 : 0);
  }
};

TEST_P(ApprovalSheetsMovedOn, SayWhyNothingIsSent) {
  openToSend();
  type("rina");
  moveOn();
  expectSaid(GetParam().sending, "Send for approval");
  EXPECT_EQ(fieldText("Address"), "rina");
  EXPECT_EQ(focused(), "Address");
}

TEST_P(ApprovalSheetsMovedOn, SayWhyNothingIsUploaded) {
  openToUpload();
  upload_.choose(QUrl::fromLocalFile("/proofs/new.pdf"));
  type("Fixed");
  moveOn();
  expectSaid(GetParam().uploading, "Upload");
  EXPECT_EQ(fieldText("What changed"), "Fixed");
  EXPECT_TRUE(has("new.pdf", QAccessible::StaticText));
  key(Qt::Key_Return);
  EXPECT_EQ(upload_.open(), *GetParam().uploading != '\0');
}

constexpr const char* kOut = "This ticket has moved on: Out for approval.";
constexpr const char* kChanges = "This ticket has moved on: Changes asked.";
constexpr const char* kApproved = "This ticket has moved on: Approved.";
constexpr const char* kSent = "This ticket has moved on: Sent.";
INSTANTIATE_TEST_SUITE_P(All, ApprovalSheetsMovedOn,
                         testing::Values(Move{"pending", kOut, kOut}, Move{"changes", kChanges, ""},
                                         Move{"revised", "", ""},
                                         Move{"approved", kApproved, kApproved},
                                         Move{"sent", kSent, kSent}),
                         [](const auto& each) { return std::string{each.param.state}; });

}  // namespace
}  // namespace vellix
