#include "check/look_check.hpp"

#include <gtest/gtest.h>

#include <QBuffer>

#include "painted_page.hpp"

namespace vellix::demo {
namespace {

std::vector<Finding> looked(const PaintedPage& now, const PaintedPage& then) {
  const PaintedPair two(now, then);
  return lookFindings(two.pair, 0, now.sight(), then.sight());
}

std::vector<std::string> titlesOf(const std::vector<Finding>& findings) {
  std::vector<std::string> titles;
  titles.reserve(findings.size());
  for (const Finding& finding : findings) titles.push_back(finding.title);
  return titles;
}
using Titles = std::vector<std::string>;

// How much a box in fractions of the page and a place in pixels have in common.
double overlap(const std::vector<double>& box, const QRectF& truth, QSizeF size = {850, 1100}) {
  const QRectF told(box[0] * size.width(), box[1] * size.height(), box[2] * size.width(),
                    box[3] * size.height());
  const QRectF both = told & truth;
  const double common = both.width() * both.height();
  return common / (told.width() * told.height() + truth.width() * truth.height() - common);
}

// A page of everything.
PaintedPage laidOut(double x = 0, double y = 0) {
  PaintedPage page;
  page.aside(x, y);
  page.photo({100, 120, 240, 160}, 7);
  page.frame({420, 120, 200, 160}, Qt::darkBlue);
  page.rect({80, 60, 690, 1}, Qt::black);
  for (int i = 0; i < 20; ++i) {
    page.line("the north gate was open and nobody came by that evening", 100, 340 + 20 * i);
  }
  return page;
}

TEST(LookCheck, FindsNothingWhereNothingDiffers) {
  EXPECT_EQ(titlesOf(looked(laidOut(), laidOut())), Titles{});
}

TEST(LookCheck, LeavesHowEdgesWereSmoothed) {
  for (const auto& [x, y] : {std::pair(0.4, 0.0), {0.0, 0.5}, {0.3, -0.4}, {-0.6, 0.6}}) {
    EXPECT_EQ(titlesOf(looked(laidOut(x, y), laidOut())), Titles{}) << x << " " << y;
  }
}

TEST(LookCheck, LeavesTheNoiseOfAPictureThatWasCompressed) {
  const PaintedPage page = laidOut();
  for (const int quality : {80, 50}) {
    PdfSight noisy = page.sight();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(noisy.picture.save(&buffer, "JPEG", quality));
    noisy.picture = QImage::fromData(bytes, "JPEG").convertToFormat(QImage::Format_RGB888);
    const PaintedPair two(page, page);
    EXPECT_EQ(titlesOf(lookFindings(two.pair, 0, noisy, page.sight())), Titles{}) << quality;
  }
}

TEST(LookCheck, TellsOnceThatAPageLiesElsewhere) {
  EXPECT_EQ(titlesOf(looked(laidOut(1, -1), laidOut())), Titles{}) << "less than half a millimetre";
  const auto findings = looked(laidOut(8, -5), laidOut());
  ASSERT_EQ(titlesOf(findings), Titles{"The page lies elsewhere"});
  EXPECT_EQ(findings.front().detail,
            "All of it is 2.0 mm to the right and 1.3 mm higher than in our file.");
  EXPECT_EQ(findings.front().severity, "low");
  EXPECT_FALSE(findings.front().box);
}

TEST(LookCheck, FindsAChangeAlsoOnAPageThatLiesElsewhere) {
  PaintedPage now = laidOut(8, -5);
  now.rect({300, 900, 60, 40}, Qt::red);
  const auto findings = looked(now, laidOut());
  ASSERT_EQ(titlesOf(findings), (Titles{"The page lies elsewhere", "Art came in"}));
  EXPECT_GT(overlap(*findings.back().box, {308, 895, 60, 40}), 0.8) << "where the proof has it";
  EXPECT_GT(overlap(*findings.back().ref_box, {300, 900, 60, 40}), 0.8);
}

// A headline of so many lines, then art and text that lie lower by what a taller line takes.
PaintedPage belowALine(int headlines, double lower, bool art) {
  PaintedPage page;
  for (int i = 0; i < headlines; ++i) {
    page.line("what stands above it stays", 100, 60 + 20 * i);
  }
  if (art) page.photo({100, 180, 240, 120}, 7);
  page.aside(0, lower);
  for (int i = 0; i < 15; ++i) {
    page.line("the north gate was open and nobody came by that evening", 100, 340 + 20 * i);
  }
  return page;
}

TEST(LookCheck, LeavesTextThatLiesLowerBelowATallerLine) {
  EXPECT_EQ(titlesOf(looked(belowALine(6, 6, true), belowALine(6, 0, true))), Titles{});
  EXPECT_EQ(titlesOf(looked(belowALine(6, 6, false), belowALine(6, 0, false))), Titles{});
}

TEST(LookCheck, TellsThatAPageLiesElsewhereThoughSomeWordsOfItDoNot) {
  const auto findings = looked(belowALine(1, 6, false), belowALine(1, 0, false));
  ASSERT_EQ(titlesOf(findings), Titles{"The page lies elsewhere"});
  EXPECT_EQ(findings.front().detail, "Most of it is 1.5 mm lower than in our file.");
}

struct Drawing {
  const char* how;
  QRectF place;
  void (*then)(PaintedPage&, const QRectF&);
  void (*now)(PaintedPage&, const QRectF&);
  const char* title;
  const char* severity;
};
void PrintTo(const Drawing& drawing, std::ostream* out) { *out << drawing.how; }

void nothing(PaintedPage& /*page*/, const QRectF& /*place*/) {}
template <int Red, int Green, int Blue>
void filled(PaintedPage& page, const QRectF& place) {
  page.rect(place, QColor(Red, Green, Blue));
}
template <unsigned Seed>
void photo(PaintedPage& page, const QRectF& place) {
  page.photo(place, Seed);
}
void drawn(PaintedPage& page, const QRectF& place) { page.frame(place, Qt::darkGreen); }
void drawnInRed(PaintedPage& page, const QRectF& place) { page.frame(place, Qt::red); }

class LookCheckOfArt : public testing::TestWithParam<Drawing> {};

TEST_P(LookCheckOfArt, TellsWhatBecameOfIt) {
  const Drawing& drawing = GetParam();
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  drawing.then(then, drawing.place);
  drawing.now(now, drawing.place);
  const auto findings = looked(now, then);
  ASSERT_EQ(titlesOf(findings), Titles{drawing.title});
  const Finding& finding = findings.front();
  EXPECT_EQ(finding.kind, "picture");
  EXPECT_EQ(finding.severity, drawing.severity);
  EXPECT_EQ(finding.state, "open");
  ASSERT_TRUE(finding.box && finding.ref_box);
  EXPECT_GE(overlap(*finding.box, drawing.place), 0.7);
  EXPECT_GE(overlap(*finding.ref_box, drawing.place), 0.7);
}

INSTANTIATE_TEST_SUITE_P(
    Each, LookCheckOfArt,
    testing::Values(
        Drawing{"missing", {200, 820, 120, 90}, photo<3>, nothing, "Art is missing", "high"},
        Drawing{"a drawing missing", {200, 820, 120, 90}, drawn, nothing, "Art is missing", "high"},
        Drawing{"came in", {200, 820, 120, 90}, nothing, photo<3>, "Art came in", "medium"},
        Drawing{"half a millimetre",
                {300, 900, 2, 2},
                filled<0, 0, 0>,
                nothing,
                "Art is missing",
                "high"},
        Drawing{"replaced", {200, 820, 160, 120}, photo<3>, photo<4>, "The art differs", "medium"},
        Drawing{"hue",
                {200, 820, 80, 60},
                filled<200, 60, 60>,
                filled<60, 130, 60>,
                "The color differs",
                "medium"},
        Drawing{"tint",
                {200, 820, 200, 120},
                filled<240, 240, 240>,
                filled<226, 226, 226>,
                "The color differs",
                "medium"},
        Drawing{"tint came in",
                {200, 820, 200, 120},
                nothing,
                filled<238, 242, 240>,
                "Art came in",
                "medium"},
        Drawing{"lines in color",
                {200, 820, 120, 90},
                drawn,
                drawnInRed,
                "The color differs",
                "medium"}),
    [](const auto& row) {
      std::string name = row.param.how;
      std::ranges::replace(name, ' ', '_');
      return name;
    });

TEST(LookCheck, TellsHowFarArtWasMoved) {
  const auto with = [](QRectF place) {
    PaintedPage page = laidOut();
    return page.photo(place, 11);
  };
  const QRectF then(200, 780, 160, 110);
  for (const QPointF by : {QPointF(12, -7), QPointF(-6, 0), QPointF(300, 120)}) {
    const auto findings = looked(with(then.translated(by)), with(then));
    ASSERT_EQ(titlesOf(findings), Titles{"The art sits elsewhere"}) << by.x();
    EXPECT_GE(overlap(*findings.front().box, then.translated(by)), 0.9);
    EXPECT_GE(overlap(*findings.front().ref_box, then), 0.9);
  }
  const auto findings = looked(with(then.translated(12, -7)), with(then));
  EXPECT_EQ(findings.front().detail,
            "The picture is 3.0 mm to the right and 1.8 mm higher than in our file.");
}

TEST(LookCheck, TellsAMoveOfWhatIsFlatAsOne) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.rect({200, 820, 200, 100}, Qt::darkRed);
  now.rect({216, 830, 200, 100}, Qt::darkRed);
  const auto findings = looked(now, then);
  ASSERT_EQ(titlesOf(findings), Titles{"The art sits elsewhere"});
  EXPECT_GE(overlap(*findings.front().box, {216, 830, 200, 100}), 0.9);
}

// Six shapes in a frame, on a ground that is a shade darker than paper to the left.
void plate(PaintedPage& page, QPointF at) {
  page.rect({at.x(), at.y(), 110, 120}, QColor(224, 232, 242))
      .rect({at.x(), at.y(), 224, 1}, Qt::darkGray)
      .rect({at.x(), at.y() + 120, 224, 1}, Qt::darkGray)
      .rect({at.x(), at.y(), 1, 120}, Qt::darkGray)
      .rect({at.x() + 224, at.y(), 1, 121}, Qt::darkGray);
  for (const QPointF cell :
       {QPointF(17, 7), {91, 7}, {165, 7}, {17, 71.5}, {91, 71.5}, {165, 71.5}}) {
    page.rect(QRectF(at + cell, QSizeF(42, 42)), Qt::darkBlue);
  }
}

TEST(LookCheck, TellsAPictureThatMovedOnceHoweverItsPartsTouch) {
  const QPointF first(113, 770);
  const QPointF second(440, 920);
  for (double part = 0; part < 4; part += 0.7) {
    const QPointF by(17.3 + part, -9.4 + part);
    const QPointF other(-19 - part, 5.6);
    PaintedPage then = laidOut();
    plate(then, first);
    plate(then, second);
    PaintedPage now = laidOut();
    plate(now, first + by);
    plate(now, second + other);
    const auto findings = looked(now, then);
    ASSERT_EQ(titlesOf(findings), (Titles{"The art sits elsewhere", "The art sits elsewhere"}))
        << part;
    for (const Finding& finding : findings) {
      const bool left = finding.box->front() < 0.4;
      const QSizeF size(225, 121);
      EXPECT_GE(
          overlap(*finding.box, left ? QRectF(first + by, size) : QRectF(second + other, size)),
          0.9);
      EXPECT_GE(overlap(*finding.ref_box, QRectF(left ? first : second, size)), 0.9);
    }
  }
}

TEST(LookCheck, LeavesAPartOfAPictureInItThoughItsLikeCameIntoAnother) {
  const QRectF part(40, 30, 50, 50);
  const QPointF first(100, 770);
  const QPointF second(440, 920);
  const auto framed = [](PaintedPage& page, QPointF at) -> PaintedPage& {
    for (const QRectF& side :
         {QRectF(0, 0, 225, 2), {0, 119, 225, 2}, {0, 0, 2, 121}, {223, 0, 2, 121}}) {
      page.rect(side.translated(at), Qt::darkGray);
    }
    return page;
  };
  PaintedPage then = laidOut();
  framed(then, first).rect(part.translated(first), Qt::darkRed);
  framed(then, second).rect({second.x() + 40, second.y() + 30, 50, 20}, Qt::darkGreen);
  PaintedPage now = laidOut();
  framed(now, first);
  framed(now, second).rect(part.translated(second), Qt::darkRed);
  EXPECT_EQ(titlesOf(looked(now, then)), (Titles{"Art is missing", "The art differs"}));
}

TEST(LookCheck, FindsWhatElseChangedBesideAMove) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.photo({200, 820, 160, 110}, 11);
  now.photo({220, 820, 160, 110}, 11).rect({600, 900, 50, 50}, Qt::blue);
  EXPECT_EQ(titlesOf(looked(now, then)), (Titles{"The art sits elsewhere", "Art came in"}));
}

