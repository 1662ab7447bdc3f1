#include "check/text_flow.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "check/text_check.hpp"
#include "set_pages.hpp"

namespace vellix::demo {
namespace {

using namespace Qt::StringLiterals;

using Pages = std::vector<PdfPage>;

std::vector<Finding> found(const Pages& proof, const Pages& reference) {
  const Partners partners = asTheyStand(proof.size(), reference.size());
  return textFindings({proof, reference, partners, "submitted", "our file"});
}

std::string told(const Pages& proof, const Pages& reference) {
  std::string text;
  for (const Finding& finding : found(proof, reference)) {
    text += finding.kind + " p" + std::to_string(finding.page + 1) + " " + finding.title + "\n";
  }
  return text;
}

// The same words, whatever breaks.
bool sameWords(const Pages& proof, const Pages& reference) {
  return told(proof, reference).find("words p") == std::string::npos;
}

TEST(TextFlow, PutsBrokenWordsTogether) {
  const Pages whole{setPage({u"this is an example of a well-known thing"_s})};
  EXPECT_TRUE(sameWords({setPage({u"this is an exam-"_s, u"ple of a well-known thing"_s})}, whole));
  EXPECT_TRUE(
      sameWords({setPage({u"this is an exam\u2010"_s, u"ple of a well-known thing"_s})}, whole));
  EXPECT_TRUE(
      sameWords({setPage({u"this is an exam\u00AD"_s, u"ple of a well-known thing"_s})}, whole));
  EXPECT_TRUE(sameWords({setPage({u"this is an example of a well-"_s, u"known thing"_s})}, whole));
  EXPECT_TRUE(
      sameWords(whole, {setPage({u"this is an exam-"_s, u"ple of a well-"_s, u"known thing"_s})}));
  EXPECT_TRUE(
      sameWords({setPage({u"this is an exam-"_s}), setPage({u"ple of a well-known thing"_s})},
                {whole[0], setPage({})}) == false)
      << "a page that says nothing";
}

TEST(TextFlow, LeavesATitleInTheTextThatIsLikeItsNeighbourOnOneSideAlone) {
  const auto page = [](const QString& title, int words) {
    return setPage({title, ownWords(words / 100, words), ownWords(9, words + 9)}, 60);
  };
  const PdfPage one = page(u"1. Besides"_s, 100);
  const PdfPage two = page(u"2. However"_s, 200);
  const PdfPage stranger = page(u"9. However"_s, 900);
  const Pages proof{one, stranger, two};
  const Pages ours{one, two};
  const Partners partners{Partner{0, 1}, std::nullopt, Partner{1, 1}};
  const Flows flows = flowsOf({proof, ours, partners, "submitted", "our file"},
                              std::vector<bool>(proof.size(), false));
  EXPECT_EQ(flows.reference[12].text, u"2."_s);
  const auto number = std::ranges::find(flows.proof, u"2."_s, &FlowWord::text);
  ASSERT_NE(number, flows.proof.end());
  ASSERT_NE(number + 2, flows.proof.end()) << "at the head";
  EXPECT_EQ((number + 2)->text, u"w200"_s);
}

TEST(TextFlow, CallsABreakWithinAWordABreak) {
  const Pages whole{setPage({u"this is an"_s, u"example of a thing"_s})};
  EXPECT_EQ(told({setPage({u"this is an exam-"_s, u"ple of a thing"_s})}, whole),
            "breaks p1 Lines break elsewhere\n");
}

TEST(TextFlow, MindsHyphensThatNoLineEnds) {
  const Pages whole{setPage({u"this is a well-known thing"_s, u"to all of us"_s})};
  EXPECT_FALSE(sameWords({setPage({u"this is a wellknown thing"_s, u"to all of us"_s})}, whole));
  EXPECT_FALSE(sameWords({setPage({u"this is a well known thing"_s, u"to all of us"_s})}, whole));
}

TEST(TextFlow, BoxesBothPartsOfABrokenWord) {
  const Pages ours{setPage({u"this is an exam-"_s, u"ple of a thing to come"_s})};
  Pages proof = ours;
  proof[0].words[4].text = u"pel"_s;
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(*findings[0].boxes,
            (std::vector{asBox(proof[0].words[3].box), asBox(proof[0].words[4].box)}));
  EXPECT_EQ(findings[0].detail, "It reads “exampel” where our file reads “example”.");
}

TEST(TextFlow, KeepsAHyphenThatHangsApart) {
  const Pages one{setPage({u"both pre- and post-war houses"_s})};
  EXPECT_TRUE(sameWords({setPage({u"both pre-"_s, u"and post-war houses"_s})}, one));
  EXPECT_TRUE(sameWords({setPage({u"both pre- and post-"_s, u"war houses"_s})}, one));
}

TEST(TextFlow, LetsALineEndBehindADash) {
  const Pages one{setPage({u"the sea—grey and wide—lay there"_s})};
  EXPECT_TRUE(sameWords({setPage({u"the sea—"_s, u"grey and wide—lay there"_s})}, one));
  EXPECT_FALSE(sameWords({setPage({u"the sea grey and wide—lay there"_s})}, one));
  const Pages two{setPage({u"of the house there"_s})};
  EXPECT_FALSE(sameWords({setPage({u"of thehouse there"_s})}, two)) << "a space is missing";
}

TEST(TextFlow, DoesNotMindAFormulaWhoseSpacesWereSqueezed) {
  PdfPage wide = setPage({u"so that"_s, u"a + b"_s, u"is small"_s});
  PdfPage narrow = setPage({u"so that"_s, u"a+b"_s, u"is small"_s});
  narrow.words[2].box = QRectF(wide.words[2].box.topLeft(),
                               wide.words[4].box.bottomRight() - QPointF(1 / kPageWidth, 0));
  EXPECT_TRUE(sameWords({narrow}, {wide}));
}

// A book whose pages have a head and a folio.
Pages book(int pages, int first, const QString& head = u"The Salt Road"_s, int words = 250) {
  Pages all;
  for (int i = 0; i < pages; ++i) {
    PdfPage page = setText(ownWords(words, 1000 + 500 * i))[0];
    setLine(page, head, 60, 40);
    setLine(page, QString::number(first + i), 245, 660);
    all.push_back(page);
  }
  return all;
}

TEST(TextFlow, ComparesHeadsAndFoliosPageByPage) {
  const Pages ours = book(6, 1);
  Pages proof = ours;
  EXPECT_EQ(told(proof, ours), "");
  const std::size_t head = proof[2].words.size() - 3;
  proof[2].words[head].text = u"Malt"_s;
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].page, 2);
  EXPECT_EQ(findings[0].box, asBox(proof[2].words[head].box));
}

