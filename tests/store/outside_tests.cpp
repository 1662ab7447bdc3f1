// What goes to the clipboard and into the browser.
#include <gmock/gmock.h>

#include "gateway/url.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

struct LinkCase {
  const char* name;
  std::optional<ShareInfo> share;
  std::optional<std::string> copied;
  std::optional<std::string> embedded;
  std::optional<std::string> opened;
};
BOOST_DESCRIBE_STRUCT(LinkCase, (), (name, share, copied, embedded, opened))

class Links : public StoreTest, public testing::WithParamInterface<LinkCase> {
 protected:
  FileItem file = ticketOf("t1");
  void SetUp() override { file.share = GetParam().share; }
  void expectCopied(const std::optional<std::string>& text, const char* said) {
    EXPECT_EQ(desk.clipboard.texts, text ? std::vector{*text} : std::vector<std::string>{});
    EXPECT_EQ(desk.toastText(), text ? said : "");
    desk.time.run();
    EXPECT_TRUE(desk.http.exchanges.empty());
  }
};

TEST_P(Links, AreCopiedWhereThereIsOne) {
  store().copyLink(file);
  expectCopied(GetParam().copied, "Link copied.");
}

TEST_P(Links, AreCopiedForNotion) {
  store().copyNotionLink(file);
  expectCopied(GetParam().embedded, "Copied for Notion. Paste it in the task and pick Embed.");
}

TEST_P(Links, AreOpenedWhereTheyLeadToAPage) {
  store().openLink(file);
  EXPECT_EQ(desk.opener.opened,
            GetParam().opened ? std::vector{*GetParam().opened} : std::vector<std::string>{});
  EXPECT_FALSE(store().toast());
}

ShareInfo shareOf(std::optional<std::string> url, std::optional<std::string> embed,
                  bool enabled = true) {
  return {.enabled = enabled, .url = std::move(url), .embed_url = std::move(embed)};
}

constexpr std::nullopt_t kNone = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    All, Links,
    testing::Values(LinkCase{"NoShare", kNone, kNone, kNone, kNone},
                    LinkCase{"NoLink", shareOf(kNone, kNone), kNone, kNone, kNone},
                    LinkCase{"EmptyLinks", shareOf("", " "), kNone, kNone, kNone},
                    LinkCase{"Both", shareOf("https://s/1?a=b&c=%2B#d", "https://s/e"),
                             "https://s/1?a=b&c=%2B#d", "https://s/e", "https://s/1?a=b&c=%2B#d"},
                    LinkCase{"LinkAlone", shareOf("https://s/1", kNone), "https://s/1",
                             "https://s/1", "https://s/1"},
                    LinkCase{"EmbedAlone", shareOf(kNone, "https://s/e"), kNone, "https://s/e",
                             kNone},
                    LinkCase{"Off", shareOf("https://s/1", "https://s/e", false), "https://s/1",
                             "https://s/e", "https://s/1"},
                    LinkCase{"NoPage", shareOf("file:///etc/passwd", kNone), "file:///etc/passwd",
                             "file:///etc/passwd", kNone}),
    [](const auto& each) { return each.param.name; });

class Mail : public StoreTest {
 protected:
  FileItem file = ticketAt("t1", 1, 3);

  void SetUp() override {
    file.po = "PO 7";
    file.title = "The Lighthouse";
    BoardState board = boardOf({file});
    board.approvers = std::vector<Guest>{{"ada@b.c", "Ada Lind"}, {"ben@b.c", "Ben"}};
    store().board.set(board);
  }
  UrlParts opened() {
    EXPECT_EQ(desk.opener.opened.size(), 1U);
    EXPECT_TRUE(isWebUrl(desk.opener.opened.back()));
    return parseUrl(desk.opener.opened.back()).value();
  }
  std::string item(std::string_view name) { return opened().item(name)->value_or("no value"); }
};

TEST_F(Mail, NamesTheProofAndWhoIsAsked) {
  store().composeApprovalMail(file, {"ada@b.c", "ben@b.c"}, "https://s.example/1");
  const std::string body =
      "Hi Ada and Ben,\n\nPO 7 The Lighthouse v3 is ready for your approval:\n"
      "https://s.example/1\n\nSign in with your Tessarine Google account. You can approve it or "
      "request changes right on the page.\n\nThanks!\nRenny";
  EXPECT_THAT(
      opened().query,
      ElementsAre(Pair("view", "cm"), Pair("fs", "1"), Pair("authuser", "renny@tessarine.example"),
                  Pair("to", "ada@b.c,ben@b.c"), Pair("su", "Approval: PO 7 The Lighthouse v3"),
                  Pair("body", body)));
  EXPECT_THAT(desk.opener.opened[0], StartsWith("https://mail.tessarine.example/mail/?view=cm&"));
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_FALSE(store().toast());
}

