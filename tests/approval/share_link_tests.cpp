#include "approval/share_link.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUrl = "https://proofs.example/s/1";
constexpr const char* kPath = "POST api/files/t1/share ";

class ShareLinks : public ApprovalTest {
 protected:
  void share(std::optional<ShareInfo> info) {
    file().share = std::move(info);
    publish();
  }
  SharePopoverView view() { return sharePopover(store(), "t1", renewal); }
  std::vector<std::string> bodies() {
    std::vector<std::string> all;
    for (const std::string& each : asked()) {
      EXPECT_TRUE(each.starts_with(kPath)) << each;
      all.push_back(each.substr(std::string_view{kPath}.size()));
    }
    return all;
  }

  ShareRenewal renewal;
};

TEST_F(ShareLinks, TellOnTheButtonWhetherTheyAreOn) {
  const ShareButtonView off{"Share", "link"};
  EXPECT_EQ(shareButton(file()), off);
  file().share = shareOf(kUrl, false);
  EXPECT_EQ(shareButton(file()), off);
  file().share = shareOf(std::nullopt);
  EXPECT_EQ(shareButton(file()), (ShareButtonView{"Shared", "link.circle.fill"}));
}

TEST_F(ShareLinks, BeginSwitchedOff) {
  const SharePopoverView shown = view();
  EXPECT_TRUE(shown.here);
  EXPECT_FALSE(shown.on);
  EXPECT_EQ(shown.access, "view");
  EXPECT_THAT(shown.levels,
              ElementsAre(ChoiceView{"view", "Can view"}, ChoiceView{"comment", "Can comment"},
                          ChoiceView{"edit", "Can edit"}));
  EXPECT_EQ(shown.url, "") << "nothing to copy";
  EXPECT_EQ(shown.warning, "");
}

struct LevelCase {
  const char* name;
  std::optional<std::string> access;
  const char* shown;
  const char* allows;
};
BOOST_DESCRIBE_STRUCT(LevelCase, (), (name, access, shown, allows))

class ShareLevels : public ShareLinks, public testing::WithParamInterface<LevelCase> {};

TEST_P(ShareLevels, SayWhatTheyAllow) {
  for (const bool on : {true, false}) {
    ShareInfo info = shareOf(kUrl, on);
    info.access = GetParam().access;
    share(info);
    EXPECT_EQ(view().access, GetParam().shown);
    EXPECT_EQ(view().allows, GetParam().allows);
  }
}

constexpr const char* kSee = "They see the pages, the checks, the notes and the history.";
INSTANTIATE_TEST_SUITE_P(
    All, ShareLevels,
    testing::Values(
        LevelCase{"Missing", std::nullopt, "view", kSee}, LevelCase{"Empty", "", "view", kSee},
        LevelCase{"View", "view", "view", kSee},
        LevelCase{
            "Comment", "comment", "comment",
            "They see the pages, the checks and the notes, and can leave notes of their own."},
        LevelCase{"Edit", "edit", "edit",
                  "They can also mark findings Real issue or Fine and mark the ticket reviewed."},
        LevelCase{"Unknown", "own", "own", kSee}),
    [](const auto& each) { return each.param.name; });

