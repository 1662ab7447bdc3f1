// The demo service over its own socket, read with the client's own records.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "demo_service.hpp"

namespace vellix::demo_tests {
namespace {

const Finding* openFinding(const FileDetail& detail) {
  for (const Finding& finding : detail.findings) {
    if (finding.state == "open" && finding.kind != "expected") return &finding;
  }
  return nullptr;
}

TEST_F(DemoService, AnnouncesItselfInOneLine) {
  EXPECT_EQ(service_->announced(),
            "listening on http://127.0.0.1:" + std::to_string(service_->port()) + "\n");
}

TEST_F(DemoService, WantsATokenThatItKnows) {
  token_.clear();
  EXPECT_EQ(statusOf(get("/api/state")), 401);
  token_ = "made-up";
  const auto answer = get("/api/blob/files/salt-text/v1/p001.jpg");
  ASSERT_EQ(statusOf(answer), 401);
  const auto body = decodeJson(answer->body);
  ASSERT_TRUE(body);
  ASSERT_NE(body->find("error"), nullptr);
  EXPECT_EQ(statusOf(post("/api/logout", "{}")), 200);
}

TEST_F(DemoService, TakesACodeOfItsPageOnceAndForItsNonceOnly) {
  const auto codesIn = [&] {
    const auto page = client_.Get("/signin?state=abc123");
    std::vector<std::string> codes;
    const std::string mark = "sorel://signed-in?code=";
    for (auto at = page->body.find(mark); at != std::string::npos;
         at = page->body.find(mark, at + 1)) {
      codes.push_back(page->body.substr(at + mark.size(), 32));
    }
    return codes;
  };
  const auto codes = codesIn();
  ASSERT_EQ(codes.size(), 2U);
  const auto bodyFor = [](const std::string& code, const std::string& state) {
    return R"({"code":")" + code + R"(","state":")" + state + R"(","device":"test"})";
  };
  EXPECT_EQ(statusOf(post("/api/login/exchange", bodyFor(codes[0], "other"))), 400);
  EXPECT_EQ(statusOf(post("/api/login/exchange", bodyFor(codes[1], "abc123"))), 200);
  EXPECT_EQ(statusOf(post("/api/login/exchange", bodyFor(codes[1], "abc123"))), 400);
}

TEST_F(DemoService, SaysNotModifiedUntilSomethingChanges) {
  const auto first = get("/api/state");
  ASSERT_EQ(statusOf(first), 200);
  const std::string etag = first->get_header_value("ETag");
  ASSERT_FALSE(etag.empty());
  const auto second = get("/api/state", etag);
  ASSERT_EQ(statusOf(second), 304);
  EXPECT_TRUE(second->body.empty());
  ASSERT_EQ(statusOf(post("/demo/colleague", R"({"file_id":"salt-text","text":"Seen."})")), 200);
  EXPECT_EQ(statusOf(get("/api/state", etag)), 200);
}

TEST_F(DemoService, FindsMoreWhenToldTo) {
  const auto before = detail("carto-text");
  ASSERT_EQ(statusOf(post("/demo/findings", R"({"file_id":"carto-text","page":2,"count":12})")),
            200);
  const auto after = detail("carto-text");
  ASSERT_EQ(after.findings.size(), before.findings.size() + 12);
  EXPECT_EQ(after.findings.back().page, 2);
  EXPECT_EQ(after.findings.back().state, "open");
  EXPECT_NE(after.file.rev, before.file.rev);
  const std::string decision = "/api/findings/" + after.findings.back().id;
  EXPECT_EQ(statusOf(post(decision, R"({"state":"fine"})")), 200);
  EXPECT_EQ(statusOf(post("/demo/findings", R"({"file_id":"nowhere"})")), 404);
  EXPECT_EQ(statusOf(post("/demo/findings", R"({"file_id":"carto-text","page":900})")), 400);
  EXPECT_EQ(statusOf(post("/demo/findings", R"({"file_id":"carto-text","count":101})")), 400);
}

TEST_F(DemoService, ShowsABoardWorthLookingAt) {
  const BoardState now = board();
  EXPECT_EQ(now.users.size(), 2U);
  EXPECT_GE(now.files.size(), 12U);
  std::set<std::string> tracks, statuses, suppliers;
  for (const FileItem& file : now.files) {
    tracks.insert(file.track.value_or(""));
    statuses.insert(file.status);
    suppliers.insert(file.supplier.value_or(""));
  }
  EXPECT_EQ(tracks, (std::set<std::string>{"new_title", "reprint"}));
  EXPECT_EQ(statuses, (std::set<std::string>{"in_review", "new", "reviewed"}));
  EXPECT_GE(suppliers.size(), 2U);
  for (std::size_t i = 1; i < now.events.size(); ++i) {
    ASSERT_GT(now.events[i - 1].id, now.events[i].id);
    ASSERT_GE(now.events[i - 1].at, now.events[i].at);
  }
}

TEST_F(DemoService, OpensWithTicketsOfEverySize) {
  std::set<Int> sizes;
  for (const FileItem& file : board().files) sizes.insert(file.page_count.value_or(0));
  EXPECT_TRUE(sizes.contains(0));
  EXPECT_TRUE(sizes.contains(1));
  EXPECT_GT(*sizes.rbegin(), 200);
}

TEST_F(DemoService, OpensWithFindingsAndNotesOfEveryForm) {
  std::set<std::string> forms;
  for (const FileItem& file : board().files) {
    const FileDetail all = detail(file.id);
    for (const Finding& finding : all.findings) {
      forms.insert(finding.kind);
      forms.insert("state " + finding.state);
      if (finding.boxes && finding.boxes->size() > 1) forms.insert("two boxes");
    }
    for (const Note& note : all.comments) {
      const bool area = note.w && note.h;
      const std::string form = area ? "area" : note.x && note.y ? "point" : "word";
      forms.insert(note.isResolved() ? "settled " + form : form + " on " + note.side.value_or("-"));
      if (!note.page) forms.insert("of the ticket");
    }
  }
  for (const char* form :
       {"words",         "breaks",           "fonts",        "picture",   "barcode",
        "spots",         "hidden",           "missing_page", "pass",      "expected",
        "state open",    "state issue",      "state fine",   "two boxes", "point on supplier",
        "point on ours", "area on supplier", "area on ours", "word on -", "settled point",
        "of the ticket"}) {
    EXPECT_TRUE(forms.contains(form)) << form;
  }
}

TEST_F(DemoService, OpensWithReportsMadeAndMissed) {
  const BoardState now = board();
  std::set<std::string> ends;
  for (const Job& job : now.jobs) ends.insert(job.kind + " " + job.status);
  for (const char* end : {"report done", "report failed", "report stuck"}) {
    EXPECT_TRUE(ends.contains(end)) << end;
  }
  EXPECT_TRUE(
      std::ranges::any_of(now.reports, [](const Report& r) { return r.drive_link.has_value(); }));
}

TEST_F(DemoService, TellsTrueSizesAndBoxesOnThePage) {
  std::size_t pages = 0;
  std::vector<std::pair<std::string, std::vector<double>>> pictures;
  for (const FileItem& file : board().files) {
    const FileDetail all = detail(file.id);
    ASSERT_TRUE(all.file.pages);
    pages += all.file.pages->size();
    for (const Page& page : *all.file.pages) {
      pictures.emplace_back(page.img.value_or(""), page.px.value_or(std::vector<double>{}));
      for (const auto& [role, ref] : *page.refs) {
        pictures.emplace_back(ref.img.value_or(""), ref.px.value_or(std::vector<double>{}));
      }
      EXPECT_EQ(statusOf(get("/api/blob/" + page.thumb.value_or(""))), 200);
    }
    for (const Finding& finding : all.findings) {
      EXPECT_LT(finding.page, static_cast<Int>(all.file.pages->size()));
      EXPECT_TRUE(!finding.box || lies(*finding.box)) << finding.id;
      EXPECT_TRUE(!finding.ref_box || lies(*finding.ref_box)) << finding.id;
      for (const auto& box : finding.boxes.value_or(std::vector<std::vector<double>>{})) {
        EXPECT_TRUE(lies(box)) << finding.id;
      }
      if (finding.kind == "words") {
        EXPECT_TRUE(finding.box && finding.ref_box) << finding.id;
        EXPECT_NE(finding.before, finding.after) << finding.id;
      }
    }
  }
  EXPECT_GE(pages, 60U);
  // A sample at full size: every ninth, over all tickets and roles.
  for (std::size_t i = 0; i < pictures.size(); i += 9) {
    const auto& [key, px] = pictures[i];
    const auto answer = get("/api/blob/" + key);
    ASSERT_EQ(statusOf(answer), 200) << key;
    EXPECT_EQ(answer->get_header_value("Content-Type"), "image/jpeg");
    const auto [width, height] = sizeOfJpeg(answer->body);
    EXPECT_EQ(px, (std::vector<double>{static_cast<double>(width), static_cast<double>(height)}))
        << key;
  }
  EXPECT_EQ(statusOf(get("/api/blob/files/none.jpg")), 404);
}

TEST_F(DemoService, KeepsADecisionAndMovesTheRevisions) {
  const FileDetail before = detail("salt-text");
  const Int rev = board().rev;
  const Finding* finding = openFinding(before);
  ASSERT_NE(finding, nullptr);
  ASSERT_EQ(statusOf(post("/api/findings/" + finding->id, R"({"state":"issue"})")), 200);
  const FileDetail after = detail("salt-text");
  const auto changed = std::find_if(after.findings.begin(), after.findings.end(),
                                    [&](const Finding& f) { return f.id == finding->id; });
  ASSERT_NE(changed, after.findings.end());
  EXPECT_EQ(changed->state, "issue");
  EXPECT_EQ(changed->state_by, "renny@tessarine.example");
  EXPECT_GT(after.file.rev, before.file.rev);
  EXPECT_GT(board().rev, rev);
  EXPECT_EQ(after.history->back().kind, "finding");
}

TEST_F(DemoService, RefusesWhatMakesNoSense) {
  const std::pair<const char*, const char*> refused[] = {
      {"/api/findings/none", R"({"state":"fine"})"},
      {"/api/files/salt-text/status", R"({"status":"lost"})"},
      {"/api/files/salt-text/assign", R"({"email":"nobody@tessarine.example"})"},
      {"/api/files/salt-text/due", R"({"due":9e15})"},
      {"/api/files/salt-text/track", "[]"},
      {"/api/files/salt-text/approval", R"({"action":"sent"})"},
      {"/api/comments", R"({"file_id":"salt-text","page":0,"text":"  "})"},
      {"/api/jobs", "not json"}};
  for (const auto& [path, body] : refused) {
    const auto answer = post(path, body);
    ASSERT_TRUE(answer) << path;
    EXPECT_GE(answer->status, 400) << path;
    EXPECT_LT(answer->status, 500) << path;
    const auto said = decodeJson(answer->body);
    ASSERT_TRUE(said && said->find("error") != nullptr) << path;
  }
  EXPECT_EQ(statusOf(get("/api/files/none")), 404);
  EXPECT_EQ(statusOf(get("/api/files/salt-text?v=9")), 404);
}

TEST_F(DemoService, SyncsAndBringsATicket) {
  const std::size_t tickets = board().files.size();
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"sync"})")), 200);
  EXPECT_TRUE(eventually([](const BoardState& now) { return now.sync->status == "done"; }));
  EXPECT_EQ(board().files.size(), tickets + 1);
}

