// Fonts, and where lines break.
#include <gtest/gtest.h>

#include "check/text_check.hpp"
#include "set_pages.hpp"

namespace vellix::demo {
namespace {

using namespace Qt::StringLiterals;

using Pages = std::vector<PdfPage>;
using Boxes = std::vector<std::vector<double>>;

std::vector<Finding> found(const Pages& proof, const Pages& reference) {
  const Partners partners = asTheyStand(proof.size(), reference.size());
  return textFindings({proof, reference, partners, "submitted", "our file"});
}

std::ptrdiff_t toDecide(const std::vector<Finding>& findings) {
  return std::ranges::count_if(findings,
                               [](const Finding& finding) { return finding.severity != "low"; });
}

TEST(FontCheck, NamesBothFontsAndBoxesEachLine) {
  const Pages ours{setPage({ownWords(6), ownWords(6, 2000)})};
  Pages proof = ours;
  for (std::size_t i = 4; i < 8; ++i) {
    proof[0].words[i].font = u"DejaVu Sans"_s;
    proof[0].words[i].size = 9;
  }
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind, "fonts");
  EXPECT_EQ(findings[0].severity, "medium");
  EXPECT_EQ(findings[0].title, "A passage is in another font");
  EXPECT_EQ(findings[0].detail,
            "“w1004 w1005 w2000 w2001” is set in DejaVu Sans 9 pt, where our file has Salt Roman "
            "10 pt.");
  ASSERT_EQ(findings[0].boxes->size(), 2U);
  EXPECT_EQ(findings[0].box->front(), proof[0].words[4].box.left());
  EXPECT_EQ(findings[0].boxes->at(1).front(), proof[0].words[6].box.left());
}

TEST(FontCheck, MindsASizeThatCanBeSeen) {
  const Pages ours{setPage({ownWords(6)})};
  Pages proof = ours;
  proof[0].words[2].size = 10.15;
  EXPECT_TRUE(found(proof, ours).empty());
  proof[0].words[2].size = 10.5;
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].title, "A word is in another size");
  EXPECT_EQ(findings[0].box, asBox(proof[0].words[2].box));
  proof[0].words[2].size = 0;
  proof[0].words[2].font.clear();
  EXPECT_TRUE(found(proof, ours).empty()) << "nobody knows";
}

TEST(FontCheck, TellsAFontThatIsCalledOtherwiseOnce) {
  const Pages ours = setText(ownWords(900), 60, 10);
  Pages proof = ours;
  for (PdfPage& page : proof) {
    for (PdfWord& word : page.words) word.font = u"SaltRomanMT"_s;
  }
  auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), ours.size()) << "seen on each page";
  EXPECT_EQ(findings[0].title, "A font is another one throughout");
  EXPECT_EQ(toDecide(findings), 1);
  proof[3].words[7].font = u"DejaVu Sans"_s;
  findings = found(proof, ours);
  EXPECT_GT(findings.size(), 1U) << "not throughout";
}

TEST(FontCheck, TellsAScaleOnce) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  for (PdfPage& page : proof) {
    for (PdfWord& word : page.words) word.size = 9;
  }
  auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), ours.size()) << "seen on each page";
  EXPECT_EQ(findings[0].title, "Everything is set smaller");
  EXPECT_EQ(toDecide(findings), 1);
  proof = ours;
  for (PdfWord& word : proof[1].words) word.size = 11;
  proof[1].words[3].size = 14;
  findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[0].title, "Everything is set larger");
  EXPECT_EQ(findings[0].page, 1);
  EXPECT_EQ(findings[1].title, "A word is in another size");
}

TEST(BreakCheck, MarksTheWordsAroundANewEndOfALine) {
  const Pages ours{setPage({u"one two three"_s, u"four five six"_s, u"seven eight"_s})};
  const Pages proof{setPage({u"one two"_s, u"three four five six"_s, u"seven eight"_s})};
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind, "breaks");
  EXPECT_EQ(findings[0].severity, "medium");
  EXPECT_EQ(findings[0].title, "Lines break elsewhere");
  EXPECT_EQ(findings[0].detail, "2 breaks differ from our file. The first is at “three”.");
  EXPECT_EQ(findings[0].before, "one two three / four five");
  EXPECT_EQ(findings[0].after, "one two / three four five");
  EXPECT_EQ(*findings[0].boxes,
            (Boxes{asBox(proof[0].words[1].box), asBox(proof[0].words[2].box)}));
  EXPECT_EQ(findings[0].ref_box, asBox(ours[0].words[2].box));
}

TEST(BreakCheck, MarksEveryNewBeginningOfALine) {
  const Pages ours{setPage({u"one two three"_s, u"four five six"_s, u"seven eight nine"_s})};
  const Pages proof{setPage({u"one two"_s, u"three four five"_s, u"six seven eight"_s, u"nine"_s})};
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  Boxes marked;
  for (const std::size_t word : {1U, 2U, 5U, 8U}) {
    marked.push_back(asBox(proof[0].words[word].box));
  }
  EXPECT_EQ(*findings[0].boxes, marked);
  EXPECT_EQ(findings[0].box, marked.front());
}

TEST(BreakCheck, MarksALineThatIsOneMore) {
  const Pages ours{setPage({u"one two three"_s, u"four five six"_s})};
  const Pages proof{setPage({u"one two three"_s, u"four"_s, u"five six"_s})};
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].title, "A line breaks elsewhere");
  EXPECT_EQ(*findings[0].boxes,
            (Boxes{asBox(proof[0].words[3].box), asBox(proof[0].words[4].box)}));
}

TEST(BreakCheck, TellsParagraphsApart) {
  QStringList lines;
  for (int i = 0; i < 20; ++i) lines << ownWords(6, 1000 + 10 * i);
  QStringList other = lines;
  other[2] = ownWords(5, 1020);
  other[3] = u"w1025 "_s + lines[3];
  other[15] = ownWords(5, 1150);
  other[16] = u"w1155 "_s + lines[16];
  EXPECT_EQ(found({setPage(other)}, {setPage(lines)}).size(), 2U);
}

TEST(BreakCheck, WeighsLessWhatFollowsFromAChangedWord) {
  const Pages ours = setText(ownWords(60));
  QStringList words = ownWords(60).split(u' ');
  words[12] = u"considerably-longer"_s;
  const auto findings = found(setText(words.join(u' ')), ours);
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[0].title, "One word changed");
  EXPECT_EQ(findings[1].kind, "breaks");
  EXPECT_EQ(findings[1].severity, "low");
}

TEST(BreakCheck, TakesTheEndOfAPageForTheEndOfALine) {
  EXPECT_TRUE(found(setText(ownWords(200), 60, 9), setText(ownWords(200), 60, 10)).empty());
}

}  // namespace
}  // namespace vellix::demo