TEST(TextFlow, DoesNotBreakTheTextAtHeads) {
  Pages ours;
  Pages proof;
  for (const int lines : {30, 26}) {
    Pages& pages = lines == 30 ? ours : proof;
    pages = setText(ownWords(1100), 60, lines);
    pages.resize(5, setPage({}));
    for (int i = 0; i < 5; ++i) {
      setLine(pages[static_cast<std::size_t>(i)], u"The Salt Road"_s, 60, 40);
      setLine(pages[static_cast<std::size_t>(i)], QString::number(i + 1), 245, 660);
    }
  }
  proof[4].words.erase(proof[4].words.begin(), proof[4].words.end());
  ours[4] = proof[4];
  const std::string all = told(proof, ours);
  EXPECT_EQ(all.find("came in"), std::string::npos) << all;
}

TEST(TextFlow, LetsFoliosCountOnWherePagesStandFurtherOn) {
  const Pages ours = book(6, 1);
  Pages proof = book(7, 1);
  for (std::size_t i = 3; i < 7; ++i) {
    const PdfWord folio = proof[i].words.back();
    proof[i] = ours[i - 1];
    proof[i].words.back() = folio;
  }
  proof[2].words[0].text = u"new"_s;
  Partners partners(7);
  for (std::size_t i = 0; i < 7; ++i) {
    if (i != 2) partners[i] = Partner{i < 2 ? i : i - 1, 1};
  }
  EXPECT_TRUE(textFindings({proof, ours, partners, "submitted", "our file"}).empty());
}

