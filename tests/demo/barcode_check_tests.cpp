#include <gtest/gtest.h>

#include "check/look_check.hpp"
#include "painted_page.hpp"

namespace vellix::demo {
namespace {

constexpr const char* kOurs = "9781234567897";
const QRectF kPlace(600, 900, 150, 80);

std::vector<Finding> read(const PaintedPage& now, const PaintedPage& then) {
  const PaintedPair two(now, then);
  return barcodeFindings(two.pair, 0, now.sight(), then.sight());
}

PaintedPage page(const QString& digits, const QRectF& place = kPlace) {
  return PaintedPage().barcode(digits, place);
}

TEST(BarcodeCheck, PassesOneThatReadsTheSame) {
  const auto findings = read(page(kOurs), page(kOurs));
  ASSERT_EQ(findings.size(), 1U);
  const Finding& pass = findings.front();
  EXPECT_EQ(pass.kind, "pass");
  EXPECT_EQ(pass.state, "pass");
  EXPECT_EQ(pass.severity, "low");
  EXPECT_EQ(pass.title, "The barcode reads");
  EXPECT_EQ(pass.detail, "9781234567897, with a right check digit.");
  EXPECT_TRUE(pass.box && pass.ref_box);
}

TEST(BarcodeCheck, TellsAnotherNumber) {
  const auto findings = read(page("9781234567903"), page(kOurs));
  ASSERT_EQ(findings.size(), 1U);
  const Finding& finding = findings.front();
  EXPECT_EQ(finding.title, "The barcode reads another number");
  EXPECT_EQ(finding.kind, "barcode");
  EXPECT_EQ(finding.severity, "high");
  EXPECT_EQ(finding.detail, "It reads 9781234567903 where our file has 9781234567897.");
  EXPECT_EQ(finding.before, kOurs);
  EXPECT_EQ(finding.after, "9781234567903");
}

TEST(BarcodeCheck, TellsAWrongCheckDigit) {
  EXPECT_EQ(
      read(page("9781234567893"), page(kOurs)).front().detail,
      "It reads 9781234567893 where our file has 9781234567897. Its check digit should be 7.");
  const auto both = read(page("9781234567893"), page("9781234567893"));
  ASSERT_EQ(both.size(), 1U);
  EXPECT_EQ(both.front().kind, "barcode");
  EXPECT_EQ(both.front().state, "open");
}

TEST(BarcodeCheck, TellsWhatIsNoNumber) {
  EXPECT_EQ(read(page("salt & bread"), page("salt")).front().title, "The barcode reads otherwise");
  EXPECT_EQ(read(page("salt"), page("salt")).front().detail, "salt, as in our file.");
}

TEST(BarcodeCheck, MatchesByPlaceAndThenByWhatIsRead) {
  const QRectF other(100, 100, 150, 80);
  PaintedPage then = page(kOurs).barcode("4006381333931", other);
  EXPECT_EQ(read(page("4006381333931", other).barcode(kOurs, kPlace), then).size(), 2U);
  for (const Finding& each : read(page("4006381333931", other).barcode(kOurs, kPlace), then)) {
    EXPECT_EQ(each.kind, "pass");
  }
  const auto swapped = read(page("4006381333931").barcode(kOurs, other), then);
  ASSERT_EQ(swapped.size(), 2U);
  EXPECT_EQ(swapped.front().title, "The barcode reads another number");
  const auto moved = read(page(kOurs, {300, 500, 150, 80}), page(kOurs));
  ASSERT_EQ(moved.size(), 1U);
  EXPECT_EQ(moved.front().kind, "pass");
}

TEST(BarcodeCheck, TellsMissingFromUnreadable) {
  const auto missing = read(PaintedPage(), page(kOurs));
  ASSERT_EQ(missing.size(), 1U);
  EXPECT_EQ(missing.front().title, "The barcode is missing");
  EXPECT_EQ(missing.front().severity, "high");
  EXPECT_TRUE(missing.front().box);
  PaintedPage smeared = page("");
  const auto unread = read(smeared, page(kOurs));
  ASSERT_EQ(unread.size(), 1U);
  EXPECT_EQ(unread.front().title, "The barcode could not be read");
  EXPECT_EQ(unread.front().severity, "medium");
  EXPECT_EQ(unread.front().before, kOurs);
}

TEST(BarcodeCheck, TellsOneMore) {
  const auto more = read(page(kOurs), PaintedPage());
  ASSERT_EQ(more.size(), 1U);
  EXPECT_EQ(more.front().title, "One barcode more");
  EXPECT_EQ(more.front().after, kOurs);
  EXPECT_EQ(read(page(kOurs), page("")).front().title, "The barcode could not be compared");
  EXPECT_TRUE(read(PaintedPage(), PaintedPage()).empty());
}

}  // namespace
}  // namespace vellix::demo
