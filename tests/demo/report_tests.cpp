// Reports as PDFs: the same tickets make the same file, and pages with findings are drawn in it.
#include <algorithm>
#include <set>

#include "demo_service.hpp"

namespace vellix::demo_tests {
namespace {

std::size_t count(const std::string& text, const std::string& word) {
  std::size_t all = 0;
  for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++all;
  return all;
}

// Drawings of pages in it.
std::size_t pictures(const std::string& pdf) { return count(pdf, "/Subtype /Image"); }
std::size_t sheets(const std::string& pdf) {
  return count(pdf, "/Type /Page\n") + count(pdf, "/Type /Page ");
}

class Reports : public DemoService {
 protected:
  std::string made(const std::string& ids) {
    const std::size_t before = board().reports.size();
    EXPECT_EQ(statusOf(post("/api/jobs", R"({"kind":"report","file_ids":)" + ids + "}")), 200);
    EXPECT_TRUE(eventually([&](const BoardState& now) { return now.reports.size() > before; }));
    newest_ = board().reports.front();
    const auto pdf = get("/api/reports/" + newest_.id + "/pdf");
    EXPECT_EQ(statusOf(pdf), 200);
    EXPECT_EQ(static_cast<Int>(pdf->body.size()), newest_.size);
    EXPECT_TRUE(pdf->body.starts_with("%PDF-") && pdf->body.contains("%%EOF"));
    return pdf->body;
  }
  int decide(const std::string& finding, const char* state) {
    return statusOf(post("/api/findings/" + finding, std::string(R"({"state":")") + state + "\"}"));
  }
  static std::size_t pagesWithFindings(const FileDetail& detail) {
    std::set<Int> pages;
    for (const Finding& finding : detail.findings) {
      if (finding.kind != "pass" && finding.kind != "expected") pages.insert(finding.page);
    }
    return pages.size();
  }
  Report newest_;
};

TEST_F(Reports, AreTheSameAsLongAsTheirTicketsAre) {
  const std::string ids = R"(["lanterns-cover"])";
  const std::string first = made(ids);
  EXPECT_EQ(newest_.title, "Lanterns over Vale Cover report");
  EXPECT_EQ(first.find("/CreationDate"), std::string::npos);
  EXPECT_TRUE(made(ids) == first);
  const FileDetail detail = this->detail("lanterns-cover");
  ASSERT_EQ(decide(detail.findings[0].id, "issue"), 200);
  const std::string decided = made(ids);
  EXPECT_FALSE(decided == first);
  ASSERT_EQ(decide(detail.findings[0].id, "fine"), 200);
  EXPECT_FALSE(made(ids) == decided);
  ASSERT_EQ(decide(detail.findings[0].id, "open"), 200);
  EXPECT_TRUE(made(ids) == first) << "taken back";
  ASSERT_EQ(statusOf(post("/api/comments",
                          R"({"file_id":"lanterns-cover","page":0,"text":"Mind the moon."})")),
            200);
  EXPECT_FALSE(made(ids) == first) << "a note was written";
}

TEST_F(Reports, DrawThePagesOnWhichSomethingWasFound) {
  const FileDetail salt = detail("salt-text");
  EXPECT_EQ(pictures(made(R"(["salt-text"])")), pagesWithFindings(salt));
  EXPECT_EQ(pictures(made(R"(["carto-text"])")), 0U) << "nothing was found";
  const std::string both = made(R"(["salt-text","letter-cover","bread-jacket"])");
  EXPECT_EQ(newest_.title, "3 tickets report");
  EXPECT_EQ(newest_.file_ids,
            (std::vector<std::string>{"salt-text", "letter-cover", "bread-jacket"}));
  EXPECT_EQ(pictures(both), pagesWithFindings(salt) + pagesWithFindings(detail("letter-cover")));
}

TEST_F(Reports, GoOnOverAsManySheetsAsTheirWordsTake) {
  const std::size_t before = sheets(made(R"(["carto-text"])"));
  EXPECT_EQ(before, 1U);
  ASSERT_EQ(statusOf(post("/demo/findings", R"({"file_id":"carto-text","page":2,"count":60})")),
            200);
  const std::string long_ = made(R"(["carto-text"])");
  EXPECT_GE(sheets(long_), 4U);
  EXPECT_EQ(pictures(long_), 1U);
}

TEST_F(Reports, AreTakenUpWhenTheyAreAskedFor) {
  ASSERT_EQ(statusOf(post("/demo/worker", R"({"hold":"Drawing pages"})")), 200);
  const std::size_t before = board().reports.size();
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"report","file_ids":["rain-front"]})")), 200);
  ASSERT_TRUE(
      eventually([](const BoardState& now) { return now.jobs.front().step == "Drawing pages"; }));
  ASSERT_EQ(decide(detail("rain-front").findings.front().id, "issue"), 200);
  ASSERT_EQ(statusOf(post("/demo/worker", R"({"hold":""})")), 200);
  ASSERT_TRUE(eventually([&](const BoardState& now) { return now.reports.size() > before; }));
  const auto early = get("/api/reports/" + board().reports.front().id + "/pdf");
  ASSERT_EQ(statusOf(early), 200);
  EXPECT_FALSE(made(R"(["rain-front"])") == early->body) << "what is decided later is in the next";
}

TEST_F(Reports, ComeInEverySizeAndFailureOnRequest) {
  const auto fault = [&](const std::string& what) {
    ASSERT_EQ(statusOf(post("/demo/faults", R"([{"path":"/api/reports/",)" + what + "}]")), 200);
  };
  fault(R"("bytes":200000000)");
  std::size_t heard = 0;
  std::string start;
  const auto answer =
      client_.Get("/api/reports/report-0/pdf", headers(), [&](const char* piece, std::size_t size) {
        if (start.size() < 9) start.append(piece, size);
        heard += size;
        return true;
      });
  ASSERT_EQ(statusOf(answer), 200);
  EXPECT_EQ(heard, 200'000'000U);
  EXPECT_TRUE(start.starts_with("%PDF-"));
  EXPECT_EQ(answer->get_header_value("Content-Type"), "application/pdf");
  fault(R"("bytes":300000,"cut_at":100000)");
  EXPECT_FALSE(get("/api/reports/report-0/pdf"));
  fault(R"("cut_at":1000)");
  EXPECT_FALSE(get("/api/reports/report-0/pdf")) << "of a real one too";
  fault(R"("status":404,"body":"{\"error\":\"It was thrown away.\"}")");
  const auto gone = get("/api/reports/report-0/pdf");
  ASSERT_EQ(statusOf(gone), 404);
  EXPECT_EQ(gone->body, R"({"error":"It was thrown away."})");
  fault(R"("drip_ms":1)");
  const auto slow = get("/api/reports/report-0/pdf");
  ASSERT_EQ(statusOf(slow), 200);
  EXPECT_TRUE(slow->body == get("/api/reports/report-0/pdf")->body);
  EXPECT_EQ(statusOf(get("/api/reports/none/pdf")), 404);
}

}  // namespace
}  // namespace vellix::demo_tests
