// What the reader tells of plain PDFs and odd ones.
#include <gtest/gtest.h>

#include <algorithm>

#include "odd_pdf.hpp"
#include "pdf_file.hpp"

namespace vellix::demo {
namespace {

using demo_tests::OddPage;
using demo_tests::oddPdf;
using demo_tests::pageSaying;
using demo_tests::pdfOf;
using demo_tests::streamOf;
using demo_tests::writtenPdf;

PdfPage onlyPage(const OddPage& odd) {
  const auto pages = PdfFile::of(oddPdf(odd))->pages(0, 9);
  EXPECT_EQ(pages.size(), 1);
  return pages.empty() ? PdfPage{} : pages.front();
}

// Where anything is drawn, in fractions of the picture.
QRectF inked(const QImage& picture) {
  QRect box;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qGray(picture.pixel(x, y)) < 128) box |= QRect(x, y, 1, 1);
    }
  }
  const double width = picture.width();
  const double height = picture.height();
  return {box.x() / width, box.y() / height, box.width() / width, box.height() / height};
}

TEST(PdfReader, TellsPagesOfAnySize) {
  const auto pdf = PdfFile::of(writtenPdf({{.width = 1, .height = 1},
                                           {.width = 14400, .height = 14400},
                                           {.width = 14400, .height = 1},
                                           {.width = 200, .height = 300, .turned = 90},
                                           {.width = 595.28, .height = 841.89}}));
  const PdfReading facts = pdf->facts();
  ASSERT_EQ(facts.trouble, PdfTrouble::none);
  ASSERT_EQ(facts.pages.size(), 5);
  EXPECT_EQ(facts.pages[2].width, 14400);
  EXPECT_EQ(facts.pages[2].height, 1);
  EXPECT_EQ(facts.pages[3].width, 300);
  EXPECT_EQ(facts.pages[3].height, 200);
  EXPECT_NEAR(facts.pages[4].width, 595.28, 0.01);
  const auto sights = pdf->sights(0, 5);
  ASSERT_EQ(sights.size(), 5);
  for (std::size_t i = 0; i < 5; ++i) {
    const QSize pixels = pixelsOf(facts.pages[i]);
    EXPECT_LE(pixels.width() * pixels.height(), 6'010'000);
    EXPECT_TRUE(pdf->drawn(static_cast<int>(i), pixels).drawn) << i;
    EXPECT_LE(sights[i].picture.width() * sights[i].picture.height(), kMostSightPixels);
    EXPECT_EQ(sights[i].picture.format(), QImage::Format_RGB888);
  }
  EXPECT_EQ(sights[0].picture.size(), QSize(1, 1));
  EXPECT_EQ(sights[3].picture.size(), QSize(417, 278));
  EXPECT_EQ(pdf->sketches().size(), 5);
}

TEST(PdfReader, TellsLengthsInPointsWhateverThePagesUnit) {
  const auto page = [](const std::string& more) {
    return "<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 300]/TrimBox[10 10 190 290]/Contents 5 0 R"
           "/Resources<</Font<</F1<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>" +
           more + ">>";
  };
  const auto pdf = PdfFile::of(
      pdfOf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>>",
             page("/UserUnit 2.5"), page("/UserUnit -3"),
             demo_tests::streamOf("BT /F1 10 Tf 20 150 Td (Salt) Tj ET")}));
  const auto pages = pdf->pages(0, 2);
  ASSERT_EQ(pages.size(), 2);
  EXPECT_EQ(pages[0].width, 500);
  EXPECT_EQ(pages[0].height, 750);
  EXPECT_EQ(pages[0].trim, QSizeF(450, 700));
  EXPECT_EQ(pages[0].words.at(0).size, 25);
  EXPECT_EQ(pages[0].words.at(0).box, pages[1].words.at(0).box);
  EXPECT_EQ(pages[1].width, 200) << "no unit at all";
  EXPECT_EQ(pages[1].words.at(0).size, 10);
  EXPECT_EQ(pdf->facts().pages.at(0).height, 750);
  const PdfPicture picture = pdf->drawn(0, pixelsOf(pages[0]));
  EXPECT_TRUE(picture.drawn);
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(picture.jpeg)).size(), pixelsOf(pages[0]));
}

