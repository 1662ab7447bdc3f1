#include "check/text_check.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <random>

#include "set_pages.hpp"

namespace vellix::demo {
namespace {

using namespace Qt::StringLiterals;

using Pages = std::vector<PdfPage>;
using Box = std::vector<double>;

std::vector<Finding> found(const Pages& proof, const Pages& reference, const Partners& partners) {
  return textFindings({proof, reference, partners, "submitted", "our file"});
}
std::vector<Finding> found(const Pages& proof, const Pages& reference) {
  return found(proof, reference, asTheyStand(proof.size(), reference.size()));
}

// "words p1 One word changed", one a line.
std::string told(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    text += finding.kind + " p" + std::to_string(finding.page + 1) + " " + finding.title + "\n";
  }
  return text;
}

Box boxOf(const PdfPage& page, std::size_t word) { return asBox(page.words[word].box); }

Pages replaced(Pages pages, std::size_t page, std::size_t word, const QString& text) {
  pages[page].words[word].text = text;
  return pages;
}

TEST(TextCheck, FindsNothingWhereNothingDiffers) {
  const Pages pages = setText(ownWords(900));
  EXPECT_EQ(told(found(pages, pages)), "");
  EXPECT_EQ(told(found({}, {})), "");
  EXPECT_EQ(told(found({setPage({})}, {setPage({})})), "");
}

TEST(TextCheck, BoxesAWordThatChangedByItself) {
  const Pages ours = setText(ownWords(900));
  const Pages proof = replaced(ours, 1, 40, QStringLiteral("winter"));
  const auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p2 One word changed\n");
  EXPECT_EQ(findings[0].severity, "high");
  EXPECT_EQ(findings[0].box, boxOf(proof[1], 40));
  EXPECT_EQ(findings[0].ref_box, boxOf(ours[1], 40));
  EXPECT_FALSE(findings[0].boxes);
  const std::string was = ours[1].words[40].text.toStdString();
  EXPECT_EQ(findings[0].detail, "It reads “winter” where our file reads “" + was + "”.");
  EXPECT_EQ(findings[0].after->find("winter"), findings[0].before->find(was));
}

TEST(TextCheck, TellsWordsThatCameInAndWent) {
  const Pages ours{setPage({u"one two three four"_s, u"five six seven eight"_s})};
  const Pages more{setPage({u"one two and a half three four"_s, u"five six seven eight"_s})};
  auto findings = found(more, ours);
  ASSERT_EQ(told(findings), "words p1 3 words came in\n");
  EXPECT_EQ(findings[0].detail, "“and a half” does not stand in our file.");
  EXPECT_EQ(findings[0].box->front(), more[0].words[2].box.left());
  EXPECT_DOUBLE_EQ(findings[0].box->at(2),
                   more[0].words[4].box.right() - more[0].words[2].box.left());
  findings = found(ours, more);
  ASSERT_EQ(told(findings), "words p1 3 words are gone\n");
  EXPECT_EQ(findings[0].detail, "“and a half” stands in our file.");
  const QRectF& two = ours[0].words[1].box;
  EXPECT_NEAR(findings[0].box->front(), two.right(), 1e-9) << "the gap itself";
  EXPECT_NEAR(findings[0].box->at(2), ours[0].words[2].box.left() - two.right(), 1e-9);
  EXPECT_EQ(findings[0].ref_box->front(), more[0].words[2].box.left());
}

TEST(TextCheck, LeavesOutAPageThatEndsAsTheOneBeforeItOrBeginsAsTheOneBehind) {
  const PdfPage first = setPage({ownWords(40), u"at the very end"_s});
  const PdfPage last = setPage({u"and so on"_s, ownWords(40, 500)});
  const Pages ours{first, last};
  const Partners around{Partner{0, 1}, std::nullopt, Partner{1, 1}};
  const Partners across{Partner{0, 1}, Partner{2, 1}};
  for (const QStringList& lines : {QStringList{ownWords(40, 900), u"to the very end"_s},
                                   {u"and so it"_s, ownWords(40, 900)}}) {
    const PdfPage between = setPage(lines);
    // What is before and behind differs as well, so that neither can be taken as it comes.
    for (const auto& [page, word] : {std::pair(0U, 20U), {1U, 20U}}) {
      const Pages other = replaced(ours, page, word, u"salt"_s);
      EXPECT_EQ(found({other[0], between, other[1]}, ours, around).size(), 1U) << page;
      EXPECT_EQ(found(other, {first, between, last}, across).size(), 1U) << page;
    }
  }
}

TEST(TextCheck, MarksTheLastWordOfALineWhereTheNextIsGone) {
  const Pages ours{setPage({u"one two three four"_s, u"five six seven eight"_s})};
  const Pages less{setPage({u"one two three"_s, u"five six seven eight"_s})};
  const auto findings = found(less, ours);
  ASSERT_EQ(told(findings), "words p1 One word is gone\n");
  EXPECT_EQ(findings[0].box, boxOf(less[0], 2));
}

TEST(TextCheck, WeighsSignsAndCapitalsLess) {
  const Pages ours{setPage({u"one two, three four five"_s})};
  for (const char* other : {"two.", "Two,", "two"}) {
    const auto findings = found(replaced(ours, 0, 1, QString::fromUtf8(other)), ours);
    ASSERT_EQ(told(findings), "words p1 One word changed\n") << other;
    EXPECT_EQ(findings[0].severity, "medium") << other;
  }
  const Pages quoted{setPage({u"one “two” three"_s})};
  EXPECT_EQ(found(replaced(quoted, 0, 1, u"\"two\""_s), quoted).size(), 1U);
}

TEST(TextCheck, JoinsChangesThatStandTogether) {
  const Pages ours{setPage({ownWords(12)})};
  Pages proof = replaced(ours, 0, 4, QStringLiteral("salt"));
  proof = replaced(proof, 0, 6, QStringLiteral("rain"));
  const auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p1 2 words changed\n");
  ASSERT_TRUE(findings[0].boxes);
  EXPECT_EQ(*findings[0].boxes, (std::vector{boxOf(proof[0], 4), boxOf(proof[0], 6)}))
      << "not the word between";
  EXPECT_EQ(found(replaced(proof, 0, 9, QStringLiteral("ink")), ours).size(), 2U);
}

TEST(TextCheck, SaysNotThatAPageIsSilentWhoseWordsAreOnlyTooMany) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  forgetWords(proof[1]);
  EXPECT_EQ(told(found(proof, ours)), "");
  EXPECT_EQ(told(found(ours, proof)), "");
  proof[1].moreWords = false;
  EXPECT_EQ(told(found(proof, ours)), "words p2 No live text\n");
}

