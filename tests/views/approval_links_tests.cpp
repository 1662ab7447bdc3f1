// What the approval's views open in the browser.
#include <gmock/gmock.h>

#include <QAccessible>

#include "support/UrlCatcher.hpp"
#include "views/approval_views_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class ApprovalLinks : public ApprovalViewsTest {
 protected:
  void showStory(const Origin& origin) {
    FileDetail detail = lighthouse();
    detail.origin = origin;
    tell(detail);
    show("Approval/HistoryList", {{"history", QVariant::fromValue(&history_)}}, {330, 540});
  }

  const UrlCatcher browser{"https"};
};

TEST_F(ApprovalLinks, OpenTheMailToTheSupplier) {
  change([](BoardState& board) {
    board.files[0].approval = "approved";
    board.files[0].supplier = "Harrow & Sons";
    board.files[0].links = Links{.gmail = "https://mail.example/?to=a%2Bb%40c.example&su=%231"};
  });
  showCard();
  EXPECT_TRUE(browser.urls.empty());
  ASSERT_TRUE(press("Harrow & Sons email", QAccessible::Link));
  EXPECT_THAT(browser.urls, ElementsAre("https://mail.example/?to=a%2Bb%40c.example&su=%231"));
  EXPECT_TRUE(posted().empty());
}

TEST_F(ApprovalLinks, OfferNoMailThatOpensNothing) {
  showCard();
  for (const char* url : {"", "file:///etc/passwd", "not a link"}) {
    change([&](BoardState& board) {
      board.files[0].approval = "approved";
      board.files[0].links = Links{.gmail = url};
    });
    EXPECT_TRUE(has("Mark sent to Harrow Print", QAccessible::Button)) << url;
    EXPECT_FALSE(has("Harrow Print email", QAccessible::Link)) << url;
  }
}

TEST_F(ApprovalLinks, OpenTheFolderOfTheOrder) {
  showStory({.links = Links{.drive_folder = "https://drive.example/po%207?a=b&c=d"}});
  ASSERT_TRUE(press("Filed in the PO folder", QAccessible::Link));
  EXPECT_THAT(browser.urls, ElementsAre("https://drive.example/po%207?a=b&c=d"));
}

TEST_F(ApprovalLinks, OfferNoFolderThatIsNotTold) {
  showStory({.links = Links{}});
  EXPECT_FALSE(has("Filed in the PO folder", QAccessible::Link));
}

TEST_F(ApprovalLinks, OpenWhatTheProofWasCheckedAgainst) {
  showStory({.refs = std::vector<Ref>{
                 {.role = "submitted", .name = "ours.pdf", .link = "https://drive.example/1"},
                 {.role = "supplier", .name = "theirs.pdf", .link = "https://drive.example/2"},
                 {.role = "supplier", .name = "unlinked.pdf"},
                 {.role = "supplier", .name = "local.pdf", .link = "file:///etc/passwd"}}});
  ASSERT_TRUE(press("theirs.pdf", QAccessible::Link));
  ASSERT_TRUE(press("ours.pdf", QAccessible::Link));
  EXPECT_THAT(browser.urls, ElementsAre("https://drive.example/2", "https://drive.example/1"));
  for (const char* plain : {"unlinked.pdf", "local.pdf"}) {
    EXPECT_FALSE(has(plain, QAccessible::Link)) << plain;
    EXPECT_TRUE(has(plain, QAccessible::StaticText)) << plain;
  }
  EXPECT_FALSE(has("ours.pdf", QAccessible::StaticText)) << "once";
}

}  // namespace
}  // namespace vellix