TEST(TextFlow, TellsWhatHeadsHaveInCommonOnce) {
  const Pages ours = book(6, 1);
  auto findings = found(book(6, 8), ours);
  ASSERT_EQ(findings.size(), 6U) << "seen on each page";
  EXPECT_EQ(findings[0].severity, "high") << "all folios are off by as much";
  for (std::size_t i = 1; i < findings.size(); ++i) EXPECT_EQ(findings[i].severity, "low") << i;
  EXPECT_EQ(findings[0].detail, "It reads “8” where our file reads “1”. So it is on 5 pages more.");
  EXPECT_EQ(found(book(6, 1, u"The Malt Road"_s), ours).size(), 6U);
  Pages proof = ours;
  proof[4].words.back().text = u"50"_s;
  findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].page, 4);
}

// Two columns with so many lines each; the words follow line by line across both.
PdfPage columns(const QString& text, double second, qsizetype lettersOfALine, bool acrossBoth) {
  const auto lines = [&](const PdfPage& page) {
    std::vector<std::vector<PdfWord>> all;
    for (const PdfWord& word : page.words) {
      if (all.empty() || word.box.top() > all.back().back().box.top()) all.emplace_back();
      all.back().push_back(word);
    }
    return all;
  };
  const QStringList halves = text.split(u'|');
  const auto left = lines(setText(halves[0], lettersOfALine)[0]);
  auto right = lines(setText(halves[1], lettersOfALine)[0]);
  PdfPage page{kPageWidth, kPageHeight, {}};
  const auto put = [&](const std::vector<PdfWord>& line, double by) {
    for (PdfWord word : line) {
      word.box.translate(by / kPageWidth, 0);
      page.words.push_back(word);
    }
  };
  for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
    if (i < left.size()) put(left[i], 0);
    if (acrossBoth && i < right.size()) put(right[i], second);
  }
  for (std::size_t i = 0; !acrossBoth && i < right.size(); ++i) put(right[i], second);
  return page;
}

// Words of all lengths, so that their spaces do not lie under each other.
QString unevenWords(int count, int from) {
  QStringList words;
  for (int i = 0; i < count; ++i) {
    words << QStringLiteral("w%1").arg(from + i) + QString(i * 7919 % 101 % 9, u'x');
  }
  return words.join(u' ');
}

TEST(TextFlow, ReadsColumnsOneAfterTheOtherWhereThatIsMoreAlike) {
  const QString text = unevenWords(50, 1000) + u"|"_s + unevenWords(50, 2000);
  const Pages ours{columns(text, 220, 36, false)};
  const Pages proof{columns(text, 220, 36, true)};
  EXPECT_EQ(told(proof, ours), "");
  QString changed = text;
  changed.replace(u"w1021"_s, u"considerably"_s);
  EXPECT_EQ(found({columns(changed, 220, 36, true)}, {columns(text, 220, 36, true)})[0].title,
            "One word changed");
  EXPECT_TRUE(sameWords({columns(text, 220, 32, true)}, {columns(text, 220, 36, true)}));
}

TEST(TextFlow, DoesNotTakeANumberForTheRestOfAWord) {
  const Pages ours{setPage({u"what comes of Pre-"_s}), setPage({u"4. The fourth of all"_s})};
  Pages proof = ours;
  proof[1].words[0].text = u"9."_s;
  const auto findings = found(proof, ours);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].detail, "It reads “9.” where our file reads “4.”.");
  EXPECT_EQ(findings[0].page, 1);
}

}  // namespace
}  // namespace vellix::demo
