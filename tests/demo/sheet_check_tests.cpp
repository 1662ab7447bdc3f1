#include "check/sheet_check.hpp"

#include <gtest/gtest.h>

#include "set_pages.hpp"

namespace vellix::demo {
namespace {

constexpr int kNone = -1;

// Pages of which the proof's are made from those of the reference.
struct Sheets {
  std::vector<PdfPage> proof, reference;
  Partners partners;
  Pair pair{proof, reference, partners, "submitted", "our file"};

  Sheets(std::size_t pages, const std::vector<int>& from) : reference(pages, sheet()) {
    for (const int page : from) {
      proof.push_back(sheet());
      partners.emplace_back();
      if (page >= 0) partners.back() = Partner{static_cast<std::size_t>(page), 1};
    }
  }
  Sheets(const Sheets&) = delete;
  Sheets& operator=(const Sheets&) = delete;

  static PdfPage sheet() { return {432, 612, {{"word", {0.1, 0.1, 0.1, 0.02}, "Serif", 10}}}; }
};

std::vector<std::string> told(const std::vector<Finding>& findings) {
  std::vector<std::string> lines;
  lines.reserve(findings.size());
  for (const Finding& each : findings) {
    lines.push_back(std::to_string(each.page) + " " + each.kind + " " + each.severity + " " +
                    each.title + ": " + each.detail.value_or(""));
  }
  return lines;
}
using Lines = std::vector<std::string>;

TEST(SheetCheck, FindsNothingWherePagesAreAlike) {
  const Sheets two(3, {0, 1, 2});
  EXPECT_EQ(told(sheetFindings(two.pair)), Lines{});
}

TEST(SheetCheck, TellsPagesThatAreMissing) {
  const Sheets one(4, {0, 1, 3});
  EXPECT_EQ(told(sheetFindings(one.pair)),
            Lines{"1 missing_page high A page is missing: Page 3 of our file is not in the proof. "
                  "The proof goes on with page 4."});
  const Sheets several(6, {2, 3});
  EXPECT_EQ(told(sheetFindings(several.pair)),
            (Lines{"0 missing_page high 2 pages are missing: Pages 1 and 2 of our file are not in "
                   "the proof. The proof goes on with page 3.",
                   "1 missing_page high 2 pages are missing: Pages 5 and 6 of our file are not in "
                   "the proof. The proof ends before."}));
}

TEST(SheetCheck, TellsPagesTooMany) {
  const Sheets two(2, {0, kNone, kNone, kNone, 1, kNone});
  EXPECT_EQ(
      told(sheetFindings(two.pair)),
      (Lines{"1 missing_page high 3 pages more: Pages 2 to 4 of the proof are not in our file.",
             "5 missing_page high One page more: Page 6 of the proof is not in our file."}));
}

TEST(SheetCheck, TellsTextThatRanOnToAPageMore) {
  const auto pages = setText(ownWords(300));
  const std::size_t last = pages.size() - 1;
  std::vector<PdfPage> proof = pages;
  PdfPage& left = proof.back();
  PdfPage more = left;
  const auto half = static_cast<std::ptrdiff_t>(left.words.size() / 2);
  left.words.erase(left.words.begin() + half, left.words.end());
  more.words.erase(more.words.begin(), more.words.begin() + half);
  proof.push_back(more);
  Partners partners = asTheyStand(proof.size(), pages.size());
  const Pair pair{proof, pages, partners, "submitted", "our file"};
  EXPECT_EQ(told(sheetFindings(pair)),
            Lines{std::to_string(last + 1) +
                  " missing_page high Text runs on to one page more: Most of what is on page " +
                  std::to_string(last + 2) + " of the proof is on page " +
                  std::to_string(last + 1) + " of our file."});
  // A page that is there twice has not run on.
  proof[last] = pages[last];
  EXPECT_EQ(told(sheetFindings(pair)),
            Lines{std::to_string(last + 1) + " missing_page high One page more: Page " +
                  std::to_string(last + 2) + " of the proof is not in our file."});
  // The page behind may have given its beginning.
  proof[last] = more;
  proof[last + 1] = left;
  std::swap(partners[last], partners[last + 1]);
  EXPECT_TRUE(told(sheetFindings(pair)).front().find("Text runs on") != std::string::npos);
}

TEST(SheetCheck, TellsPagesThatMovedAsOneRun) {
  Sheets two(6, {0, 3, 4, 1, 2, 5});
  two.partners[1]->moved = two.partners[2]->moved = true;
  EXPECT_EQ(told(sheetFindings(two.pair)),
            Lines{"1 extra_page medium 2 pages stand elsewhere: Pages 2 and 3 of the proof are "
                  "pages 4 and 5 of our file."});
  two.partners[2]->moved = false;
  EXPECT_EQ(told(sheetFindings(two.pair)),
            Lines{"1 extra_page medium The page stands elsewhere: Page 2 of the proof is page 4 of "
                  "our file."});
}

TEST(SheetCheck, TellsAnotherSizeOnceForARunOfPages) {
  Sheets two(5, {0, 1, 2, 3, 4});
  two.proof[0].width = 432.9;  // less than a point
  for (const std::size_t page : {1, 2, 3}) two.proof[page].width = 428.3;
  EXPECT_EQ(told(sheetFindings(two.pair)),
            Lines{"1 size medium 3 pages have another size: Pages 2 to 4. 151.1 × 215.9 mm, where "
                  "our file has 152.4 × 215.9 mm."});
  two.proof[2].width = 400;
  EXPECT_EQ(sheetFindings(two.pair).size(), 3U) << "not all alike";
}

TEST(SheetCheck, TellsTrimAndBleed) {
  Sheets two(1, {0});
  two.reference[0].trim = {400, 580};
  two.reference[0].bleed = {417, 597};
  EXPECT_EQ(told(sheetFindings(two.pair)),
            (Lines{"0 size low The trim is not told: In our file they are cut to 141.1 × 204.6 mm, "
                   "and the proof tells nothing of it.",
                   "0 size low The bleed is not told: There is 3.0 mm of bleed in our file, and "
                   "the proof tells nothing of it."}));
  two.proof[0].trim = {390, 580};
  two.proof[0].bleed = {407, 597};
  EXPECT_EQ(told(sheetFindings(two.pair)),
            Lines{"0 size medium The trim differs: Cut to 137.6 × 204.6 mm, where our file has "
                  "141.1 × 204.6 mm."});
  two.proof[0].trim = {400, 580};
  two.proof[0].bleed = {400, 580};
  EXPECT_EQ(told(sheetFindings(two.pair)),
            Lines{"0 size medium The bleed differs: There is 0.0 mm of bleed, where our file has "
                  "3.0 mm of bleed."});
  two.reference[0] = two.reference[0];
  two.reference[0].trim = two.reference[0].bleed = {};
  EXPECT_EQ(told(sheetFindings(two.pair)), Lines{}) << "nothing to compare it with";
}

TEST(SheetCheck, TellsSpotColorsByName) {
  Sheets two(3, {0, 1, 2});
  two.proof[0].inks = two.proof[1].inks = {"Gold", "Spot Magenta 2"};
  two.reference[0].inks = two.reference[1].inks = {"Gold"};
  two.reference[2].inks = {"Silver", "White"};
  EXPECT_EQ(told(sheetFindings(two.pair)),
            (Lines{"0 spots medium 2 pages have a spot color more: Pages 1 and 2. Prints in “Spot "
                   "Magenta 2”, which our file does not.",
                   "2 spots medium A spot color is gone: Does not print in “Silver” and “White”, "
                   "as our file does."}));
}

TEST(SheetCheck, PassesPagesWithoutAFinding) {
  Sheets two(5, {0, 1, 2, 3, kNone});
  two.proof[1].words.clear();
  two.reference[1].words.clear();
  two.proof[2].width = two.proof[3].width = 400;
  Finding expected = findingOn(0, two.pair, "expected", "low");
  const auto passes = passFindings(two.pair, {expected});
  EXPECT_EQ(told(passes),
            (Lines{"0 pass low Nothing differs: Words, line breaks, fonts, art and size are as in "
                   "our file.",
                   "1 pass low Nothing differs: Art and size are as in our file."}))
      << "the size of the last two differs, which is told once";
  EXPECT_EQ(passes.front().state, "pass");
  EXPECT_FALSE(passes.front().box);
  EXPECT_EQ(passFindings(two.pair, {findingOn(0, two.pair, "words", "high")}).size(), 1U);
}

TEST(SheetCheck, ClaimsOnlyWhatWasCompared) {
  Sheets two(2, {0, 1});
  two.proof[0].words[0].font.clear();
  two.proof[1].inks = two.reference[1].inks = {"Gold"};
  two.partners[1]->moved = false;
  EXPECT_EQ(told(passFindings(two.pair, {})),
            (Lines{"0 pass low Nothing differs: Words, line breaks, art and size are as in our "
                   "file.",
                   "1 pass low Nothing differs: Words, line breaks, fonts, art, spot colors and "
                   "size are as in our file."}));
  two.partners[1]->moved = true;
  EXPECT_EQ(passFindings(two.pair, {}).size(), 1U);
}

TEST(SheetCheck, StandsDocumentsWithoutPages) {
  const Sheets none(0, {});
  EXPECT_TRUE(sheetFindings(none.pair).empty());
  const Sheets emptied(3, {});
  EXPECT_TRUE(sheetFindings(emptied.pair).empty());
}

}  // namespace
}  // namespace vellix::demo