TEST_F(DemoService, MakesAReportThatDownloads) {
  const std::size_t reports = board().reports.size();
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"report","file_ids":["letter-cover"]})")), 200);
  ASSERT_TRUE(eventually([&](const BoardState& now) { return now.reports.size() > reports; }));
  const Report report = board().reports.front();
  const auto pdf = get("/api/reports/" + report.id + "/pdf");
  ASSERT_EQ(statusOf(pdf), 200);
  EXPECT_TRUE(pdf->body.starts_with("%PDF-"));
  EXPECT_EQ(static_cast<Int>(pdf->body.size()), report.size);
  const auto log = get("/api/jobs/" + report.job_id.value_or(""));
  ASSERT_EQ(statusOf(log), 200);
  EXPECT_NE(log->body.find("\"log\""), std::string::npos);
}

TEST_F(DemoService, ApproversAnswerAfterAWhile) {
  const auto answer = post("/api/files/carto-text/approval",
                           R"({"action":"request","approvers":["mira@tessarine.example",)"
                           R"("tomas@tessarine.example"],"note":"Please"})");
  ASSERT_EQ(statusOf(answer), 200);
  EXPECT_NE(answer->body.find("\"embed_url\""), std::string::npos);
  EXPECT_TRUE(eventually(
      [&](const BoardState&) { return detail("carto-text").approval->state == "approved"; }));
  EXPECT_EQ(statusOf(post("/api/files/carto-text/approval", R"({"action":"sent"})")), 200);
  EXPECT_EQ(detail("carto-text").file.approval, "sent");
}