struct Turned {
  const char* name;
  std::string boxes;
  int turned;
};
void PrintTo(const Turned& row, std::ostream* out) { *out << row.name << row.turned; }

class TurnedPages : public testing::TestWithParam<Turned> {};

// The word is where its ink is, whatever way the page is turned and cut.
TEST_P(TurnedPages, HaveTheirWordsWhereTheyShow) {
  const auto pdf = PdfFile::of(
      oddPdf({.entries = GetParam().boxes + "/Rotate " + std::to_string(GetParam().turned),
              .drawn = "BT /F 20 Tf 150 160 Td (HXH) Tj ET"}));
  const auto pages = pdf->pages(0, 1);
  const auto sights = pdf->sights(0, 1);
  ASSERT_EQ(pages.size(), 1);
  ASSERT_EQ(sights.size(), 1);
  ASSERT_EQ(pages[0].words.size(), 1);
  EXPECT_EQ(pages[0].words[0].text, "HXH");
  EXPECT_EQ(pages[0].words[0].size, 20);
  const QRectF box = pages[0].words[0].box;
  const QRectF ink = inked(sights[0].picture);
  EXPECT_TRUE(box.adjusted(-0.01, -0.01, 0.01, 0.01).contains(ink))
      << box.x() << " " << box.y() << " " << ink.x() << " " << ink.y();
  EXPECT_GT(ink.width() * ink.height(), 0.5 * box.width() * box.height());
}

std::vector<Turned> turnedRows() {
  std::vector<Turned> rows;
  for (const int turned : {0, 90, 180, 270, -90}) {
    rows.push_back({"whole", "/MediaBox[0 0 400 300]", turned});
    rows.push_back({"shifted", "/MediaBox[-50 100 350 400]", turned});
    rows.push_back({"cut", "/MediaBox[0 0 400 300]/CropBox[120 100 320 260]", turned});
    rows.push_back(
        {"cut and shifted", "/MediaBox[30 -20 430 280]/CropBox[100 90 330 240]", turned});
    rows.push_back({"upside down", "/MediaBox[400 300 0 0]", turned});
  }
  return rows;
}
INSTANTIATE_TEST_SUITE_P(All, TurnedPages, testing::ValuesIn(turnedRows()));

TEST(PdfReader, TellsTrimAndBleedAsShown) {
  const std::string boxes = "/MediaBox[0 0 400 300]/TrimBox[20 30 380 270]/BleedBox[10 20 390 900]";
  const PdfPage flat = onlyPage({.entries = boxes});
  EXPECT_EQ(flat.trim, QSizeF(360, 240));
  EXPECT_EQ(flat.bleed, QSizeF(380, 280)) << "no more than the sheet has";
  const PdfPage turned = onlyPage({.entries = boxes + "/Rotate 270"});
  EXPECT_EQ(turned.trim, QSizeF(240, 360));
  EXPECT_EQ(PdfFile::of(oddPdf({.entries = boxes}))->facts().pages.at(0).trim, QSizeF(360, 240));
  const PdfPage neither = onlyPage({.entries = "/MediaBox[0 0 400 300]/TrimBox[1 2 (3) 4]"});
  EXPECT_TRUE(neither.trim.isEmpty());
  EXPECT_TRUE(neither.bleed.isEmpty());
}