TEST(TextCheck, FollowsTheTextFromPageToPage) {
  const QString text = ownWords(900);
  const Pages ours = setText(text);
  const Pages proof = setText(u"something new at first "_s + text);
  const auto findings = found(proof, ours);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].title, "4 words came in");
  for (const Finding& finding : findings) {
    EXPECT_TRUE(&finding == &findings[0] || finding.kind == "breaks") << finding.title;
  }
}

TEST(TextCheck, TellsAChangeOverTwoPagesOnEach) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  const std::size_t last = proof[0].words.size() - 1;
  proof[0].words[last].text = u"salt"_s;
  proof[1].words[0].text = u"rain"_s;
  const auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p1 2 words changed\nwords p2 One word came in\n");
  EXPECT_EQ(findings[0].box, boxOf(proof[0], last));
  EXPECT_EQ(findings[1].box, boxOf(proof[1], 0));
}

TEST(TextCheck, LeavesAPageWithoutPartnerToTheCheckOfThePages) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  proof.insert(proof.begin() + 1, setPage({ownWords(10, 5000), ownWords(10, 6000)}));
  Partners partners = partnersOf(proof, ours);
  EXPECT_EQ(told(found(proof, ours, partners)), "");
  EXPECT_EQ(told(found(ours, proof, partnersOf(ours, proof))), "");
}

TEST(TextCheck, LetsTextRunOntoAPageMore) {
  const Pages ours = setText(ownWords(360), 60, 12);
  const Pages proof = setText(ownWords(360), 60, 11);
  ASSERT_GT(proof.size(), ours.size());
  EXPECT_EQ(told(found(proof, ours)), "");
}

