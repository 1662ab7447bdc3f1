#include "check/page_matching.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <string>

namespace vellix::demo {
namespace {

PdfPage saying(const QString& text) {
  PdfPage page{400, 600, {}};
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    page.words.push_back({word, {0.1, 0.1, 0.1, 0.02}});
  }
  return page;
}

// Prose of its own for every number, with the small words that all have.
PdfPage prose(unsigned number, int words = 120) {
  std::mt19937 random(number);
  PdfPage page{400, 600, {}};
  for (int i = 0; i < words; ++i) {
    const unsigned word = random() % 3 == 0 ? random() % 12 : random() % 4000;
    page.words.push_back({QStringLiteral("w%1").arg(word), {0.1, 0.1, 0.1, 0.02}});
  }
  return page;
}

std::vector<PdfPage> book(std::initializer_list<unsigned> numbers) {
  std::vector<PdfPage> pages;
  for (const unsigned number : numbers) {
    pages.push_back(number == 0 ? PdfPage{400, 600, {}} : prose(number));
  }
  return pages;
}

QImage sketch(unsigned number) {
  QImage image(90, 128, QImage::Format_Grayscale8);
  image.fill(255);
  std::mt19937 random(number);
  for (int patch = 0; number > 0 && patch < 6; ++patch) {
    const auto left = static_cast<int>(random() % 60);
    const auto top = static_cast<int>(random() % 100);
    const auto shade = static_cast<int>(random() % 120);
    for (int y = top; y < top + 28; ++y) {
      for (int x = left; x < left + 30; ++x) image.setPixel(x, y, qRgb(shade, shade, shade));
    }
  }
  return image;
}

std::vector<QImage> sketches(std::initializer_list<unsigned> numbers) {
  std::vector<QImage> all;
  for (const unsigned number : numbers) all.push_back(sketch(number));
  return all;
}

// "0 1 - 2m": the partners' numbers, with what has none and what has moved.
std::string told(const Partners& partners) {
  std::string text;
  for (const auto& partner : partners) {
    if (!text.empty()) text += ' ';
    text += partner ? std::to_string(partner->page) + (partner->moved ? "m" : "") : "-";
  }
  return text;
}

using Lefts = std::vector<std::size_t>;

TEST(PageMatching, FindsWhatWasPutInAndWhatIsMissing) {
  const auto ours = book({1, 2, 3, 4, 5});
  EXPECT_EQ(told(partnersOf(ours, ours)), "0 1 2 3 4");
  EXPECT_EQ(told(partnersOf(book({1, 2, 9, 3, 4, 5}), ours)), "0 1 - 2 3 4");
  const Partners less = partnersOf(book({1, 3, 4, 5}), ours);
  EXPECT_EQ(told(less), "0 2 3 4");
  EXPECT_EQ(withoutPartner(less, 5), Lefts{1});
  EXPECT_EQ(told(partnersOf(book({9, 8, 1, 2, 3, 4}), ours)), "- - 0 1 2 3");
}

TEST(PageMatching, TellsPagesThatMovedFromThoseThatKeptTheirPlace) {
  const auto ours = book({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(told(partnersOf(book({1, 5, 2, 3, 4, 6}), ours)), "0 4m 1 2 3 5");
  EXPECT_EQ(told(partnersOf(book({4, 5, 6, 1, 2}), ours)), "3 4 5 0m 1m");
}

TEST(PageMatching, SeesAPageThatMovedToWhereOneOnlyALittleLikeItIsMissing) {
  auto ours = book({1, 2, 3, 4, 5, 6});
  // A third of the fifth page is as on the second.
  std::copy_n(ours[1].words.begin(), 40, ours[4].words.begin());
  const std::vector<PdfPage> proof{ours[0], ours[2], ours[3], ours[1], ours[5]};
  EXPECT_EQ(told(partnersOf(proof, ours)), "0 2 3 1m 5");
  const std::vector<PdfPage> back{ours[0], ours[4], ours[2], ours[3], ours[5]};
  EXPECT_EQ(told(partnersOf(back, ours)), "0 4m 2 3 5");
}

TEST(PageMatching, GivesAPageOfTheReferenceToOneOnly) {
  const Partners doubled = partnersOf(book({1, 2, 2, 3}), book({1, 2, 3}));
  EXPECT_EQ(told(doubled), "0 1 - 2");
}

TEST(PageMatching, PairsPagesThatAreAllTheSameInTheirOrder) {
  EXPECT_EQ(told(partnersOf(book({7, 7, 7}), book({7, 7, 7}))), "0 1 2");
  EXPECT_EQ(told(partnersOf(book({7, 7, 7, 7}), book({7, 7}))), "0 1 - -");
  EXPECT_EQ(told(partnersOf(book({1, 0, 0, 2, 0}), book({1, 0, 0, 2, 0}))), "0 1 2 3 4");
}

TEST(PageMatching, LeavesOutABlankPageThatCameIn) {
  EXPECT_EQ(told(partnersOf(book({1, 0, 2, 3}), book({1, 2, 3}))), "0 - 1 2");
  const auto blank = sketches({1, 0, 2, 0});
  const auto ours = sketches({1, 0, 2});
  EXPECT_EQ(told(partnersOf(book({1, 0, 2, 0}), book({1, 0, 2}), blank, ours)), "0 1 2 -");
}

TEST(PageMatching, KeepsAPageThatWasWrittenAnewBetweenItsNeighbours) {
  const Partners partners = partnersOf(book({1, 9, 3}), book({1, 2, 3}));
  EXPECT_EQ(told(partners), "0 1 2");
  EXPECT_LT(partners[1]->likeness, 0.3);
  auto wider = book({1, 9, 3});
  wider[1].width = 800;
  EXPECT_EQ(told(partnersOf(wider, book({1, 2, 3}))), "0 - 2") << "of another shape as well";
  EXPECT_EQ(told(partnersOf(book({1, 8, 9, 3}), book({1, 2, 4, 3}))), "0 - - 3");
}

TEST(PageMatching, KnowsAPageOfWhichHalfWasChanged) {
  auto proof = book({1, 2, 3, 4});
  for (std::size_t i = 0; i < proof[2].words.size(); i += 2) proof[2].words[i].text += u"x";
  proof.insert(proof.begin() + 1, prose(9));
  EXPECT_EQ(told(partnersOf(proof, book({1, 2, 3, 4}))), "0 - 1 2 3");
}

TEST(PageMatching, ComparesPicturesWhereThereAreNoWords) {
  const auto ours = book({0, 0, 0, 0});
  const auto pictures = sketches({11, 12, 13, 14});
  const Partners more =
      partnersOf(book({0, 0, 0, 0, 0}), ours, sketches({11, 12, 19, 13, 14}), pictures);
  EXPECT_EQ(told(more), "0 1 - 2 3");
  EXPECT_FALSE(more[0]->byText);
  EXPECT_EQ(told(partnersOf(ours, ours, sketches({14, 11, 12, 13}), pictures)), "3m 0 1 2");
}

TEST(PageMatching, TrustsAPictureMoreThanAFolio) {
  const std::vector<PdfPage> proof{saying("1"), saying("2"), saying("3"), saying("4")};
  const std::vector<PdfPage> ours{saying("1"), saying("2"), saying("3")};
  EXPECT_EQ(told(partnersOf(proof, ours, sketches({11, 19, 12, 13}), sketches({11, 12, 13}))),
            "0 - 1 2");
}

TEST(PageMatching, GoesByTheNumberWhereNothingTells) {
  EXPECT_EQ(told(partnersOf(book({0, 0, 0}), book({0, 0, 0}))), "0 1 2");
  EXPECT_EQ(told(partnersOf(book({1, 2}), book({3, 4, 5}))), "0 1");
  EXPECT_EQ(told(partnersOf(book({1}), {})), "-");
  EXPECT_EQ(told(partnersOf({}, book({1}))), "");
}

TEST(PageMatching, PairsAPageWhoseWordsBecamePaths) {
  EXPECT_EQ(told(partnersOf(book({1, 0, 3}), book({1, 2, 3}))), "0 1 2");
}

TEST(PageMatching, IsDoneSoonWithSixHundredPages) {
  std::vector<PdfPage> proof;
  std::vector<PdfPage> ours;
  for (unsigned i = 0; i < 600; ++i) {
    ours.push_back(prose(i + 1, 500));
    proof.push_back(i % 2 == 0 ? ours.back() : prose(1, 500));
  }
  const std::clock_t start = std::clock();
  const Partners partners = partnersOf(proof, ours);
  EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC);
  for (std::size_t i = 0; i < 600; i += 2) EXPECT_EQ(partners[i]->page, i);
}

}  // namespace
}  // namespace vellix::demo
