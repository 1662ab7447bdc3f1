// Sending a ticket out for approval and taking it back, and who can be asked.
#include <gmock/gmock.h>

#include "gateway/url.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPost = "POST api/files/t1/approval";
constexpr const char* kShare =
    R"({"share":{"url":"https://s.example/1","embed_url":"https://s.example/1/embed"}})";

class ApprovalRound : public StoreTest {
 protected:
  FileItem file = ticketAt("t1", 1, 2);

  void SetUp() override {
    file.title = "The Lighthouse";
    store().board.set(boardOf({file}));
    routes.set(kStateLine, answerOf(304));
    routes.set("GET api/files/t1", answerOf(304));
  }
  void request(std::vector<std::string> approvers, const std::string& after,
               const std::string& note = "") {
    store().requestApproval(file, std::move(approvers), note, after);
    desk.time.run();
  }
  // The request alone is answered.
  void answerRequest(HttpResult result) { answer(0, std::move(result)); }
};

struct RoundCase {
  const char* name;
  std::function<void(Store&, const FileItem&)> act;
  const char* key;
  const char* line;
  const char* body;
  const char* said;
};
BOOST_DESCRIBE_STRUCT(RoundCase, (), (name, key, line, body, said))

class RoundActions : public ApprovalRound, public testing::WithParamInterface<RoundCase> {
 protected:
  void act() {
    GetParam().act(store(), file);
    desk.time.run();
  }
};

