// Rounds of approval and the pages of share links.
#include <algorithm>

#include "demo_service.hpp"
#include "written_pdf.hpp"

namespace vellix::demo_tests {
namespace {

constexpr const char* kAsk =
    R"({"action":"request","approvers":["mira@tessarine.example","tomas@tessarine.example"],)"
    R"("note":"Mind the <b>seal</b> & the \"fold\""})";

class Rounds : public DemoService {
 protected:
  void SetUp() override {
    DemoService::SetUp();
    ASSERT_EQ(statusOf(post("/demo/waits", R"({"approvers":true})")), 200);
  }
  void TearDown() override {
    (void)post("/demo/waits", R"({"approvers":false})");
    DemoService::TearDown();
  }
  int act(const std::string& id, const std::string& body) {
    return statusOf(post("/api/files/" + id + "/approval", body));
  }
  int answers(const std::string& id, const std::string& rest) {
    return statusOf(post("/demo/answers", R"({"file_id":")" + id + "\"" + rest + "}"));
  }
  ShareInfo link(const std::string& id) { return detail(id).file.share.value_or(ShareInfo{}); }
  // What lies behind a link's address.
  std::string pathOf(const std::optional<std::string>& url) {
    const std::string base = "http://127.0.0.1:" + std::to_string(service_->port());
    EXPECT_TRUE(url && url->starts_with(base)) << url.value_or("");
    return url ? url->substr(base.size()) : std::string();
  }
};

TEST_F(Rounds, GoThroughChangesARevisionAndASecondRound) {
  const std::string id = "salt-case";
  ASSERT_EQ(act(id, kAsk), 200);
  EXPECT_EQ(detail(id).file.approval, "pending");
  ASSERT_EQ(answers(id, R"(,"by":"tomas@tessarine.example","kind":"approved")"), 200);
  EXPECT_EQ(detail(id).file.approval, "pending");
  ASSERT_EQ(answers(id, R"(,"kind":"changes","note":"Lift the title.")"), 200);
  FileDetail now = detail(id);
  EXPECT_EQ(now.file.approval, "changes");
  EXPECT_EQ(now.file.approval_by, "mira@tessarine.example");
  EXPECT_EQ(now.approval->answers.at("mira@tessarine.example").note, "Lift the title.");
  EXPECT_EQ(now.approval->answers.at("tomas@tessarine.example").kind, "approved");

  ASSERT_EQ(statusOf(client_.Put("/api/files/" + id + "/versions", headers(),
                                 writtenPdf({pageSaying("Salt")}), "application/pdf")),
            200);
  EXPECT_EQ(detail(id).file.approval, "revised");
  EXPECT_TRUE(
      eventually([&](const BoardState&) { return detail(id).versions->back().status == "done"; }));
  ASSERT_EQ(act(id, kAsk), 200);
  now = detail(id);
  EXPECT_EQ(now.file.approval, "pending");
  EXPECT_EQ(now.approval->version, 2);
  EXPECT_TRUE(now.approval->answers.empty()) << "a new round has its own answers";
  ASSERT_EQ(answers(id, ""), 200);
  EXPECT_EQ(detail(id).file.approval, "approved");
  ASSERT_EQ(act(id, R"({"action":"sent"})"), 200);
  now = detail(id);
  EXPECT_EQ(now.file.approval, "sent");
  std::vector<std::string> kinds;
  for (const Event& event : *now.history) kinds.push_back(event.kind);
  const std::vector<std::string> told = {"approval",     "approved", "changes",  "version",
                                         "checked",      "approval", "approved", "approved",
                                         "approved_all", "sent"};
  ASSERT_GE(kinds.size(), told.size());
  EXPECT_TRUE(std::equal(told.rbegin(), told.rend(), kinds.rbegin()));
}

