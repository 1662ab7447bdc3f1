// Revisions: what the demo makes of the PDF that was uploaded.
#include <algorithm>

#include "demo_service.hpp"
#include "written_pdf.hpp"

namespace vellix::demo_tests {
namespace {

using Boxes = std::vector<std::vector<double>>;

class Revisions : public DemoService {
 protected:
  void TearDown() override {
    (void)post("/demo/waits", R"({"approvers":false,"checks":false})");
    DemoService::TearDown();
  }

  httplib::Result put(const std::string& id, const std::string& pdf) {
    auto all = headers();
    all.emplace("x-filename", "Second%20try%2Epdf");
    all.emplace("x-note", "Moved%20back");
    return client_.Put("/api/files/" + id + "/versions", all, pdf, "application/pdf");
  }
  // Uploads it and waits for the end of its check.
  FileDetail revised(const std::string& id, const std::string& pdf) {
    EXPECT_EQ(statusOf(put(id, pdf)), 200);
    FileDetail now;
    const auto ended = [&](const BoardState&) {
      now = detail(id);
      return now.versions->back().status != "checking";
    };
    EXPECT_TRUE(eventually(ended, 1200)) << "a long one takes a while on a busy machine";
    return now;
  }
  std::string proof(const std::string& query) {
    const auto answer = client_.Get("/demo/proof?" + query);
    EXPECT_EQ(statusOf(answer), 200) << query;
    return answer ? answer->body : std::string();
  }
};

const Finding* called(const FileDetail& detail, const std::string& title) {
  const auto found = std::ranges::find(detail.findings, title, &Finding::title);
  return found == detail.findings.end() ? nullptr : &*found;
}

TEST_F(Revisions, AreNumberedAndNamedAsSent) {
  const auto answer = put("bread-text", writtenPdf({pageSaying("Salt")}));
  ASSERT_EQ(statusOf(answer), 200);
  EXPECT_EQ(answer->body, R"({"version":2})");
  const FileDetail now = detail("bread-text");
  EXPECT_EQ(now.versions->back().filename, "Second try.pdf");
  EXPECT_EQ(now.versions->back().note, "Moved back");
  EXPECT_EQ(now.versions->back().kind, "revision");
  EXPECT_EQ(now.file.version, 2);
  EXPECT_EQ(detail("bread-text", "?v=1").version, 1);
  EXPECT_EQ(statusOf(put("bread-text", "no")), 400);
  EXPECT_EQ(statusOf(put("nowhere", "%PDF-1.4")), 404);
}

TEST_F(Revisions, OfTheSameProofMoveNothing) {
  const FileDetail first = detail("salt-text");
  const FileDetail now = revised("salt-text", proof("file_id=salt-text"));
  EXPECT_EQ(now.versions->back().status, "done");
  ASSERT_EQ(now.file.pages->size(), first.file.pages->size());
  for (std::size_t i = 0; i < first.file.pages->size(); ++i) {
    const Page& page = (*now.file.pages)[i];
    EXPECT_EQ(page.px, (*first.file.pages)[i].px) << i;
    EXPECT_EQ(page.label, (*first.file.pages)[i].label) << i;
    EXPECT_EQ(page.refs->at("previous").img, (*first.file.pages)[i].img) << i;
  }
  // What was marked a real issue stands as it was.
  ASSERT_EQ(now.findings.size(), 1U);
  EXPECT_EQ(now.findings.front().title, "Not repaired: A line ends early");
  EXPECT_EQ(now.versions->back().summary, "One thing to look at.");
}

TEST_F(Revisions, ThatRepairAnIssueSaySo) {
  const FileDetail first = detail("letter-cover");
  const FileDetail now = revised("letter-cover", proof("file_id=letter-cover&repaired=1"));
  EXPECT_EQ(now.file.approval, "revised");
  const Finding* repaired = called(now, "Repaired: One word changed");
  ASSERT_NE(repaired, nullptr);
  EXPECT_EQ(repaired->kind, "expected");
  EXPECT_EQ(repaired->state, "expected");
  EXPECT_EQ(repaired->against, "previous");
  EXPECT_NE(repaired->before, repaired->after);
  const Finding* issue = called(first, "One word changed");
  ASSERT_NE(issue, nullptr);
  ASSERT_TRUE(repaired->ref_box && issue->box);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_NEAR((*repaired->ref_box)[i], (*issue->box)[i], 0.02) << "the same place on the page";
  }
  const Finding* art = called(now, "Repaired: The art sits elsewhere");
  ASSERT_NE(art, nullptr);
  EXPECT_EQ(art->kind, "expected");
  const Finding* breaks = called(now, "Lines break elsewhere");
  EXPECT_NE(breaks, nullptr) << "the blurb runs on anew from the longer word";
  EXPECT_EQ(now.versions->back().summary.value_or("").substr(0, 24), "2 repairs came through. ");
}

TEST_F(Revisions, HavePicturesDrawnFromTheirPages) {
  const FileDetail now =
      revised("carto-text", writtenPdf({{.lines = {}, .width = 300, .height = 150, .cut = {}},
                                        {.lines = {}, .width = 14400, .height = 40, .cut = {}},
                                        {.lines = {}, .width = 1, .height = 1, .cut = {}},
                                        {.lines = {}, .width = 9000, .height = 9000, .cut = {}}}));
  ASSERT_EQ(now.file.pages->size(), 4U);
  EXPECT_EQ(now.file.pages->front().px, (std::vector<double>{1000, 500}));
  for (const Page& page : *now.file.pages) {
    const auto picture = get("/api/blob/" + page.img.value_or(""));
    ASSERT_EQ(statusOf(picture), 200);
    const auto [width, height] = sizeOfJpeg(picture->body);
    EXPECT_EQ(page.px,
              (std::vector<double>{static_cast<double>(width), static_cast<double>(height)}));
    EXPECT_LE(width * height, 6'100'000);
    EXPECT_GE(width, 1);
    const auto thumb = get("/api/blob/" + page.thumb.value_or(""));
    ASSERT_EQ(statusOf(thumb), 200);
    EXPECT_LE(sizeOfJpeg(thumb->body).first, 180);
  }
}

struct Shown {
  const char* how;
  WrittenPage page;  // says "The north gate" in letters 24 points high
  double x, y;       // where "north" begins and its middle lies, in fractions of what is shown
};

TEST_F(Revisions, MarkAWordWhereItIsShown) {
  const WrittenPage plain = pageSaying("The north gate");
  WrittenPage turned = plain;
  turned.turned = 90;
  WrittenPage cut = plain;
  cut.cut = {36, 400, 436, 792};
  // "The " takes 48 points of Helvetica in this size; half the letters' height is 8.
  const Shown all[] = {{"plain", plain, (72 + 48.5) / 612, (792 - 708.0) / 792},
                       {"turned", turned, 708.0 / 792, (72 + 48.5) / 612},
                       {"cut", cut, (72 + 48.5 - 36.0) / 400, (792 - 708.0) / 392}};
  for (const auto& [how, page, x, y] : all) {
    (void)revised("lanterns-cover", writtenPdf({page}));
    WrittenPage changed = page;
    changed.lines.front().text = "The south gate";
    const FileDetail now = revised("lanterns-cover", writtenPdf({changed}));
    ASSERT_EQ(now.findings.size(), 1U) << how;
    const Finding& finding = now.findings.front();
    EXPECT_EQ(finding.title, "One word changed") << how;
    EXPECT_EQ(finding.before, "The north gate") << how;
    EXPECT_EQ(finding.after, "The south gate") << how;
    ASSERT_TRUE(finding.box && lies(*finding.box) && finding.ref_box) << how;
    const auto& box = *finding.box;
    EXPECT_LE(box[0], x + 0.02) << how;
    EXPECT_GE(box[0] + box[2], x + 0.01) << how;
    EXPECT_LE(box[1], y) << how;
    EXPECT_GE(box[1] + box[3], y) << how;
    EXPECT_LT(box[2] * box[3], 0.02) << how << ": the word and not the line";
  }
}

struct Change {
  std::vector<const char*> before;  // a page each
  std::vector<const char*> after;
  std::vector<std::string> titles;
  const char* summary;
};

TEST_F(Revisions, TellWhatChanged) {
  const Change all[] = {
      {{"one two three"}, {"one two three"}, {}, "Nothing moved."},
      {{"one two three"}, {"one two four"}, {"One word changed"}, "One thing to look at."},
      {{"one two three"}, {"one three"}, {"One word is gone"}, "One thing to look at."},
      {{"one three"}, {"one big two three"}, {"2 words came in"}, "One thing to look at."},
      {{"one two three four five"},
       {"one TWO three FOUR five"},
       {"2 words changed"},
       "One thing to look at."},
      {{"alpha beta"}, {"gamma delta"}, {"2 words changed"}, "One thing to look at."},
      {{"alpha"}, {""}, {"No live text", "Art is missing"}, "2 things to look at."},
      {{""}, {"alpha"}, {"No live text", "Art came in"}, "2 things to look at."},
      {{"a", "b", "c"}, {"a"}, {"2 pages are missing"}, "One thing to look at."},
      {{"a"}, {"a", "b"}, {"One page more"}, "One thing to look at."}};
  const auto pdf = [](const std::vector<const char*>& texts) {
    std::vector<WrittenPage> pages;
    for (const char* text : texts) pages.push_back(pageSaying(text));
    return writtenPdf(pages);
  };
  for (const auto& [before, after, titles, summary] : all) {
    (void)revised("rain-front", pdf(before));
    const FileDetail now = revised("rain-front", pdf(after));
    std::vector<std::string> told;
    for (const Finding& finding : now.findings) {
      told.push_back(finding.title);
      EXPECT_EQ(finding.against, "previous");
      EXPECT_LT(finding.page, static_cast<Int>(now.file.pages->size()));
      EXPECT_TRUE(!finding.box || lies(*finding.box));
    }
    EXPECT_EQ(told, titles) << before.front() << " / " << after.front();
    EXPECT_EQ(now.versions->back().summary, summary);
  }
}

TEST_F(Revisions, TellOfLinesThatBreakElsewhereAndOfSizes) {
  WrittenPage before{.lines = {{.text = "one two three"}, {.text = "four five", .y = 670}},
                     .cut = {}};
  WrittenPage after{.lines = {{.text = "one two"}, {.text = "three four five", .y = 670}},
                    .width = 600,
                    .cut = {}};
  (void)revised("rain-cover", writtenPdf({before}));
  const FileDetail now = revised("rain-cover", writtenPdf({after}));
  const Finding* breaks = called(now, "Lines break elsewhere");
  ASSERT_NE(breaks, nullptr);
  EXPECT_EQ(breaks->detail->substr(0, 17), "2 breaks differ f");
  ASSERT_TRUE(breaks->boxes);
  EXPECT_EQ(breaks->boxes->size(), 2U) << "the two words now stand on two lines";
  const Finding* size = called(now, "The page has another size");
  ASSERT_NE(size, nullptr);
  EXPECT_TRUE(size->detail->starts_with("211.7 × 279.4 mm, where v")) << *size->detail;
}

TEST_F(Revisions, TellOfArtThatMovedAlsoWhereThereIsNoText) {
  const auto drawing = [](const char* art) {
    return writtenPdf({{.lines = {}, .cut = {}, .art = art}});
  };
  (void)revised("salt-jacket", drawing("100 500 150 100 re f"));
  const FileDetail same = revised("salt-jacket", drawing("101 500 150 100 re f"));
  ASSERT_EQ(same.findings.size(), 1U) << "a point aside is no move";
  EXPECT_EQ(same.findings.front().title, "No live text");
  const FileDetail now = revised("salt-jacket", drawing("100 300 150 100 re f"));
  const Finding* moved = called(now, "The art sits elsewhere");
  ASSERT_NE(moved, nullptr);
  EXPECT_EQ(moved->kind, "picture");
  EXPECT_TRUE(moved->detail->ends_with(" mm lower than in v3.")) << *moved->detail;
  ASSERT_TRUE(moved->box && moved->ref_box);
  const std::vector<double> then{100.0 / 612, 192.0 / 792, 150.0 / 612, 100.0 / 792};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR((*moved->ref_box)[i], then[i], 0.005) << i;
    EXPECT_NEAR((*moved->box)[i], then[i] + (i == 1 ? 200.0 / 792 : 0), 0.005) << i;
  }
  EXPECT_EQ(now.findings.size(), 2U);
}