TEST(TextCheck, ComparesPagesThatMovedWithTheirPartners) {
  const Pages ours = setText(ownWords(1500));
  Pages proof = ours;
  std::rotate(proof.begin() + 1, proof.begin() + 3, proof.begin() + 4);
  proof = replaced(proof, 1, 5, QStringLiteral("winter"));
  const Partners partners = partnersOf(proof, ours);
  ASSERT_TRUE(partners[1]->moved);
  EXPECT_EQ(told(found(proof, ours, partners)), "words p2 One word changed\n");
}

TEST(TextCheck, SaysWhereAPassageTrulyMoved) {
  const QString a = ownWords(40, 1000);
  const QString b = ownWords(40, 2000);
  const QString c = ownWords(20, 3000);
  const Pages ours = setText(a + u" "_s + c + u" "_s + b);
  const Pages proof = setText(a + u" "_s + b + u" "_s + c);
  const auto findings = found(proof, ours);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].title, "A passage stands elsewhere");
  EXPECT_EQ(findings[0].severity, "medium");
  EXPECT_EQ(findings[0].detail->rfind("“w3000 w3001", 0), 0U) << *findings[0].detail;
  for (const Finding& finding : findings) {
    EXPECT_TRUE(&finding == &findings[0] || finding.kind == "breaks") << finding.title;
  }
}

TEST(TextCheck, DoesNotMindTheOrderOfReading) {
  PdfPage ours = setPage({u"red green blue"_s, u"one two three"_s, u"north south east"_s});
  PdfPage columns = ours;
  columns.words.clear();
  for (const std::size_t word : {0, 3, 6, 1, 4, 7, 2, 5, 8}) {
    columns.words.push_back(ours.words[word]);
  }
  for (const Finding& finding : found({columns}, {ours})) EXPECT_NE(finding.kind, "words");
  for (PdfWord& word : columns.words) word.box.translate(0.01, 0.05);
  for (const Finding& finding : found({columns}, {ours})) EXPECT_NE(finding.kind, "words");
  columns.words[4].text = u"ten"_s;
  EXPECT_NE(told(found({columns}, {ours})).find("word"), std::string::npos);
}

TEST(TextCheck, SaysThatAPageHasNoLiveText) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  proof[1].words.clear();
  auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p2 No live text\n");
  EXPECT_EQ(findings[0].severity, "medium");
  EXPECT_EQ(told(found(ours, proof)), "words p2 No live text\n");
  EXPECT_EQ(told(found({setPage({})}, {ours[0]})), "words p1 No live text\n");
}

TEST(TextCheck, TellsAPageThatReadsOtherwiseOnce) {
  const Pages ours = setText(ownWords(900));
  Pages proof = ours;
  proof[1] = setText(ownWords(300, 7000))[0];
  const auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p2 The page reads otherwise\n");
  EXPECT_TRUE(findings[0].box);
  EXPECT_TRUE(findings[0].ref_box);
}

TEST(TextCheck, TellsOfAPageWithTooManyChangesHowManyMore) {
  const Pages ours{setText(ownWords(600), 60, 100)};
  Pages proof = ours;
  for (std::size_t i = 0; i < 600; i += 6) proof[0].words[i].text = u"salt"_s;
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 41U);
  EXPECT_EQ(findings.back().title, "60 more differences in the words");
}

TEST(TextCheck, TellsOfADocumentWithTooManyChangesOneAPage) {
  const Pages ours = setText(ownWords(9000));
  Pages proof = ours;
  for (PdfPage& page : proof) {
    for (std::size_t i = 3; i < page.words.size(); i += 6) page.words[i].text = u"salt"_s;
  }
  const auto findings = found(proof, ours);
  EXPECT_GE(findings.size(), 600U);
  EXPECT_LE(findings.size(), 600U + 40 + proof.size());
  EXPECT_EQ(findings.back().page, static_cast<Int>(proof.size() - 1));
}

TEST(TextCheck, SplitsRunsOfSignsWithoutSpaces) {
  const Pages ours{setPage({u"今天天气很好我们去公园散步"_s})};
  const Pages proof{setPage({u"今天天气很坏我们去公园散步"_s})};
  const auto findings = found(proof, ours);
  ASSERT_EQ(told(findings), "words p1 One word changed\n");
  const QRectF& run = proof[0].words[0].box;
  EXPECT_NEAR(findings[0].box->front(), run.left() + run.width() * 5 / 13, 1e-9);
  EXPECT_NEAR(findings[0].box->at(2), run.width() / 13, 1e-9);
  EXPECT_EQ(findings[0].after, "气很坏我们");
}