TEST(PdfReader, TellsTheInksThatAPageNames) {
  const std::string tint = "/DeviceCMYK<</FunctionType 2/Domain[0 1]/N 1/C1[0 1 0 0]>>]";
  const PdfPage page = onlyPage(
      {.resources = "/ColorSpace<</A[/Separation/PANTONE#20185#20C" + tint + "/B[/Separation/All" +
                    tint + "/C[/Separation/Black" + tint + "/D[/Indexed[/Separation/Gold" + tint +
                    " 1<0011>]/E[/Pattern 11 0 R]>>" +
                    "/XObject<</X 6 0 R/I 7 0 R>>/Pattern<</P 8 0 R/Q 10 0 R>>",
       .objects = {streamOf("",
                            "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</XObject<<"
                            "/Self 6 0 R>>/ColorSpace<</N[/DeviceN[/Cyan/Varnish/None]" +
                                tint + ">>>>"),
                   streamOf("a",
                            "/Type/XObject/Subtype/Image/Width 1/Height 1/BitsPerComponent 8"
                            "/ColorSpace 9 0 R"),
                   streamOf("",
                            "/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 9 9]/XStep 9"
                            "/YStep 9/Resources<</ColorSpace<</T[/Separation/Tiled" +
                                tint + ">>>>"),
                   "[/Separation/Gr#C3#BCn" + tint,
                   "<</PatternType 2/Shading<</ShadingType 2/ColorSpace[/Separation/Shaded" + tint +
                       "/Coords[0 0 9 9]>>>>",
                   "[/Separation/Patterned" + tint}});
  EXPECT_EQ(page.inks, (std::vector<QString>{"Gold", "Grün", "PANTONE 185 C", "Patterned", "Shaded",
                                             "Tiled", "Varnish"}));
  EXPECT_TRUE(onlyPage({}).inks.empty());
}

TEST(PdfReader, TellsFontAndSizeOfAWord) {
  const PdfPage page =
      onlyPage({.resources = "",
                .drawn = "BT /F 9 Tf 20 200 Td (nine) Tj ET q 2 0 0 2 0 0 cm BT /F 6 Tf "
                         "20 50 Td (twelve) Tj ET Q"});
  ASSERT_EQ(page.words.size(), 2);
  EXPECT_EQ(page.words[0].font, "Helvetica") << "without the mark of its subset";
  EXPECT_EQ(page.words[0].size, 9);
  EXPECT_EQ(page.words[1].font, "Helvetica");
  EXPECT_EQ(page.words[1].size, 12) << "as it is shown";
}

TEST(PdfReader, ShowsASoftHyphenWhereAWordEndsWithIt) {
  const PdfPage page = onlyPage(
      {.resources = "/Font<</G<</Type/Font/Subtype/Type1/BaseFont/Helvetica"
                    "/Encoding<</Type/Encoding/BaseEncoding/WinAnsiEncoding"
                    "/Differences[1/uni00AD]>>>>>>",
       .drawn = "BT /G 9 Tf 20 200 Td (exam\\001) Tj ET BT /G 9 Tf 20 180 Td (ple\\001s) Tj ET"});
  ASSERT_EQ(page.words.size(), 2);
  EXPECT_EQ(page.words[0].text, "exam-");
  EXPECT_EQ(page.words[1].text, "ples");
}

TEST(PdfReader, TellsNoWordsOfWhatIsOnlyDrawn) {
  const auto pdf = PdfFile::of(oddPdf({.drawn = "100 100 50 80 re f"}));
  EXPECT_TRUE(pdf->read().pages.at(0).words.empty());
  EXPECT_FALSE(inked(pdf->sights(0, 1).at(0).picture).isEmpty());
  EXPECT_FALSE(inked(pdf->sketches().at(0)).isEmpty());
}

struct Unreadable {
  const char* name;
  std::string bytes;
  PdfTrouble trouble;
  int count;
};
void PrintTo(const Unreadable& row, std::ostream* out) { *out << row.name; }

class UnreadablePdfs : public testing::TestWithParam<Unreadable> {};

TEST_P(UnreadablePdfs, SayWhy) {
  const auto pdf = PdfFile::of(GetParam().bytes);
  const PdfReading facts = pdf->facts();
  EXPECT_EQ(facts.trouble, GetParam().trouble);
  EXPECT_EQ(facts.count, GetParam().count);
  EXPECT_EQ(pdf->read().trouble, GetParam().trouble);
  if (GetParam().trouble == PdfTrouble::tooLong) return;
  EXPECT_TRUE(pdf->pages(0, 5).empty());
  EXPECT_TRUE(pdf->sights(0, 5).empty());
  EXPECT_TRUE(pdf->sketches().empty());
  const PdfPicture picture = pdf->drawn(0, {100, 100});
  EXPECT_FALSE(picture.drawn);
  EXPECT_FALSE(QImage::fromData(QByteArray::fromStdString(picture.jpeg)).isNull());
}