TEST_F(Rounds, CanBeTakenBackAndAskedAnew) {
  const std::string id = "carto-text";
  EXPECT_EQ(act(id, R"({"action":"withdraw"})"), 400);
  ASSERT_EQ(act(id, kAsk), 200);
  EXPECT_EQ(act(id, kAsk), 400) << "it is out already";
  ASSERT_EQ(act(id, R"({"action":"withdraw"})"), 200);
  EXPECT_FALSE(detail(id).file.approval);
  EXPECT_EQ(answers(id, ""), 400);
  ASSERT_EQ(act(id, kAsk), 200);
  EXPECT_EQ(answers(id, R"(,"by":"renny@tessarine.example")"), 400) << "nobody asked them";
  EXPECT_EQ(answers(id, R"(,"kind":"perhaps")"), 400);
  EXPECT_EQ(act(id, R"({"action":"request","approvers":[]})"), 400);
}

TEST_F(Rounds, AreAnsweredByThemselvesAndAnAnswerStands) {
  const std::string id = "bread-text";
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"approvers":false})")), 200);
  ASSERT_EQ(act(id, kAsk), 200);
  // Both may have answered already; what was said on request is not said over.
  (void)answers(id, R"(,"by":"mira@tessarine.example","note":"At once.")");
  EXPECT_TRUE(
      eventually([&](const BoardState&) { return detail(id).file.approval == "approved"; }));
  Int said = 0;
  for (const Event& event : *detail(id).history) said += event.kind == "approved";
  EXPECT_EQ(said, 2);
}

TEST_F(Rounds, AreAskedToSeeToARealIssueByTheLastOfThem) {
  const std::string id = "carto-jacket";
  const auto findings = detail(id).findings;
  const auto issue = std::ranges::find(findings, "open", &Finding::state);
  ASSERT_NE(issue, findings.end());
  ASSERT_EQ(statusOf(post("/api/findings/" + issue->id, R"({"state":"issue"})")), 200);
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"approvers":false})")), 200);
  ASSERT_EQ(act(id, kAsk), 200);
  EXPECT_TRUE(eventually([&](const BoardState&) { return detail(id).file.approval == "changes"; }));
  const FileDetail now = detail(id);
  EXPECT_EQ(now.file.approval_by, "tomas@tessarine.example");
  EXPECT_EQ(now.approval->answers.at("mira@tessarine.example").kind, "approved");
  const Answer& last = now.approval->answers.at("tomas@tessarine.example");
  EXPECT_EQ(last.kind, "changes");
  EXPECT_EQ(last.note, "Please see to this first: " + issue->title + ".");
}

TEST_F(Rounds, KeepTheApproversAsSent) {
  ASSERT_EQ(statusOf(post("/api/approvers",
                          R"({"approvers":[{"email":"mira@tessarine.example","name":"Mira Holt"},)"
                          R"({"email":"new@tessarine.example","name":""}]})")),
            200);
  auto now = board().approvers;
  ASSERT_TRUE(now);
  ASSERT_EQ(now->size(), 2U);
  EXPECT_EQ((*now)[0].name, "Mira Holt");
  EXPECT_EQ((*now)[1].email, "new@tessarine.example");
  EXPECT_FALSE((*now)[1].name);
  EXPECT_EQ(statusOf(post("/api/approvers", R"({"approvers":[{"name":"Nobody"}]})")), 400);
  EXPECT_EQ(statusOf(post("/api/approvers", R"({})")), 400);
  EXPECT_EQ(board().approvers->size(), 2U);
  EXPECT_EQ(statusOf(post("/api/approvers", R"({"approvers":[]})")), 200);
  EXPECT_TRUE(board().approvers->empty());
}