struct Greeting {
  const char* name;
  std::vector<std::string> emails;
  const char* words;
};
BOOST_DESCRIBE_STRUCT(Greeting, (), (name, emails, words))

class Greetings : public Mail, public testing::WithParamInterface<Greeting> {};

TEST_P(Greetings, NameOneOrTwo) {
  store().composeApprovalMail(file, GetParam().emails, "https://s/1");
  EXPECT_THAT(item("body"), StartsWith(std::string{GetParam().words} + "\n\nPO 7"));
}

INSTANTIATE_TEST_SUITE_P(
    All, Greetings,
    testing::Values(Greeting{"Nobody", {}, "Hi ,"}, Greeting{"One", {"ada@b.c"}, "Hi Ada,"},
                    Greeting{"Two", {"ada@b.c", "cy@b.c"}, "Hi Ada and Cy,"},
                    Greeting{"Three", {"ada@b.c", "ben@b.c", "cy@b.c"}, "Hi all,"}),
    [](const auto& each) { return each.param.name; });

struct Proof {
  const char* name;
  std::optional<std::string> po;
  std::optional<std::string> title;
  std::optional<Int> version;
  const char* subject;
};
BOOST_DESCRIBE_STRUCT(Proof, (), (name, po, title, version, subject))

class Proofs : public Mail, public testing::WithParamInterface<Proof> {};

TEST_P(Proofs, AreNamedByWhatIsKnown) {
  file.po = GetParam().po;
  file.title = GetParam().title;
  file.version = GetParam().version;
  store().composeApprovalMail(file, {"ada@b.c"}, "https://s/1");
  EXPECT_EQ(item("su"), GetParam().subject);
}

INSTANTIATE_TEST_SUITE_P(
    All, Proofs,
    testing::Values(Proof{"NoPo", kNone, "Rain", 2, "Approval: Rain v2"},
                    Proof{"EmptyPo", "", "Rain", 2, "Approval: Rain v2"},
                    Proof{"NoVersion", "PO 7", "Rain", kNone, "Approval: PO 7 Rain v1"},
                    Proof{"NoTitle", "PO 7", kNone, 2, "Approval: PO 7 Untitled file v2"}),
    [](const auto& each) { return each.param.name; });

TEST_F(Mail, EscapesWhateverStandsInATitle) {
  for (const char* title :
       {"Salt & Lanterns + #1 = 100% \"new\"?", "燈台へ / К маяку / إلى المنارة",
        "two\nlines\r\nand\ttab", "a%20b&su=other#end", "'<>\\^`{|};,:@"}) {
    desk.opener.opened.clear();
    file.title = title;
    const std::string link = "https://s.example/1?a=b&c=d+e%20f#g";
    store().composeApprovalMail(file, {"a+b&c@b.c"}, link);
    EXPECT_EQ(opened().query.size(), 6U) << title;
    EXPECT_EQ(item("su"), "Approval: PO 7 " + std::string{title} + " v3");
    EXPECT_EQ(item("to"), "a+b&c@b.c");
    EXPECT_NE(item("body").find("\n" + link + "\n"), std::string::npos);
    const std::string& url = desk.opener.opened[0];
    EXPECT_EQ(url.find_first_of("+# \"\n"), std::string::npos) << url;
  }
}

TEST_F(Mail, GoesToThirtyPeopleAtOnce) {
  std::vector<std::string> emails;
  std::string all;
  for (int i = 0; i < 30; ++i) {
    emails.push_back("reviewer" + std::to_string(i) + "@tessarine.example");
    all += (i > 0 ? "," : "") + emails.back();
  }
  store().composeApprovalMail(file, emails, "https://s/1");
  EXPECT_EQ(item("to"), all);
  EXPECT_THAT(item("body"), StartsWith("Hi all,"));
}

TEST_F(Mail, IsFromNobodyWithoutABoard) {
  store().board.set(std::nullopt);
  store().composeApprovalMail(file, {"ada@b.c"}, "https://s/1");
  EXPECT_EQ(item("authuser"), "");
  EXPECT_THAT(item("body"), testing::EndsWith("\n\nThanks!\n"));
}

TEST_F(Mail, TakesAnySubjectAndBody) {
  store().openGmailCompose({}, "", "\xff\x01");
  EXPECT_EQ(item("to"), "");
  EXPECT_EQ(item("su"), "");
  EXPECT_EQ(item("body"), "\xff\x01");
}

TEST_F(Mail, ThatNothingOpensIsNoFailure) {
  desk.opener.works = false;
  store().composeApprovalMail(file, {"ada@b.c"}, "https://s/1");
  EXPECT_FALSE(store().toast());
}

}  // namespace
}  // namespace vellix