TEST(LookCheck, LeavesWordsThatDifferToTheText) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.line("it was cold outside", 100, 800);
  now.line("it was bright outside", 100, 800);
  EXPECT_EQ(titlesOf(looked(now, then)), Titles{});
}

TEST(LookCheck, ComparesWordsByTheirLooksWhereOnePageHasNoneToRead) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.line("it was cold outside", 100, 800);
  now.line("it was bright outside", 100, 800);
  now.page().words.clear();
  const auto findings = looked(now, then);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings.front().title, "The art differs");
}

TEST(LookCheck, LeavesAWordThatWasPlacedByAnotherRounding) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.word("gathering", 100, 800);
  now.aside(0, 1.6).word("gathering", 100, 799.5);
  EXPECT_EQ(titlesOf(looked(now, then)), Titles{});
}

TEST(LookCheck, FindsWordsInAnotherColor) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.line("printed in black", 100, 800);
  now.line("printed in black", 100, 800, QColor(200, 0, 0));
  const auto findings = looked(now, then);
  ASSERT_EQ(titlesOf(findings), Titles{"The color differs"});
  EXPECT_GE(overlap(*findings.front().box, {100, 802, 138, 10}), 0.7);
}

TEST(LookCheck, FindsWordsThatAreStruckThrough) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.line("no longer true", 100, 800);
  now.line("no longer true", 100, 800).rect({100, 806, 118, 2}, Qt::red);
  const auto findings = looked(now, then);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings.front().kind, "picture");
}

