// What a review left behind is there after a crash, and what was under way goes on.
#include <algorithm>

#include "kept_service.hpp"

namespace vellix::demo_tests {
namespace {

const Finding& openOne(const FileDetail& detail) {
  return *std::ranges::find_if(detail.findings, [](const Finding& finding) {
    return finding.state == "open" && finding.kind != "expected" && finding.kind != "pass";
  });
}

TEST_F(KeptService, KnowsNothingElseAfterACrash) {
  const auto before = everything();
  restart();
  expectSame(before, everything());
}

TEST_F(KeptService, KnowsAWholeDayOfReviewAfterACrash) {
  const auto done = [&](const std::string& path, const std::string& body) {
    EXPECT_EQ(statusOf(post(path, body)), 200) << path << body;
  };
  const std::string decided = openOne(detail("salt-text")).id;
  done("/api/findings/" + decided, R"({"state":"issue"})");
  done("/api/findings/" + openOne(detail("salt-text")).id, R"({"state":"fine"})");
  done("/api/comments",
       R"({"file_id":"salt-text","page":2,"x":0.25,"y":0.125,"w":0.5,"h":0.1,)"
       R"("side":"ours","text":"“Größe” \\ 🙂","tags":["jorvas@tessarine.example"]})");
  done("/api/comments/n-folio", R"({"text":"It moved."})");
  done("/api/comments/n-gap", R"({"resolved":false})");
  done("/api/comments/n-running-head", R"({"deleted":true})");
  done("/api/files/salt-text/status", R"({"status":"reviewed"})");
  done("/api/files/bread-text/assign", R"({"email":"jorvas@tessarine.example"})");
  done("/api/files/bread-text/due", R"({"urgent":true})");
  done("/api/files/bread-text/track", R"({"track":"reprint"})");
  done("/api/files/salt-text/share", R"({"enabled":true,"access":"edit","reset":true})");
  done("/api/approvers", R"({"approvers":[{"email":"new@example.com","name":"New"}]})");
  done("/demo/waits", R"({"approvers":true})");
  done("/api/files/lanterns-cover/approval",
       R"({"action":"request","approvers":["mira@tessarine.example"],"note":"Please"})");
  done("/demo/answers", R"({"file_id":"lanterns-cover","kind":"changes","note":"Not so pink"})");
  done("/demo/people", R"({"email":"ada@tessarine.example","name":"Ada","counted":false})");
  done("/demo/findings", R"({"file_id":"carto-text","page":1,"count":100})");
  done("/api/jobs", R"({"kind":"report","file_ids":["salt-text"]})");
  done("/api/jobs", R"({"kind":"sync"})");
  ASSERT_TRUE(eventually([](const BoardState& now) {
    return now.reports.size() == 2 && now.sync && !now.sync->active();
  }));
  ASSERT_EQ(statusOf(put("rain-cover", writtenPdf({pageSaying("Rain"), pageSaying("Salt")}))), 200);
  ASSERT_TRUE(checked("rain-cover"));
  const auto picture = textOf("/api/blob/thumbs/salt-text/v1/p001.jpg");
  EXPECT_EQ(statusOf(client_.Put("/api/me/photo", headers(), picture, "image/jpeg")), 200);

  auto before = everything();
  const std::string drawn = textOf("/api/blob/files/rain-cover/v3/p002.jpg");
  const std::string proof = textOf("/demo/proof?file_id=rain-cover");
  restart();
  expectSame(before, everything());
  EXPECT_EQ(textOf("/api/blob/files/rain-cover/v3/p002.jpg"), drawn);
  EXPECT_EQ(textOf("/demo/proof?file_id=rain-cover"), proof);
  const auto figures = decode<Stats>(textOf("/api/stats"));
  ASSERT_TRUE(figures);
  EXPECT_FALSE(figures->users.contains("ada@tessarine.example")) << "there are no figures of hers";
  const BoardState now = board();
  const auto link = std::ranges::find(now.files, "salt-text", &FileItem::id)->share;
  ASSERT_TRUE(link);
  EXPECT_EQ(statusOf(client_.Get(link->url->substr(link->url->find("/s/")))), 200);
  // New ones do not take the names of old ones.
  done("/api/comments", R"({"file_id":"salt-text","text":"Another"})");
  const auto notes = detail("salt-text").comments;
  std::set<std::string> ids;
  for (const Note& note : notes) ids.insert(note.id);
  EXPECT_EQ(ids.size(), notes.size());
  restart();
  EXPECT_EQ(detail("salt-text").comments, notes);
}

TEST_F(KeptService, TakesNothingOfBeforeForUnchanged) {
  const auto before = get("/api/state");
  const auto ticket = get("/api/files/salt-text");
  const std::string etag = before->get_header_value("ETag");
  EXPECT_EQ(statusOf(get("/api/state", etag)), 304);
  restart();
  const auto after = get("/api/state", etag);
  EXPECT_EQ(statusOf(after), 200);
  EXPECT_EQ(after->body, before->body);
  EXPECT_EQ(statusOf(get("/api/files/salt-text", ticket->get_header_value("ETag"))), 200);
  EXPECT_EQ(statusOf(get("/api/state", after->get_header_value("ETag"))), 304);
}

TEST_F(KeptService, StaysSignedInAndSignedOut) {
  const std::string first = token_;
  signIn();
  EXPECT_EQ(statusOf(post("/api/logout", "{}")), 200);
  restart();
  EXPECT_EQ(statusOf(get("/api/state")), 401) << "signed out is signed out";
  token_ = first;
  EXPECT_EQ(statusOf(get("/api/state")), 200);
}

TEST_F(KeptService, GoesOnWithTheJobsThatWereUnderWay) {
  ASSERT_EQ(statusOf(post("/demo/worker", R"({"hold":"Drawing pages"})")), 200);
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"report","file_ids":["salt-text"]})")), 200);
  ASSERT_TRUE(
      eventually([](const BoardState& now) { return now.jobs[0].step == "Drawing pages"; }));
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"sync"})")), 200);
  const std::string report = board().jobs[0].id;
  restart();
  ASSERT_TRUE(eventually([](const BoardState& now) {
    return now.reports.size() == 2 && now.sync && now.sync->status == "done";
  }));
  const BoardState now = board();
  EXPECT_EQ(now.jobs[0].id, report);
  EXPECT_EQ(now.jobs[0].status, "done");
  EXPECT_EQ(now.jobs[0].steps->size(), 6U) << "each step once";
  EXPECT_EQ(textOf("/api/reports/" + now.reports[0].id + "/pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(now.jobs[1].status, "stuck") << "what had been given up stays so";
}

TEST_F(KeptService, LetsApproversAnswerWhoWereAbout) {
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"approvers":true})")), 200);
  ASSERT_EQ(statusOf(post("/api/files/carto-text/approval",
                          R"({"action":"request","approvers":["mira@tessarine.example",)"
                          R"("tomas@tessarine.example"]})")),
            200);
  ASSERT_EQ(
      statusOf(post("/demo/answers", R"({"file_id":"carto-text","by":"mira@tessarine.example"})")),
      200);
  const auto said = detail("carto-text").approval->answers.at("mira@tessarine.example");
  restart();
  ASSERT_TRUE(eventually(
      [&](const BoardState&) { return detail("carto-text").approval->state == "approved"; }));
  EXPECT_EQ(detail("carto-text").approval->answers.at("mira@tessarine.example"), said);
  EXPECT_EQ(detail("rain-text").approval->state, "pending")
      << "whoever had not answered when the demo began does not now";
}

TEST_F(KeptService, LeadsOldLinksToItsNewAddress) {
  const auto linkOf = [](const BoardState& now) {
    const auto found = std::ranges::find(now.files, "carto-jacket", &FileItem::id);
    return found == now.files.end() || !(*found).share ? "" : (*found).share->url.value_or("");
  };
  const std::string old = linkOf(board());
  ASSERT_NE(old.find("/s/"), std::string::npos) << old;
  running_->kill();
  running_ = std::make_unique<RunningService>(arguments("0"));
  ASSERT_GT(running_->port(), 0);
  Elsewhere there(running_->port(), token_);
  const std::string url = linkOf(there.board());
  ASSERT_NE(url.find("/s/"), std::string::npos) << url;
  EXPECT_EQ(url.substr(url.find("/s/")), old.substr(old.find("/s/")));
  EXPECT_NE(url.find(":" + std::to_string(running_->port()) + "/"), std::string::npos) << url;
  EXPECT_EQ(there.get(url.substr(url.find("/s/")))->status, 200);
}

}  // namespace
}  // namespace vellix::demo_tests
