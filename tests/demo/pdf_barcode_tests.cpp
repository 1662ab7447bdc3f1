// Barcodes that the reader finds on pages.
#include <gtest/gtest.h>

#include "barcode.hpp"
#include "odd_pdf.hpp"
#include "pdf_file.hpp"

namespace vellix::demo {
namespace {

using demo_tests::number;
using demo_tests::oddPdf;

const std::string kDigits = "9783161484100";
// Of the thinnest bar, in points, when an EAN is printed at 80 %.
constexpr double kModule = 0.264 / 25.4 * 72;
constexpr double kHigh = 18.3 / 25.4 * 72;

// With its bottom left at that place.
std::string bars(const std::string& digits, double x, double y, double module = kModule) {
  const std::string modules = modulesOf(digits);
  std::string drawn = "0 g ";
  for (std::size_t i = 0; i < modules.size(); ++i) {
    if (modules[i] != '1') continue;
    drawn += number(x + static_cast<double>(i) * module) + " " + number(y) + " " + number(module) +
             " " + number(kHigh) + " re f\n";
  }
  return drawn;
}

std::vector<PdfBarcode> found(const std::string& entries, const std::string& drawn) {
  const auto sights = PdfFile::of(oddPdf({.entries = entries, .drawn = drawn}))->sights(0, 1);
  EXPECT_EQ(sights.size(), 1);
  return sights.empty() ? std::vector<PdfBarcode>{} : sights.front().barcodes;
}

double overlap(const QRectF& one, const QRectF& other) {
  const QRectF both = one.intersected(other);
  const double shared = both.width() * both.height();
  return shared / (one.width() * one.height() + other.width() * other.height() - shared);
}

TEST(PdfBarcodes, AreReadAtTheirSmallestWhereverTheyStand) {
  for (double x = 100; x < 101; x += 0.09) {
    const auto codes = found("/MediaBox[0 0 420 595]", bars(kDigits, x, 200 + x / 3));
    ASSERT_EQ(codes.size(), 1) << x;
    EXPECT_EQ(codes[0].kind, "EAN-13");
    EXPECT_EQ(codes[0].digits.toStdString(), kDigits);
    const QRectF place(x / 420, (595 - 200 - x / 3 - kHigh) / 595, 95 * kModule / 420, kHigh / 595);
    EXPECT_GT(overlap(codes[0].box, place), 0.8) << codes[0].box.width() << " " << place.width();
  }
}

TEST(PdfBarcodes, AreReadWholeWhereTheirBarsAreDrawnInStrips) {
  constexpr double kFullModule = 0.33 / 25.4 * 72;
  const std::vector<std::string> all = {"9781560523598", "9783343462537", "9788612108505"};
  for (double x = 100; x < 101; x += 0.13) {
    std::string drawn;
    for (std::size_t i = 0; i < all.size(); ++i) {
      drawn += bars(all[i], x, 100 + 150 * static_cast<double>(i), kFullModule);
    }
    const auto codes = found("/MediaBox[0 0 420 595]", drawn);
    ASSERT_EQ(codes.size(), all.size()) << x;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const auto code =
          std::ranges::find(codes, QString::fromStdString(all[i]), &PdfBarcode::digits);
      ASSERT_NE(code, codes.end()) << all[i];
      const double bottom = 100 + 150 * static_cast<double>(i);
      const QRectF place(x / 420, (595 - bottom - kHigh) / 595, 95 * kFullModule / 420,
                         kHigh / 595);
      EXPECT_GT(overlap(code->box, place), 0.8) << all[i];
    }
  }
}

TEST(PdfBarcodes, AreReadHoweverThePageIsTurned) {
  for (const int turned : {90, 180, 270}) {
    const auto codes =
        found("/MediaBox[0 0 420 595]/Rotate " + std::to_string(turned), bars(kDigits, 100, 200));
    ASSERT_EQ(codes.size(), 1) << turned;
    EXPECT_EQ(codes[0].digits.toStdString(), kDigits);
    EXPECT_EQ(codes[0].box.width() < codes[0].box.height(), turned != 180);
  }
}

TEST(PdfBarcodes, AreToldEachOnce) {
  const std::string other = "4006381333931";
  const auto codes = found("/MediaBox[0 0 420 595]",
                           bars(kDigits, 60, 60) + bars(other, 250, 400) + bars(kDigits, 60, 300));
  ASSERT_EQ(codes.size(), 3);
  EXPECT_EQ(std::ranges::count(codes, QString::fromStdString(other), &PdfBarcode::digits), 1);
}

TEST(PdfBarcodes, AreReadOnPosters) {
  // The second lies across what is searched at once.
  const auto codes = found("/MediaBox[0 0 1684 2384]",
                           bars(kDigits, 1500, 2300) + bars("4006381333931", 1190, 1160));
  ASSERT_EQ(codes.size(), 2);
  EXPECT_GT(std::ranges::max(codes, {}, [](const auto& code) { return code.box.x(); }).box.x(),
            0.8);
}

TEST(PdfBarcodes, AreNotPutTogetherOfHalvesThatStandApart) {
  // White lies over the right half of the upper code and over the left half of the lower one.
  const double half = 47.5 * kModule;
  const auto cover = [&](double x, double y) {
    return "1 g " + number(x) + " " + number(y) + " " + number(half) + " " + number(kHigh) +
           " re f\n";
  };
  const auto codes =
      found("/MediaBox[0 0 420 595]", bars(kDigits, 100, 400) + cover(100 + half, 400) +
                                          bars(kDigits, 100, 200) + cover(100, 200));
  EXPECT_TRUE(codes.empty()) << codes.front().digits.toStdString();
}

TEST(PdfBarcodes, AreNotMadeUp) {
  std::string wrong = kDigits;
  wrong.back() = '1';
  EXPECT_TRUE(found("/MediaBox[0 0 420 595]", bars(wrong, 100, 200)).empty());
  std::string text;
  for (int line = 0; line < 40; ++line) {
    text += "BT /F 10 Tf 20 " + std::to_string(560 - 12 * line) +
            " Td (illicit lilting till 1111 IIII |||| Illinois 0123456789 HILL MILL) Tj ET ";
  }
  EXPECT_TRUE(found("/MediaBox[0 0 420 595]", text).empty());
}

}  // namespace
}  // namespace vellix::demo