TEST(LookCheck, FindsALineUnderTheArt) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.line("credit to the painter", 100, 800);
  now.line("credit to the painter", 100, 800).rect({80, 790, 260, 40}, QColor(40, 90, 160));
  const auto findings = looked(now, then);
  ASSERT_EQ(titlesOf(findings), Titles{"A line lies under the art"});
  const Finding& finding = findings.front();
  EXPECT_EQ(finding.kind, "hidden");
  EXPECT_EQ(finding.severity, "high");
  EXPECT_TRUE(finding.detail->starts_with("“credit to the painter” is in the file"));
  EXPECT_GE(overlap(*finding.box, {80, 790, 260, 40}), 0.9);
}

TEST(LookCheck, FindsAWordOfWhichNothingShows) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.word("invisible", 100, 800);
  now.word("invisible", 100, 800, Qt::white);
  const auto findings = looked(now, then);
  ASSERT_EQ(titlesOf(findings), Titles{"A word cannot be seen"});
  EXPECT_EQ(findings.front().kind, "hidden");
}

TEST(LookCheck, TellsMoreThanAFewPlacesAsOne) {
  PaintedPage now = laidOut();
  for (int i = 0; i < 9; ++i) now.rect({60.0 + 80 * i, 900 + 9.0 * i, 20, 20}, Qt::red);
  const auto findings = looked(now, laidOut());
  ASSERT_EQ(titlesOf(findings), Titles{"The page looks different"});
  EXPECT_GE(overlap(*findings.front().box, {60, 900, 660, 92}), 0.9);
}