TEST_F(DemoService, PutsUrgencyAndItsEndIntoTheDueDate) {
  const auto due = [&] { return detail("bread-text").file.due.value_or(0); };
  const double before = due();
  const double received = detail("bread-text").file.received.value_or(0);
  EXPECT_EQ(before, received + 172'800'000);
  ASSERT_EQ(statusOf(post("/api/files/bread-text/due", R"({"urgent":true})")), 200);
  EXPECT_LT(due(), before);
  ASSERT_EQ(statusOf(post("/api/files/bread-text/due", R"({"reset":true})")), 200);
  EXPECT_EQ(due(), before);
  EXPECT_FALSE(detail("bread-text").file.due_by);
}

TEST_F(DemoService, FaultsComeBeforeTheEffectUnlessAskedOtherwise) {
  const Finding* finding = nullptr;
  const FileDetail before = detail("bread-text");
  finding = openFinding(before);
  ASSERT_NE(finding, nullptr);
  const auto stateOf = [&] {
    for (const Finding& f : detail("bread-text").findings) {
      if (f.id == finding->id) return f.state;
    }
    return std::string();
  };
  const std::string path = "/api/findings/" + finding->id;
  ASSERT_EQ(statusOf(post("/demo/faults",
                          R"([{"method":"POST","path":"/api/findings/","times":1,"status":503}])")),
            200);
  EXPECT_EQ(statusOf(post(path, R"({"state":"fine"})")), 503);
  EXPECT_EQ(stateOf(), "open");
  (void)post("/demo/faults", R"([{"path":"api/findings/","status":500,"after":true}])");
  EXPECT_EQ(statusOf(post(path, R"({"state":"fine"})")), 500);
  EXPECT_EQ(stateOf(), "fine");
  (void)post("/demo/faults", R"([{"path":"/api/state","garbage":true}])");
  const auto garbage = get("/api/state");
  ASSERT_EQ(statusOf(garbage), 200);
  EXPECT_FALSE(decodeJson(garbage->body));
  EXPECT_EQ(statusOf(post("/demo/faults", R"([{"path":"/api/state"}])")), 400);
}

