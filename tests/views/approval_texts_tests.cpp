// What the sheets, the popover and the sections of the approval say, to the character.
#include <gmock/gmock.h>

#include <QAccessible>

#include "views/approval_views_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class ApprovalTexts : public ApprovalViewsTest {
 protected:
  std::vector<std::string> toldIn(QAccessibleInterface* object) {
    std::vector<std::string> all;
    for (const QString& each : reader().told(object)) all.push_back(each.toStdString());
    return all;
  }
  std::vector<std::string> toldInDialog(const QString& name) {
    return toldIn(reader().find(name, QAccessible::Dialog));
  }
  std::vector<std::string> toldInWindow() {
    return toldIn(QAccessible::queryAccessibleInterface(window()));
  }
};

TEST_F(ApprovalTexts, OfTheSendSheet) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  settle();
  EXPECT_THAT(toldInDialog("Send v1 for approval"),
              ElementsAre("Send v1 for approval", "Send v1 for approval",
                          "They open the link in their browser, sign in with Google, and approve "
                          "it or ask for changes. Changes come back to Claude.",
                          "APPROVERS", "Mara Quell | mara@tessarine.example",
                          "Olo Brandt | olo@tessarine.example", "Address | name@tessarine.example",
                          "Name", "Add", "A LINE FOR THEM",
                          "A line for them | What to look at, or what changed (optional)",
                          "AFTER SENDING", "After sending", "Copy the link for a Notion task",
                          "Open a Gmail message with the link", "Nothing",
                          "In the Notion task, paste it and pick Embed. It shows the pages to "
                          "compare and where it stands, to anyone with the link.",
                          "Cancel", "Send for approval"));
}

TEST_F(ApprovalTexts, OfTheUploadSheet) {
  showCard();
  ASSERT_TRUE(press("Upload revision"));
  ASSERT_TRUE(opens("Upload v2"));
  settle();
  EXPECT_THAT(toldInDialog("Upload v2"),
              ElementsAre("Upload v2", "Upload v2",
                          "The Mac mini checks it against v1, so you can see exactly what moved. "
                          "Then send it back for approval.",
                          "No PDF picked yet", "Choose PDF…", "WHAT CHANGED",
                          "What changed | Fixed the p25 headline font. Nothing else moved.",
                          "Approvers see this line on the new version.", "Cancel", "Upload"));
}

TEST_F(ApprovalTexts, OfTheSharePopover) {
  change(shareIt);
  showShare();
  ASSERT_TRUE(press("Shared"));
  ASSERT_TRUE(opens("Share link"));
  settle();
  EXPECT_THAT(toldInDialog("Share link"),
              ElementsAre("Share link",
                          "Share link | Anyone at Tessarine with the link can open this ticket. "
                          "They sign in with Google.",
                          "What it allows", "Can view", "Can comment", "Can edit",
                          "They see the pages, the checks, the notes and the history.", "Copy link",
                          "Copy for Notion | Paste it in a Notion task and pick Embed. It shows "
                          "the pages to compare and where it stands, to anyone with the link.",
                          "Open in browser", "Make a new link",
                          "Approvers can always leave notes and approve, whatever the link "
                          "allows."));
}

TEST_F(ApprovalTexts, OfTheSectionOfTheApprovers) {
  show("Approval/ApproversSection", {{"approvers", QVariant::fromValue(&approvers_)}}, {460, 540});
  EXPECT_THAT(toldInWindow(),
              ElementsAre("Key approvers", "Key approvers",
                          "The creative team who approve proofs. They open a link in their browser "
                          "and sign in with Google.",
                          "Key approvers", "Mara Quell, mara@tessarine.example",
                          "Remove Mara Quell", "Olo Brandt, olo@tessarine.example",
                          "Remove Olo Brandt", "Address | name@tessarine.example", "Name", "Add"));
}

TEST_F(ApprovalTexts, OfTheHistory) {
  FileDetail detail = lighthouse();
  detail.origin = Origin{.supplier = "Harrow Print",
                         .filename = "lighthouse.pdf",
                         .links = Links{.drive_folder = "https://drive.example/po-7"}};
  detail.versions = std::vector<Version>{{.n = 1, .note = "Sent on Friday", .status = "done"}};
  tell(detail);
  show("Approval/HistoryList", {{"history", QVariant::fromValue(&history_)}}, {330, 540});
  EXPECT_THAT(
      toldInWindow(),
      ElementsAre("WHERE IT CAME FROM", "Harrow Print sent lighthouse.pdf",
                  "Filed in the PO folder", "No file of ours was found to check it against.",
                  "History", "1 version", "Nothing yet.", "v1 · Harrow Print proof",
                  "v1 · Harrow Print proof", "Sent on Friday"));
}

}  // namespace
}  // namespace vellix