TEST(LookCheck, ComparesPagesOfAnotherSize) {
  const PaintedPage then = laidOut();
  PaintedPage narrower({838, 1100});
  PaintedPage smaller({680, 880});
  narrower.page() = then.page();
  smaller.page() = then.page();
  const PaintedPair two(then, then);
  PdfSight cut = then.sight();
  cut.picture = then.sight().picture.copy(12, 0, 838, 1100);
  PaintedPage words = then;
  for (PdfWord& word : words.page().words) {
    word.box = {(word.box.x() * 850 - 12) / 838, word.box.y(), word.box.width() * 850 / 838,
                word.box.height()};
  }
  const PaintedPair cutPair(words, then);
  EXPECT_EQ(titlesOf(lookFindings(cutPair.pair, 0, cut, then.sight())), Titles{});
  PdfSight scaled = then.sight();
  scaled.picture = scaled.picture.scaled(680, 880, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_LE(lookFindings(two.pair, 0, scaled, then.sight()).size(), 1U);
}

TEST(LookCheck, SaysThatAPageCouldNotBeDrawn) {
  const PaintedPage page = laidOut();
  const PaintedPair two(page, page);
  const auto findings = lookFindings(two.pair, 0, {}, page.sight());
  ASSERT_EQ(titlesOf(findings), Titles{"The art was not compared"});
  EXPECT_EQ(findings.front().detail, "The page could not be drawn. Compare it by eye.");
  EXPECT_EQ(lookFindings(two.pair, 0, page.sight(), {}).front().detail,
            "The page of our file could not be drawn. Compare it by eye.");
}

TEST(LookCheck, LeavesBarcodesThatReadDifferentlyToTheirOwnCheck) {
  PaintedPage then = laidOut();
  PaintedPage now = laidOut();
  then.barcode("9781234567897", {600, 900, 150, 80});
  now.barcode("9781234567903", {600, 900, 151, 80}).rect({640, 900, 3, 80}, Qt::black);
  EXPECT_EQ(titlesOf(looked(now, then)), Titles{});
  PaintedPage same = laidOut();
  same.barcode("9781234567897", {600, 900, 150, 80}).rect({640, 900, 30, 80}, Qt::red);
  EXPECT_EQ(looked(same, then).size(), 1U);
}

TEST(LookCheck, LeavesAPageWithoutAPartner) {
  const PaintedPage page = laidOut();
  PaintedPair two(page, page);
  two.partners.front().reset();
  EXPECT_TRUE(lookFindings(two.pair, 0, page.sight(), page.sight()).empty());
  EXPECT_TRUE(lookFindings(two.pair, 5, page.sight(), page.sight()).empty());
}

TEST(LookCheck, StandsPicturesOfAnySize) {
  for (const QSize size : {QSize(1, 1), QSize(2, 900), QSize(3, 3), QSize(5000, 4)}) {
    PaintedPage tiny(size);
    tiny.rect({0, 0, 2, 2}, Qt::black);
    const PaintedPage page = laidOut();
    (void)looked(tiny, page);
    (void)looked(page, tiny);
    (void)looked(tiny, PaintedPage(size));
  }
}

}  // namespace
}  // namespace vellix::demo