TEST_F(Revisions, MayHaveThreeHundredPages) {
  std::vector<WrittenPage> pages;
  for (int i = 0; i < 300; ++i) {
    WrittenPage page{.lines = {}, .cut = {}};
    for (int line = 0; line < 30; ++line) {
      page.lines.push_back({.text = "Line " + std::to_string(line) + " of page " +
                                    std::to_string(i) + " goes on for a while and then ends",
                            .y = 740 - 22.0 * line,
                            .size = 14});
    }
    pages.push_back(page);
  }
  (void)revised("bread-cover", writtenPdf(pages));
  pages[299].lines[29].text = "Nothing of the kind";
  const FileDetail now = revised("bread-cover", writtenPdf(pages));
  EXPECT_EQ(now.file.page_count, 300);
  ASSERT_FALSE(now.findings.empty());
  for (const Finding& finding : now.findings) {
    EXPECT_EQ(finding.page, 299) << finding.title;
    EXPECT_EQ(finding.kind, "words") << finding.title;
  }
}

struct Unfit {
  const char* how;
  std::string pdf;
  const char* summary;
};

TEST_F(Revisions, ThatCannotBeReadFailAndLeaveTheRest) {
  const char* const damaged = "The PDF is damaged and did not open. Upload it again.";
  const std::string good = writtenPdf({pageSaying("one two"), pageSaying("three")});
  const Unfit all[] = {{"nothing behind its first line", "%PDF-1.7 x", damaged},
                       {"cut short", good.substr(0, 40), damaged},
                       {"garbage", "%PDF-1.4\n" + std::string(100'000, '\xA7'), damaged},
                       {"locked", writtenPdf({pageSaying("secret")}, true),
                        "The PDF is locked with a password. Upload one that opens without."},
                       {"no pages", writtenPdf({}), "The PDF has no pages."},
                       {"too many pages", writtenPdf(std::vector<WrittenPage>(601)),
                        "The PDF has 601 pages. Up to 600 can be checked."}};
  (void)revised("carto-cover", good);
  for (const auto& [how, pdf, summary] : all) {
    const FileDetail now = revised("carto-cover", pdf);
    EXPECT_EQ(now.versions->back().status, "failed") << how;
    EXPECT_EQ(now.versions->back().summary, summary) << how;
    EXPECT_TRUE(now.file.pages->empty()) << how;
    EXPECT_TRUE(now.findings.empty()) << how;
    EXPECT_FALSE(now.versions->back().page_count) << how;
  }
  const FileDetail second = detail("carto-cover", "?v=2");
  ASSERT_EQ(second.file.pages->size(), 2U);
  EXPECT_EQ(statusOf(get("/api/blob/" + second.file.pages->front().img.value_or(""))), 200);
  // The next good one is checked against the newest that could be read.
  const FileDetail now = revised("carto-cover", good);
  EXPECT_EQ(now.versions->back().summary, "Nothing moved.");
  EXPECT_EQ(now.history->back().text, "Checked v9 against v2");
  EXPECT_EQ(now.file.pages->front().refs->at("previous").img, second.file.pages->front().img);
}

TEST_F(Revisions, OfAProofThatNeverOpenedAreShownUnchecked) {
  const FileDetail now = revised("bread-jacket", writtenPdf({pageSaying("Bread")}));
  EXPECT_EQ(now.versions->back().status, "done");
  EXPECT_EQ(now.versions->back().summary, "There was no version that it could be checked against.");
  EXPECT_EQ(now.file.pages->size(), 1U);
}

TEST_F(Revisions, ShowTheirPagesWhileTheyAreChecked) {
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"checks":true})")), 200);
  ASSERT_EQ(statusOf(put("carto-jacket", writtenPdf({pageSaying("one")}))), 200);
  EXPECT_TRUE(eventually(
      [&](const BoardState&) { return detail("carto-jacket").file.pages->size() == 1U; }));
  const FileDetail while_ = detail("carto-jacket");
  EXPECT_EQ(while_.versions->back().status, "checking");
  EXPECT_FALSE(while_.versions->back().summary);
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"checks":false})")), 200);
  EXPECT_TRUE(eventually(
      [&](const BoardState&) { return detail("carto-jacket").versions->back().status == "done"; }));
}

}  // namespace
}  // namespace vellix::demo_tests
