// What the approval's models tell their views, and what ends under an open sheet.
#include "approval/ApprovalModel.hpp"
#include "approval/ApproversModel.hpp"
#include "approval/HistoryModel.hpp"
#include "approval/SendModel.hpp"
#include "approval/ShareModel.hpp"
#include "approval/UploadModel.hpp"

#include <QSignalSpy>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

class ApprovalModels : public ApprovalTest {
 protected:
  ApprovalModel approval{store(), desk.time, desk.calendar};
  SendModel send{store()};
  UploadModel upload{store()};
  ShareModel share{store()};
  HistoryModel history{store(), desk.time, desk.calendar};
  ApproversModel approvers{store()};

  std::size_t sent() { return asked().size(); }
  void signOut() {
    store().signOut(true);
    desk.time.run();
  }
};

TEST_F(ApprovalModels, FollowTheRound) {
  file().approval = "pending";
  publish();
  EXPECT_EQ(approval.card()["title"], "Waiting for approval");
  const QSignalSpy told{&approval, &ApprovalModel::cardChanged};
  approval.press("takeBack");
  EXPECT_EQ(sent(), 1U);
  EXPECT_EQ(told.size(), 1) << "the button waits";
  publish();
  EXPECT_EQ(told.size(), 1) << "the same again is no news";
  store().selection.set({"t1", "t2"});
  desk.time.run();
  EXPECT_FALSE(approval.card()["here"].toBool());
}

TEST_F(ApprovalModels, ShowVersions) {
  file().version = 2;
  publish();
  FileDetail detail = detailOf(file());
  detail.versions = std::vector<Version>{versionOf(1), versionOf(2)};
  show(detail);
  ASSERT_EQ(approval.versions().size(), 2);
  approval.showVersion(1);
  EXPECT_EQ(store().viewVersion().at("t1"), 1);
}

TEST_F(ApprovalModels, SendWhatIsTyped) {
  send.setNote("lost");
  EXPECT_EQ(send.note(), "") << "nothing is typed into a sheet that is closed";
  send.begin();
  EXPECT_TRUE(send.open());
  send.setNote("Look at p3");
  send.pick(kOlo, false);
  send.send();
  EXPECT_FALSE(send.open());
  ASSERT_EQ(sent(), 1U);
  EXPECT_NE(asked()[0].find(R"("note":"Look at p3")"), std::string::npos);
  send.send();
  EXPECT_EQ(sent(), 1U);
}

TEST_F(ApprovalModels, BeginEachSheetAnew) {
  send.begin();
  send.setNote("one");
  send.pick(kMara, false);
  send.end();
  send.begin();
  EXPECT_EQ(send.note(), "");
  EXPECT_TRUE(send.sheet()["approvers"].toList()[0].toMap()["picked"].toBool());
  upload.begin();
  upload.choose(QUrl::fromLocalFile("/proofs/a.pdf"));
  upload.setNote("one");
  upload.end();
  upload.begin();
  EXPECT_EQ(upload.note(), "");
  EXPECT_FALSE(upload.sheet()["chosen"].toBool());
}

TEST_F(ApprovalModels, KeepASheetThroughPollsAndOtherTickets) {
  send.begin();
  send.setNote("Half a li");
  store().selection.set({"t2"});
  publish();
  EXPECT_TRUE(send.open());
  EXPECT_EQ(send.note(), "Half a li");
  send.send();
  ASSERT_EQ(sent(), 1U);
  EXPECT_TRUE(asked()[0].starts_with("POST api/files/t1/approval")) << "it is about its own ticket";
}

TEST_F(ApprovalModels, KeepASheetWhoseTicketHasGone) {
  send.begin();
  upload.begin();
  send.setNote("Look");
  board.files.erase(board.files.begin());
  publish();
  EXPECT_TRUE(send.open());
  EXPECT_TRUE(upload.open());
  EXPECT_EQ(send.note(), "Look");
  EXPECT_FALSE(send.sheet()["canSend"].toBool());
  EXPECT_NE(send.sheet()["trouble"], "");
  send.send();
  EXPECT_TRUE(send.open());
  EXPECT_EQ(sent(), 0U);
}

TEST_F(ApprovalModels, EndSheetsWithTheSession) {
  send.begin();
  send.setNote("Look");
  upload.begin();
  const QSignalSpy closed{&send, &SendModel::openChanged};
  signOut();
  EXPECT_FALSE(send.open());
  EXPECT_EQ(send.note(), "");
  EXPECT_EQ(closed.size(), 1);
  EXPECT_FALSE(upload.open());
  send.begin();
  EXPECT_FALSE(send.open()) << "there is no ticket";
}

TEST_F(ApprovalModels, AddApproversFromTheSheet) {
  send.begin();
  send.setAdding("rina@tessarine.example");
  send.setAddName("Rina");
  EXPECT_TRUE(send.sheet()["canAdd"].toBool());
  const QSignalSpy typed{&send, &SendModel::typedChanged};
  send.add();
  EXPECT_EQ(send.adding(), "");
  EXPECT_EQ(typed.size(), 1);
  EXPECT_EQ(sent(), 1U);
  EXPECT_EQ(send.sheet()["approvers"].toList().size(), 4);
}

TEST_F(ApprovalModels, KeepWhatFollowsSending) {
  send.begin();
  send.setAfter("gmail");
  desk.time.run();
  EXPECT_EQ(send.sheet()["then"], "gmail");
  EXPECT_EQ(send.sheet()["hint"], "");
}

