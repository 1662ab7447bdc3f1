#include "check/compared.hpp"

#include <gtest/gtest.h>

namespace vellix::demo {
namespace {

using Boxes = std::vector<std::vector<double>>;

TEST(Compared, TellsEveryBoxOfTheProofWhereThereAreSeveral) {
  Finding one;
  putBoxes(one, {{0.1, 0.2, 0.3, 0.4}}, {{0.5, 0.6, 0.1, 0.2}, {0.5, 0.9, 0.1, 0.05}});
  EXPECT_EQ(one.box, (std::vector{0.1, 0.2, 0.3, 0.4}));
  EXPECT_EQ(one.ref_box, (std::vector{0.5, 0.6, 0.1, 0.2}));
  EXPECT_FALSE(one.boxes);

  Finding two;
  putBoxes(two, {{0.1, 0.2, 0.3, 0.4}, {0, 0, 1, 1}}, {});
  EXPECT_EQ(two.box, (std::vector{0.1, 0.2, 0.3, 0.4}));
  EXPECT_EQ(two.boxes, (Boxes{{0.1, 0.2, 0.3, 0.4}, {0, 0, 1, 1}}));
  EXPECT_FALSE(two.ref_box);
}

TEST(Compared, BeginsAFindingThatWaitsForADecision) {
  const std::vector<PdfPage> none;
  const Partners alone;
  const Finding finding = findingOn(7, {none, none, alone, "fbc", "the FBC"}, "size", "medium");
  EXPECT_EQ(finding.page, 7);
  EXPECT_EQ(finding.against, "fbc");
  EXPECT_EQ(finding.kind, "size");
  EXPECT_EQ(finding.severity, "medium");
  EXPECT_EQ(finding.state, "open");
}

TEST(Compared, TellsWhereAFindingStands) {
  Finding finding;
  EXPECT_TRUE(placesOf(finding).empty());
  finding.box = {0.1, 0.2, 0.3, 0.4};
  EXPECT_EQ(placesOf(finding), (std::vector<QRectF>{{0.1, 0.2, 0.3, 0.4}}));
  finding.boxes = {{0.1, 0.2, 0.3, 0.4}, {0.5, 0.5, 0.1, 0.1}};
  EXPECT_EQ(placesOf(finding), (std::vector<QRectF>{{0.1, 0.2, 0.3, 0.4}, {0.5, 0.5, 0.1, 0.1}}));
}

TEST(Compared, HoldsWhatPassedAndWhatWasExpectedForNoDifference) {
  Finding finding;
  for (const char* kind : {"words", "extra_page"}) {
    finding.kind = kind;
    finding.state = "ok";
    EXPECT_TRUE(isReal(finding)) << kind;
  }
  for (const char* kind : {"pass", "expected"}) {
    finding.kind = kind;
    EXPECT_FALSE(isReal(finding)) << kind;
  }
}

TEST(Compared, CountsInWords) {
  EXPECT_EQ(counted(1, "word is gone", "words are gone"), "One word is gone");
  EXPECT_EQ(counted(3, "word is gone", "words are gone"), "3 words are gone");
}

}  // namespace
}  // namespace vellix::demo