TEST_F(ShareLinks, AreHandedOnOnlyWhileTheyAreOn) {
  share(shareOf(kUrl));
  EXPECT_EQ(view().url, kUrl);
  copyShareLink(store(), "t1");
  EXPECT_EQ(desk.toastText(), "Link copied.");
  copyShareForNotion(store(), "t1");
  EXPECT_EQ(desk.toastText(), "Copied for Notion. Paste it in the task and pick Embed.");
  openShareLink(store(), "t1");
  EXPECT_THAT(desk.clipboard.texts, ElementsAre(kUrl, kUrl));
  EXPECT_THAT(desk.opener.opened, ElementsAre(kUrl));
  for (const auto& none : {shareOf(kUrl, false), shareOf(std::nullopt), shareOf("")}) {
    share(none);
    EXPECT_EQ(view().url, "");
    copyShareLink(store(), "t1");
    copyShareForNotion(store(), "t1");
    openShareLink(store(), "t1");
  }
  EXPECT_EQ(desk.clipboard.texts.size(), 2U);
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(ShareLinks, AreSwitchedOnWithoutALevelTheFirstTime) {
  switchShare(store(), "t1", true);
  EXPECT_THAT(bodies(), ElementsAre(R"({"enabled":true})"));
}

TEST_F(ShareLinks, KeepTheirLevelWhenSwitchedOff) {
  ShareInfo info = shareOf(kUrl);
  info.access = "comment";
  share(info);
  switchShare(store(), "t1", false);
  EXPECT_THAT(bodies(), ElementsAre(R"({"enabled":false,"access":"comment"})"));
}

TEST_F(ShareLinks, TakeAnotherLevel) {
  share(shareOf(kUrl));
  chooseAccess(store(), "t1", "view");
  chooseAccess(store(), "t1", "own");
  EXPECT_THAT(bodies(), IsEmpty()) << "it has that level, and there is no other";
  chooseAccess(store(), "t1", "edit");
  EXPECT_THAT(bodies(), ElementsAre(R"({"access":"edit"})"));
}

TEST_F(ShareLinks, ChangeOnceAtATime) {
  share(shareOf(kUrl));
  switchShare(store(), "t1", true);
  EXPECT_THAT(bodies(), IsEmpty()) << "it is on";
  switchShare(store(), "t1", false);
  EXPECT_TRUE(view().busy);
  EXPECT_TRUE(view().on) << "until the service says otherwise";
  switchShare(store(), "t1", false);
  chooseAccess(store(), "t1", "edit");
  pressRenew(store(), "t1", renewal);
  pressRenew(store(), "t1", renewal);
  EXPECT_EQ(bodies().size(), 1U);
}

TEST_F(ShareLinks, AreRenewedByASecondPress) {
  share(shareOf(kUrl));
  EXPECT_EQ(view().renew, "Make a new link");
  pressRenew(store(), "t1", renewal);
  EXPECT_EQ(view().renew, "Make a new link?");
  EXPECT_EQ(view().warning, "The old link stops working.");
  EXPECT_THAT(bodies(), IsEmpty());
  pressRenew(store(), "t1", renewal);
  EXPECT_EQ(view().renew, "Make a new link");
  EXPECT_EQ(view().warning, "");
  EXPECT_THAT(bodies(), ElementsAre(R"({"reset":true})"));
}

TEST_F(ShareLinks, AreRenewedOnlyWhereTheyAreTheOneThatWasMeant) {
  share(shareOf(kUrl));
  pressRenew(store(), "t1", renewal);
  share(shareOf("https://proofs.example/s/2"));
  EXPECT_EQ(view().renew, "Make a new link") << "a colleague was faster";
  pressRenew(store(), "t1", renewal);
  EXPECT_EQ(view().renew, "Make a new link?");
  EXPECT_THAT(bodies(), IsEmpty());
  share(shareOf("https://proofs.example/s/2", false));
  EXPECT_EQ(view().warning, "");
  pressRenew(store(), "t1", renewal);
  EXPECT_THAT(bodies(), IsEmpty());
}

TEST_F(ShareLinks, EndWithTheirTicket) {
  share(shareOf(kUrl));
  pressRenew(store(), "t1", renewal);
  board.files.erase(board.files.begin());
  publish();
  EXPECT_EQ(view(), SharePopoverView{});
  switchShare(store(), "t1", true);
  chooseAccess(store(), "t1", "edit");
  pressRenew(store(), "t1", renewal);
  copyShareLink(store(), "t1");
  EXPECT_THAT(asked(), IsEmpty());
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
}

TEST_F(ShareLinks, ShowWhatTheServiceSays) {
  switchShare(store(), "t1", true);
  desk.time.run();
  answer(0, answerOf(500));
  EXPECT_FALSE(view().on);
  EXPECT_FALSE(view().busy);
  EXPECT_EQ(desk.toastText(), kRefusedText);
}

}  // namespace
}  // namespace vellix