TEST_F(ApprovalModels, UploadALocalPdfAlone) {
  upload.begin();
  upload.choose(QUrl{"https://elsewhere.example/a.pdf"});
  upload.choose(QUrl{});
  EXPECT_FALSE(upload.sheet()["chosen"].toBool());
  upload.choose(QUrl::fromLocalFile("/proofs/Größe #2 100%.pdf"));
  EXPECT_EQ(upload.sheet()["file"], "Größe #2 100%.pdf");
  desk.files.sizes["/proofs/Größe #2 100%.pdf"] = 10;
  upload.upload();
  EXPECT_FALSE(upload.open());
  desk.time.run();
  EXPECT_EQ(desk.http.count("PUT api/files/t1/versions"), 1U);
}

TEST_F(ApprovalModels, ForgetARenewalWithThePopover) {
  file().share = shareOf("https://proofs.example/s/1");
  publish();
  EXPECT_EQ(share.button()["label"], "Shared");
  share.renew();
  EXPECT_EQ(share.popover()["renew"], "Make a new link?");
  share.forget();
  EXPECT_EQ(share.popover()["renew"], "Make a new link");
  share.renew();
  EXPECT_EQ(sent(), 0U);
  share.renew();
  EXPECT_EQ(sent(), 1U);
}

TEST_F(ApprovalModels, ForgetARenewalWithItsLink) {
  const auto serve = [this](const std::string& url, bool enabled) {
    file().share = shareOf(url, enabled);
    publish();
  };
  struct Case {
    const char* name;
    std::function<void()> change;
  };
  for (const Case& each : {Case{"off", [&] { serve("https://proofs.example/s/1", false); }},
                           Case{"another", [&] { serve("https://proofs.example/s/2", true); }},
                           Case{"off the board", [&] {
                                  store().board.set(boardOf({}));
                                  desk.time.run();
                                }}}) {
    serve("https://proofs.example/s/1", true);
    share.renew();
    ASSERT_EQ(share.popover()["renew"], "Make a new link?") << each.name;
    publish();
    ASSERT_EQ(share.popover()["renew"], "Make a new link?") << "the same board once more";
    each.change();
    serve("https://proofs.example/s/1", true);
    EXPECT_EQ(share.popover()["renew"], "Make a new link") << each.name;
    EXPECT_EQ(share.popover()["warning"], "") << each.name;
  }
  EXPECT_EQ(sent(), 0U);
}

TEST_F(ApprovalModels, TellNoStoryThatIsNotRead) {
  show(detailOf(file()));
  EXPECT_EQ(history.origin()["line"], "");
  QObject one;
  QObject other;
  history.reads(&one, true);
  EXPECT_EQ(history.origin()["line"], "The supplier sent the proof");
  EXPECT_EQ(history.history()["nothing"], "Nothing yet.");
  // While one view gives way to another both read it for a moment.
  history.reads(&other, true);
  history.reads(&one, false);
  history.reads(&one, false);
  FileDetail later = detailOf(file());
  later.file.supplier = "Halden";
  later.origin = Origin{.supplier = "Halden"};
  show(later);
  EXPECT_EQ(history.origin()["line"], "Halden sent the proof");
  history.reads(&other, false);
  show(detailOf(file()));
  EXPECT_EQ(history.origin()["line"], "Halden sent the proof") << "nobody pays for it any more";
}

TEST_F(ApprovalModels, FollowTheListOfApprovers) {
  approvers.remove(kOlo);
  desk.time.run();
  EXPECT_TRUE(approvers.section()["saving"].toBool());
  EXPECT_EQ(sent(), 1U);
}

TEST_F(ApprovalModels, AddTheApproverThatIsTyped) {
  approvers.setAddName("Rina");
  approvers.setAdding("rina@elsewhere.example");
  EXPECT_FALSE(approvers.section()["canAdd"].toBool());
  approvers.add();
  EXPECT_EQ(approvers.adding(), "rina@elsewhere.example") << "it can still be mended";
  EXPECT_EQ(sent(), 0U);
  approvers.setAdding(" Rina@tessarine.example");
  EXPECT_TRUE(approvers.section()["canAdd"].toBool());
  const QSignalSpy typed{&approvers, &ApproversModel::typedChanged};
  approvers.add();
  EXPECT_EQ(approvers.adding(), "");
  EXPECT_EQ(approvers.addName(), "");
  EXPECT_EQ(typed.size(), 1);
  ASSERT_EQ(sent(), 1U);
  EXPECT_NE(asked()[0].find(R"({"email":"rina@tessarine.example","name":"Rina"})"),
            std::string::npos);
}

TEST_F(ApprovalModels, ForgetTheApproverThatIsTypedWithTheSession) {
  approvers.setAdding("rina@tessarine.example");
  approvers.setAddName("Rina");
  signOut();
  EXPECT_EQ(approvers.adding(), "");
  EXPECT_EQ(approvers.addName(), "");
  EXPECT_FALSE(approvers.section()["canAdd"].toBool());
  approvers.setAdding("lost@tessarine.example");
  EXPECT_EQ(approvers.adding(), "") << "there is no list to add anybody to";
  publish();
  EXPECT_EQ(approvers.adding(), "");
}

}  // namespace
}  // namespace vellix
