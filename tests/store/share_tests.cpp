// A ticket's link: switched, opened wider or narrower, made anew.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPost = "POST api/files/t1/share";
constexpr const char* kAnswer =
    R"({"share":{"enabled":true,"url":"https://s.example/2","embed_url":"https://s.example/e"}})";

struct ShareCase {
  const char* name;
  std::optional<std::string> stored;  // the ticket's access; none for one without a link
  std::optional<bool> enabled;
  std::optional<std::string> access;
  bool reset;
  const char* body;
  const char* said;
  bool copied;
};
BOOST_DESCRIBE_STRUCT(ShareCase, (), (name, stored, enabled, access, reset, body, said, copied))

class Sharing : public StoreTest {
 protected:
  FileItem file = ticketOf("t1");

  void SetUp() override {
    store().board.set(boardOf({file}));
    routes.set(kStateLine, answerOf(304));
  }
  void share(std::optional<bool> enabled, std::optional<std::string> access, bool reset) {
    store().setShare(file, enabled, std::move(access), reset);
    desk.time.run();
  }
};

class ShareChanges : public Sharing, public testing::WithParamInterface<ShareCase> {
 protected:
  void change() {
    if (GetParam().stored) file.share = ShareInfo{.enabled = true, .access = GetParam().stored};
    share(GetParam().enabled, GetParam().access, GetParam().reset);
  }
};

TEST_P(ShareChanges, SendWhatIsGivenAndSayWhatHolds) {
  change();
  EXPECT_THAT(store().busy(), ElementsAre("share"));
  ASSERT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(desk.http.exchanges[0].request.body, GetParam().body);
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  answer(0, answerOf(200, kAnswer));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_THAT(lines(), ElementsAre(kPost, kStateLine));
  const std::vector<std::string> link{"https://s.example/2"};
  EXPECT_EQ(desk.clipboard.texts, GetParam().copied ? link : std::vector<std::string>{});
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(ShareChanges, CopyNothingWhenTheyAreRefused) {
  change();
  answer(0, answerOf(500));
  EXPECT_EQ(desk.toastText(), kRefusedText);
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_TRUE(store().busy().empty());
}

constexpr std::nullopt_t kNone = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Switch, ShareChanges,
    testing::Values(ShareCase{"OnAtFirst", kNone, true, kNone, false, R"({"enabled":true})",
                              "The link is on. Anyone at Tessarine with it can view.", true},
                    ShareCase{"OnAgain", "comment", true, "comment", false,
                              R"({"enabled":true,"access":"comment"})",
                              "The link is on. Anyone at Tessarine with it can comment.", true},
                    ShareCase{"OnAsStored", "edit", true, kNone, false, R"({"enabled":true})",
                              "The link is on. Anyone at Tessarine with it can edit.", true},
                    ShareCase{"Off", "edit", false, "edit", false,
                              R"({"enabled":false,"access":"edit"})", "The link is off.", false},
                    ShareCase{"OffAtFirst", kNone, false, kNone, false, R"({"enabled":false})",
                              "The link is off.", false}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Access, ShareChanges,
    testing::Values(ShareCase{"View", "edit", kNone, "view", false, R"({"access":"view"})",
                              "Anyone with the link can view now.", false},
                    ShareCase{"Comment", "view", kNone, "comment", false, R"({"access":"comment"})",
                              "Anyone with the link can comment now.", false},
                    ShareCase{"Edit", "view", kNone, "edit", false, R"({"access":"edit"})",
                              "Anyone with the link can edit now.", false},
                    ShareCase{"EditWithoutALink", kNone, kNone, "edit", false,
                              R"({"access":"edit"})", "Anyone with the link can edit now.", false},
                    ShareCase{"Unknown", "edit", kNone, "own", false, R"({"access":"own"})",
                              "Anyone with the link can view now.", false},
                    ShareCase{"StoredUnknown", "own", true, kNone, false, R"({"enabled":true})",
                              "The link is on. Anyone at Tessarine with it can view.", true},
                    ShareCase{"NothingGiven", "comment", kNone, kNone, false, "{}",
                              "Anyone with the link can comment now.", false}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Reset, ShareChanges,
    testing::Values(ShareCase{"Alone", "edit", kNone, kNone, true, R"({"reset":true})",
                              "Made a new link. The old one stopped working.", true},
                    ShareCase{"WithAll", "edit", false, "view", true,
                              R"({"enabled":false,"access":"view","reset":true})",
                              "Made a new link. The old one stopped working.", true}),
    [](const auto& each) { return each.param.name; });

TEST_F(Sharing, CopiesNoLinkThatIsNone) {
  for (const char* body :
       {"", "[]", "{}", R"({"share":null})", R"({"share":{}})", R"({"share":{"url":7}})",
        R"({"share":{"url":""}})", R"({"share":{"embed_url":"https://s/e"}})"}) {
    routes.next(kPost, answerOf(200, body));
    share(true, std::nullopt, false);
    EXPECT_THAT(desk.clipboard.texts, IsEmpty()) << body;
    EXPECT_EQ(desk.toastText(), "The link is on. Anyone at Tessarine with it can view.");
  }
}

TEST_F(Sharing, CopiesNothingOnceSomebodySignedOut) {
  share(true, std::nullopt, false);
  store().signOut(false);
  desk.time.run();
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  answer(0, answerOf(200, kAnswer));
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  EXPECT_FALSE(store().toast());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Sharing, SignsOutWhenItIsNotKnown) {
  share(true, std::nullopt, false);
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
}

TEST_F(Sharing, ShowsTheServicesStateAlone) {
  routes.leaveOpen(kStateLine);
  share(true, std::nullopt, false);
  answer(0, answerOf(200, kAnswer));
  EXPECT_FALSE(store().board()->files[0].share) << "until the board is in";
  EXPECT_THAT(store().busy(), ElementsAre("share"));
  file.share = ShareInfo{.enabled = true, .url = "https://s.example/2"};
  answer(1, answerOf(200, jsonOf(boardOf({file}))));
  EXPECT_EQ(store().board()->files[0].share, file.share);
}

}  // namespace
}  // namespace vellix