TEST_F(DemoService, HoldsAnAnswerUntilOtherFaultsAreAskedFor) {
  (void)post("/demo/faults", R"([{"path":"/api/state","held":true}])");
  client_.set_read_timeout(0, 100'000);
  EXPECT_FALSE(get("/api/state"));
  client_.set_read_timeout(20);
  EXPECT_EQ(statusOf(get("/api/state")), 200) << "one was asked for";
  (void)post("/demo/faults", "[]");
  EXPECT_EQ(statusOf(get("/api/state")), 200);
}

TEST_F(DemoService, CutsOffWithoutAnAnswerAndLogsItOnce) {
  (void)client_.Delete("/demo/log");
  (void)post("/demo/faults", R"([{"method":"POST","path":"/api/comments","cut":true}])");
  const auto answer = post("/api/comments", R"({"file_id":"salt-text","page":0,"text":"Hello"})");
  EXPECT_FALSE(answer);
  const auto log = client_.Get("/demo/log");
  ASSERT_TRUE(log);
  const auto json = decodeJson(log->body);
  ASSERT_TRUE(json);
  const auto* entries = std::get_if<Json::List>(&json->value);
  ASSERT_NE(entries, nullptr);
  ASSERT_EQ(entries->size(), 1U);
  EXPECT_EQ(*entries->front().find("path")->text(), "/api/comments");
  EXPECT_EQ(std::get<Int>(entries->front().find("status")->value), 0);
  EXPECT_EQ(log->body.find(token_), std::string::npos);
  for (const Note& note : detail("salt-text").comments) EXPECT_NE(note.text, "Hello");
}

}  // namespace
}  // namespace vellix::demo_tests