const std::string kSound = writtenPdf({pageSaying("Salt"), pageSaying("Pepper")});
INSTANTIATE_TEST_SUITE_P(
    All, UnreadablePdfs,
    testing::Values(Unreadable{"nothing", "", PdfTrouble::damaged, 0},
                    Unreadable{"no PDF", std::string(5000, 'x'), PdfTrouble::damaged, 0},
                    Unreadable{"head only", kSound.substr(0, 12), PdfTrouble::damaged, 0},
                    Unreadable{"locked", writtenPdf({pageSaying("Salt")}, true), PdfTrouble::locked,
                               0},
                    Unreadable{"empty", writtenPdf({}), PdfTrouble::empty, 0},
                    Unreadable{"too long", writtenPdf(std::vector(601, pageSaying("x"))),
                               PdfTrouble::tooLong, 601}));

TEST(PdfReader, ReadsWhatCanBeMended) {
  std::string shifted = kSound;
  shifted.insert(shifted.find("1 0 obj"), "%\n");
  shifted.resize(shifted.find("startxref"));
  const auto pdf = PdfFile::of(shifted);
  const PdfReading reading = pdf->read();
  EXPECT_EQ(reading.trouble, PdfTrouble::none);
  ASSERT_EQ(reading.pages.size(), 2);
  EXPECT_EQ(reading.pages[1].words.at(0).text, "Pepper");
}

TEST(PdfReader, TellsAnyRangeOfPages) {
  std::vector<demo_tests::WrittenPage> written;
  written.reserve(60);
  for (int i = 0; i < 60; ++i) written.push_back(pageSaying("page" + std::to_string(i)));
  const auto pdf = PdfFile::of(writtenPdf(written));
  const auto first = [](const std::vector<PdfPage>& pages) {
    return pages.empty() ? QString() : pages.front().words.at(0).text;
  };
  EXPECT_EQ(first(pdf->pages(7, 9)), "page7");
  EXPECT_EQ(pdf->pages(7, 9).size(), 2);
  EXPECT_EQ(pdf->pages(55, 90).size(), 5);
  EXPECT_TRUE(pdf->pages(60, 90).empty());
  EXPECT_TRUE(pdf->pages(9, 9).empty());
  EXPECT_TRUE(pdf->pages(9, 7).empty());
  EXPECT_EQ(first(pdf->pages(-5, 2)), "page0");
  EXPECT_EQ(pdf->sights(58, 61).size(), 2);
  EXPECT_EQ(pdf->sketches(3, 5).size(), 2);
  const PdfReading all = pdf->read();
  ASSERT_EQ(all.pages.size(), 60);
  EXPECT_EQ(all.pages[59].words.at(0).text, "page59");
}

TEST(PdfReader, TellsThatAPageHasMoreWordsThanItReads) {
  const auto page = [](std::size_t words) {
    demo_tests::WrittenPage made{.width = 1200, .height = 1000};
    for (std::size_t i = 0; i < words; i += 200) {
      std::string line;
      for (std::size_t j = i; j < std::min(words, i + 200); ++j) line += "W ";
      made.lines.push_back({line, 20, 980 - 0.023 * static_cast<double>(i), 4});
    }
    return made;
  };
  const auto pages =
      PdfFile::of(writtenPdf({page(kMostWordsOfAPage), page(kMostWordsOfAPage + 1)}))->pages(0, 2);
  ASSERT_EQ(pages.size(), 2);
  EXPECT_EQ(pages[0].words.size(), kMostWordsOfAPage);
  EXPECT_FALSE(pages[0].moreWords);
  EXPECT_EQ(pages[1].words.size(), kMostWordsOfAPage);
  EXPECT_TRUE(pages[1].moreWords);
}

TEST(PdfReader, EndsBeforeAPageThatCannotBeRead) {
  const std::string page = "<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]>>";
  const auto pdf = PdfFile::of(
      pdfOf({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R 4 0 R 5 0 R]/Count 3>>",
             page, "(no page)", page}));
  const PdfReading facts = pdf->facts();
  EXPECT_LT(pdf->pages(0, 3).size(), 3);
  EXPECT_EQ(facts.trouble, PdfTrouble::damaged);
  EXPECT_EQ(pdf->read().trouble, PdfTrouble::damaged);
}

}  // namespace
}  // namespace vellix::demo