TEST(TextCheck, ReadsLinesThatRunLeftwards) {
  PdfPage page{kPageWidth, kPageHeight, {}};
  const QStringList words{u"שלום"_s, u"עולם"_s, u"טוב"_s, u"מאוד"_s};
  for (int i = 0; i < 4; ++i) {
    const int line = i / 2;
    page.words.push_back({words[i], {0.8 - 0.15 * (i % 2), 0.2 + 0.03 * line, 0.1, 0.015}});
  }
  EXPECT_EQ(told(found({page}, {page})), "");
  EXPECT_EQ(told(found(replaced({page}, 0, 2, u"רע"_s), {page})), "words p1 One word changed\n");
  PdfPage wide = page;
  for (int i = 0; i < 4; ++i) wide.words[i].box = {0.8 - 0.15 * i, 0.2, 0.1, 0.015};
  EXPECT_EQ(told(found({wide}, {page})), "breaks p1 A line breaks elsewhere\n");
}

TEST(TextCheck, BearsBoxesAndSizesThatMakeNoSense) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double far = std::numeric_limits<double>::infinity();
  Pages odd = setText(ownWords(200));
  for (std::size_t i = 0; i < odd[0].words.size(); ++i) {
    PdfWord& word = odd[0].words[i];
    word.box = i % 4 == 0   ? QRectF(nan, nan, nan, nan)
               : i % 4 == 1 ? QRectF(0.2, 0.2, 0, 0)
               : i % 4 == 2 ? QRectF(far, 0, -far, 0.1)
                            : QRectF(nan, 0.2, 0.1, 0.1);
    word.size = i % 2 == 0 ? nan : -far;
  }
  const Pages proof = replaced(odd, 0, 20, u"winter"_s);
  const auto findings = found(proof, odd);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_FALSE(findings[0].box);
  EXPECT_FALSE(found(proof, setText(ownWords(200))).empty());
  EXPECT_EQ(told(found(replaced(odd, 0, 0, QString()), odd)), "words p1 One word is gone\n");
}

TEST(TextCheck, CutsWhatItQuotes) {
  const Pages ours{setPage({u"one two three four"_s})};
  const auto findings = found(replaced(ours, 0, 1, QString(5000, u'x')), ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_LT(findings[0].detail->size(), 400U);
}

Pages prose(std::size_t pages, std::size_t words, unsigned seed) {
  std::mt19937 random(seed);
  Pages all;
  for (std::size_t page = 0; page < pages; ++page) {
    QStringList lines;
    for (std::size_t i = 0; i < words; i += 12) {
      QStringList line;
      for (int word = 0; word < 12; ++word) {
        const unsigned pick = random() % 3 == 0 ? random() % 40 : random() % 9000;
        line << QStringLiteral("w%1").arg(pick);
      }
      lines << line.join(u' ');
    }
    all.push_back(setPage(lines, 60));
  }
  return all;
}

double secondsOf(const auto& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(TextCheck, IsDoneSoonWithTwoHundredPages) {
  const Pages ours = prose(200, 500, 1);
  Pages proof = ours;
  for (std::size_t page = 0; page < 200; page += 2) proof[page].words[77].text = u"winter"_s;
  std::vector<Finding> findings;
  const double seconds = secondsOf([&] { findings = found(proof, ours); });
  EXPECT_EQ(findings.size(), 100U);
  EXPECT_LT(seconds, 4) << "a busy machine has its time too";
  RecordProperty("seconds", std::to_string(seconds));
}

TEST(TextCheck, IsDoneSoonWithDocumentsThatHaveNothingInCommon) {
  const Pages ours = prose(200, 500, 1);
  const Pages proof = prose(200, 500, 2);
  std::vector<Finding> findings;
  const double seconds = secondsOf([&] { findings = found(proof, ours); });
  EXPECT_LT(seconds, 6);
  EXPECT_EQ(findings.size(), 200U);
  EXPECT_EQ(findings[7].title, "The page reads otherwise");
  EXPECT_LT(secondsOf([&] { findings = found(prose(1, 20000, 3), prose(1, 20000, 4)); }), 4);
  EXPECT_EQ(findings.size(), 1U);
}

}  // namespace
}  // namespace vellix::demo