TEST_P(RoundActions, AreAskedThenSaidThenPolledWhole) {
  routes.leaveOpen(kStateLine);
  store().etag = "\"b1\"";
  act();
  EXPECT_EQ(store().board(), boardOf({file})) << "nothing ahead of the answer";
  EXPECT_THAT(store().busy(), ElementsAre(GetParam().key));
  ASSERT_THAT(lines(), ElementsAre(GetParam().line));
  EXPECT_EQ(desk.http.exchanges[0].request.body, GetParam().body);
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_FALSE(desk.toast()->undoLabel);
  ASSERT_THAT(lines(), ElementsAre(GetParam().line, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre(GetParam().key));
  FileItem settled = file;
  settled.approval = "pending";
  answer(1, answerOf(200, jsonOf(boardOf({settled}))));
  EXPECT_EQ(store().board()->files[0], settled);
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(RoundActions, ChangeNothingWhenTheyAreRefused) {
  act();
  answer(0, answerOf(409, R"({"error":"It is out already."})"));
  EXPECT_EQ(desk.toastText(), "It is out already.");
  EXPECT_THAT(lines(), ElementsAre(GetParam().line));
  EXPECT_EQ(store().board(), boardOf({file}));
  EXPECT_TRUE(store().busy().empty());
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  EXPECT_THAT(desk.opener.opened, IsEmpty());
}

TEST_P(RoundActions, SignOutWhenTheyAreNotKnown) {
  act();
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(RoundActions, WaitForNoTicketThatHasGone) {
  serveBoard(boardOf({}));
  act();
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_TRUE(store().board()->files.empty());
  EXPECT_TRUE(store().busy().empty());
}

FileItem suppliedBy(FileItem file, const char* supplier) {
  file.supplier = supplier;
  return file;
}

INSTANTIATE_TEST_SUITE_P(
    All, RoundActions,
    testing::Values(
        RoundCase{
            "Request",
            [](Store& store, const FileItem& file) {
              store.requestApproval(file, {"ada@b.c", "ben@b.c"}, " Look at p3. ", "none");
            },
            "approval", kPost,
            R"({"action":"request","approvers":["ada@b.c","ben@b.c"],"note":" Look at p3. "})",
            "Sent v2 to Ada and Ben for approval."},
        RoundCase{"RequestWithoutANote",
                  [](Store& store, const FileItem& file) {
                    store.requestApproval(file, {"ada@b.c"}, "", "none");
                  },
                  "approval", kPost, R"({"action":"request","approvers":["ada@b.c"],"note":""})",
                  "Sent v2 to Ada for approval."},
        RoundCase{"Withdraw",
                  [](Store& store, const FileItem& file) { store.withdrawApproval(file); },
                  "approval", kPost, R"({"action":"withdraw"})", "Took the request back."},
        RoundCase{"Sent",
                  [](Store& store, const FileItem& file) {
                    store.markApprovalSent(suppliedBy(file, "Harrow Print"));
                  },
                  "approval", kPost, R"({"action":"sent"})", "Marked sent to Harrow Print."},
        RoundCase{"SentToNoOneNamed",
                  [](Store& store, const FileItem& file) { store.markApprovalSent(file); },
                  "approval", kPost, R"({"action":"sent"})", "Marked sent to the supplier."},
        RoundCase{"SentToBlanks",
                  [](Store& store, const FileItem& file) {
                    store.markApprovalSent(suppliedBy(file, " "));
                  },
                  "approval", kPost, R"({"action":"sent"})", "Marked sent to the supplier."},
        RoundCase{"Approvers",
                  [](Store& store, const FileItem&) {
                    store.saveApprovers({{"ada@b.c", "Ada \"A\" Lind"}, {"ben@b.c", std::nullopt}});
                  },
                  "approvers", "POST api/approvers",
                  R"({"approvers":[{"email":"ada@b.c","name":"Ada \"A\" Lind"},)"
                  R"({"email":"ben@b.c","name":""}]})",
                  "Saved the approvers."},
        RoundCase{"NoApprovers", [](Store& store, const FileItem&) { store.saveApprovers({}); },
                  "approvers", "POST api/approvers", R"({"approvers":[]})",
                  "Saved the approvers."}),
    [](const auto& each) { return each.param.name; });

struct AfterCase {
  const char* name;
  const char* after;
  const char* answer;
  const char* said;
  std::vector<std::string> copied;
  std::optional<std::string> mailed;  // the link in the mail that was opened
};
BOOST_DESCRIBE_STRUCT(AfterCase, (), (name, after, answer, said, copied, mailed))

class AfterApproval : public ApprovalRound, public testing::WithParamInterface<AfterCase> {};

TEST_P(AfterApproval, TheLinkIsPassedOnAsItWasWanted) {
  request({"ada@b.c"}, GetParam().after);
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  answerRequest(answerOf(200, GetParam().answer));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_EQ(desk.clipboard.texts, GetParam().copied);
  ASSERT_EQ(desk.opener.opened.size(), GetParam().mailed ? 1U : 0U);
  if (GetParam().mailed) {
    const auto url = parseUrl(desk.opener.opened[0]);
    EXPECT_NE(url->item("body")->value().find("\n" + *GetParam().mailed + "\n"), std::string::npos);
  }
  EXPECT_TRUE(store().busy().empty());
}

constexpr const char* kSaid = "Sent v2 to Ada for approval.";
constexpr const char* kCopied = "Sent v2 to Ada for approval. The Notion link is copied.";

INSTANTIATE_TEST_SUITE_P(
    Notion, AfterApproval,
    testing::Values(
        AfterCase{"Embed", "notion", kShare, kCopied, {"https://s.example/1/embed"}, {}},
        AfterCase{"NoEmbed",
                  "notion",
                  R"({"share":{"url":"https://s/1"}})",
                  kCopied,
                  {"https://s/1"},
                  {}},
        AfterCase{"EmbedIsNoText",
                  "notion",
                  R"({"share":{"url":"https://s/1","embed_url":5}})",
                  kCopied,
                  {"https://s/1"},
                  {}},
        AfterCase{"EmbedIsEmpty",
                  "notion",
                  R"({"share":{"url":"https://s/1","embed_url":""}})",
                  kCopied,
                  {"https://s/1"},
                  {}},
        AfterCase{"EmbedAlone",
                  "notion",
                  R"({"share":{"embed_url":"https://s/e"}})",
                  kCopied,
                  {"https://s/e"},
                  {}},
        AfterCase{"NoLink", "notion", R"({"share":{}})", kCopied, {}, {}},
        AfterCase{
            "LinkIsNull", "notion", R"({"share":{"url":null,"embed_url":[]}})", kCopied, {}, {}},
        AfterCase{"NoShare", "notion", R"({"approval":"pending"})", kCopied, {}, {}},
        AfterCase{"ShareIsNoObject", "notion", R"({"share":"https://s/1"})", kCopied, {}, {}},
        AfterCase{"ShareIsNull", "notion", R"({"share":null})", kCopied, {}, {}},
        AfterCase{"NoObject", "notion", "[1]", kCopied, {}, {}},
        AfterCase{"NoJson", "notion", "done", kCopied, {}, {}},
        AfterCase{"NoBody", "notion", "", kCopied, {}, {}}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Gmail, AfterApproval,
    testing::Values(
        AfterCase{"Link", "gmail", kShare, kSaid, {}, "https://s.example/1"},
        AfterCase{"EmbedAlone", "gmail", R"({"share":{"embed_url":"https://s/e"}})", kSaid, {}, {}},
        AfterCase{"LinkIsNoText", "gmail", R"({"share":{"url":true}})", kSaid, {}, {}},
        AfterCase{"NoShare", "gmail", "{}", kSaid, {}, {}}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(Nothing, AfterApproval,
                         testing::Values(AfterCase{"None", "none", kShare, kSaid, {}, {}},
                                         AfterCase{"Empty", "", kShare, kSaid, {}, {}},
                                         AfterCase{"Other", "Notion", kShare, kSaid, {}, {}}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ApprovalRound, OfATicketWithoutAVersionIsOfTheFirst) {
  file.version.reset();
  request({"ada@b.c", "ben@b.c", "cy@b.c"}, "notion");
  answerRequest(answerOf(200, kShare));
  EXPECT_EQ(desk.toastText(),
            "Sent v1 to Ada, Ben and Cy for approval. The Notion link is copied.");
}

TEST_F(ApprovalRound, PassesNothingOnOnceSomebodySignedOut) {
  for (const char* after : {"notion", "gmail"}) {
    request({"ada@b.c"}, after);
    const std::size_t late = desk.http.exchanges.size() - 1;
    store().signOut(false);
    desk.time.run();
    desk.api.setToken("token-2");
    store().signedIn.set(true);
    answer(late, answerOf(200, kShare));
    EXPECT_THAT(desk.clipboard.texts, IsEmpty());
    EXPECT_THAT(desk.opener.opened, IsEmpty());
    EXPECT_FALSE(store().toast());
    EXPECT_TRUE(store().busy().empty());
  }
}

TEST_F(ApprovalRound, ThatJsonCannotHoldDidNotGoThrough) {
  request({"ada@b.c"}, "notion", "\xff");
  EXPECT_EQ(desk.toastText(), "That didn't go through. Try again.");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_THAT(desk.clipboard.texts, IsEmpty());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(ApprovalRound, ShowsTheAnswersOnceTheTicketHasMoved) {
  store().selection.set({"t1"});
  store().details.set({{"t1", detailOf(file)}});
  FileItem moved = file;
  moved.rev = 2;
  moved.approval = "pending";
  FileDetail detail = detailOf(moved);
  detail.approval.emplace();
  detail.approval->asked = {"ada@b.c"};
  serveBoard(boardOf({moved}));
  serveDetail(detail);
  request({"ada@b.c"}, "none");
  answerRequest(answerOf(200, "{}"));
  EXPECT_EQ(store().currentDetail()->approval, detail.approval);
}

}  // namespace
}  // namespace vellix