TEST_F(Rounds, AreToldOnThePageOfTheLink) {
  const std::string id = "lanterns-cover";
  ASSERT_EQ(act(id, kAsk), 200);
  const std::string path = pathOf(link(id).url);
  const auto page = client_.Get(path);
  ASSERT_EQ(statusOf(page), 200);
  EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
  for (const char* told :
       {"<h1>Lanterns over Vale Cover</h1>", "v1", "Out for approval", "The barcode reads",
        "Mind the &lt;b&gt;seal&lt;/b&gt; &amp; the &quot;fold&quot;", "mira@tessarine.example",
        "The link is on: anyone with it can view."}) {
    EXPECT_NE(page->body.find(told), std::string::npos) << told;
  }
  EXPECT_EQ(page->body.find("<b>seal"), std::string::npos);
  const auto embedded = client_.Get(pathOf(link(id).embed_url));
  ASSERT_EQ(statusOf(embedded), 200);
  EXPECT_EQ(embedded->body.find("<form"), std::string::npos);

  // Its pictures need no session, and lead to no other ticket.
  const std::string key = *detail(id).file.pages->front().thumb;
  EXPECT_NE(page->body.find(path + "/pictures/" + key), std::string::npos);
  const auto picture = client_.Get(path + "/pictures/" + key);
  ASSERT_EQ(statusOf(picture), 200);
  EXPECT_EQ(sizeOfJpeg(picture->body).first, 180);
  EXPECT_EQ(statusOf(client_.Get(path + "/pictures/thumbs/salt-text/v1/p001.jpg")), 404);
  const auto pdf = client_.Get(path + "/proof.pdf");
  ASSERT_EQ(statusOf(pdf), 200);
  EXPECT_TRUE(pdf->body.starts_with("%PDF-"));
}

TEST_F(Rounds, AreAnsweredOnThePageOfTheLink) {
  const std::string id = "bread-cover";
  ASSERT_EQ(act(id, kAsk), 200);
  const std::string path = pathOf(link(id).url) + "/answer";
  const auto say = [&](const std::string& form) {
    return statusOf(client_.Post(path, form, "application/x-www-form-urlencoded"));
  };
  EXPECT_EQ(say("by=nobody%40tessarine.example&kind=approved"), 400);
  EXPECT_EQ(say("by=mira%40tessarine.example&kind=changes&note=A+%2B+B+%26+%E2%80%9Cc%E2%80%9D"),
            200);
  const FileDetail now = detail(id);
  EXPECT_EQ(now.file.approval, "changes");
  EXPECT_EQ(now.approval->answers.at("mira@tessarine.example").note, "A + B & “c”");
  EXPECT_EQ(say("by=tomas%40tessarine.example&kind=approved"), 400) << "the round is over";
}

TEST_F(Rounds, LinksSaySoWhenTheyWorkNoMore) {
  const std::string id = "rain-front";
  const auto share = [&](const std::string& body) {
    return statusOf(post("/api/files/" + id + "/share", body));
  };
  ASSERT_EQ(share(R"({"enabled":true})"), 200);
  const std::string path = pathOf(link(id).url);
  EXPECT_EQ(statusOf(client_.Get(path)), 200);
  ASSERT_EQ(share(R"({"access":"comment"})"), 200);
  EXPECT_NE(client_.Get(path)->body.find("anyone with it can comment"), std::string::npos);

  ASSERT_EQ(share(R"({"enabled":false,"access":"comment"})"), 200);
  const auto off = client_.Get(path);
  EXPECT_EQ(statusOf(off), 403);
  EXPECT_NE(off->body.find("This link is off"), std::string::npos);
  EXPECT_EQ(statusOf(client_.Get(path + "/proof.pdf")), 403);

  ASSERT_EQ(share(R"({"enabled":true})"), 200);
  EXPECT_EQ(statusOf(client_.Get(path)), 200) << "the same link is on again";
  ASSERT_EQ(share(R"({"reset":true})"), 200);
  const auto old = client_.Get(path);
  EXPECT_EQ(statusOf(old), 410);
  EXPECT_NE(old->body.find("This link was replaced"), std::string::npos);
  EXPECT_EQ(statusOf(client_.Get(pathOf(link(id).url))), 200);
  EXPECT_EQ(statusOf(client_.Get("/s/000000000000")), 404);
  EXPECT_EQ(statusOf(client_.Get("/embed/")), 404);
}

}  // namespace
}  // namespace vellix::demo_tests
