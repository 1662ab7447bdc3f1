// The cut-outs of the loupe: which part of the page, and how it lies in its place.
#include "compare/crop.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vellix {
namespace {

void expectNear(const Box& is, const Box& wanted) {
  EXPECT_NEAR(is.x, wanted.x, 1e-9);
  EXPECT_NEAR(is.y, wanted.y, 1e-9);
  EXPECT_NEAR(is.width, wanted.width, 1e-9);
  EXPECT_NEAR(is.height, wanted.height, 1e-9);
}

struct Crop {
  const char* name;
  std::optional<Box> box;
  double aspect;
  Box part;
};
BOOST_DESCRIBE_STRUCT(Crop, (), (name, box, aspect, part))
class Crops : public testing::TestWithParam<Crop> {};

TEST_P(Crops, ShowThePartAroundTheBox) {
  expectNear(cropAround(GetParam().box, GetParam().aspect), GetParam().part);
}

INSTANTIATE_TEST_SUITE_P(
    All, Crops,
    testing::Values(
        Crop{"NoBox", {}, 0.77, {0, 0, 1, 1}},
        Crop{"AsWideAsThePage",
             {{0, 0.4, 1, 0.1}},
             0.77,
             {0, 0.45 - 0.77 * 1.9 / 2.6 / 2, 1, 0.77 * 1.9 / 2.6}},
        Crop{"TinyInTheCorner", {{0, 0, 0.01, 0.01}}, 0.77, {0, 0, 0.34, 0.77 * 0.34 / 2.6}},
        Crop{"TinyInTheLastCorner",
             {{0.99, 0.99, 0.01, 0.01}},
             0.77,
             {0.66, 1 - 0.77 * 0.34 / 2.6, 0.34, 0.77 * 0.34 / 2.6}},
        Crop{"ATenth", {{0.4, 0.4, 0.1, 0.1}}, 0.77, {0.28, 0.33, 0.34, 0.24}},
        Crop{"Wide", {{0.3, 0.4, 0.4, 0.05}}, 1, {0.12, 0.425 - 0.76 / 2.6 / 2, 0.76, 0.76 / 2.6}},
        Crop{"Tall", {{0.4, 0.2, 0.1, 0.6}}, 1, {0.28, 0, 0.34, 1}},
        Crop{"FlatPage", {{0.4, 0.4, 0.1, 0.1}}, 20, {0.28, 0, 0.34, 1}},
        Crop{"NarrowPage", {{0.4, 0.4, 0.1, 0.1}}, 0.05, {0.28, 0.33, 0.34, 0.24}},
        Crop{"OutsideThePage", {{7, -3, 0.1, 0.1}}, 0.77, {0.66, 0, 0.34, 0.24}},
        Crop{"NoShape",
             {{0.4, 0.4, 0.1, 0.1}},
             std::numeric_limits<double>::quiet_NaN(),
             {0.28, 0.33, 0.34, 0.24}}),
    [](const auto& each) { return each.param.name; });

TEST(CropLayouts, FillTheWidthWhereTheHeightAllows) {
  const auto layout = cropLayout({0.2, 0.4, 0.5, 0.1}, {}, 0.5, {300, 218});
  expectNear(layout.page, {-120, -480, 600, 1'200});
  expectNear(layout.frame, {0, 40, 300, 120});
}

TEST(CropLayouts, FillTheHeightAboveTheCaptionOtherwise) {
  const auto layout = cropLayout({0.2, 0.4, 0.5, 0.25}, {}, 0.5, {300, 118});
  expectNear(layout.page, {-0.2 * 200, -0.4 * 400, 200, 400});
  expectNear(layout.frame, {100, 0, 100, 100});
}

struct Centred {
  const char* name;
  Box part;
  double aspect;
  Extent place;
};
BOOST_DESCRIBE_STRUCT(Centred, (), (name, part, aspect, place))
class CentredCrops : public testing::TestWithParam<Centred> {};

// The frame and the caption under it, eighteen high.
TEST_P(CentredCrops, StandInTheMiddleOfTheirPlace) {
  const Extent place = GetParam().place;
  const Box frame = cropLayout(GetParam().part, {}, GetParam().aspect, place).frame;
  EXPECT_NEAR(frame.x, place.width - frame.x - frame.width, 1e-9);
  EXPECT_NEAR(frame.y, place.height - 18 - frame.y - frame.height, 1e-9);
  EXPECT_GE(frame.x, -1e-9);
  EXPECT_GE(frame.y, -1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    All, CentredCrops,
    testing::Values(Centred{"Flat", {0.1, 0.4, 0.6, 0.05}, 1, {230, 120}},
                    Centred{"Tall", {0.1, 0.1, 0.34, 0.8}, 0.7, {230, 120}},
                    Centred{"WholePage", {0, 0, 1, 1}, 0.77, {700, 220}},
                    Centred{
                        "AsFlatAsItGets", {0.2, 0.4, 0.34, 0.77 * 0.34 / 2.6}, 0.77, {104, 120}}),
    [](const auto& each) { return each.param.name; });

TEST(CropLayouts, MarkTheBoxesThreeAround) {
  const auto layout =
      cropLayout({0.2, 0.4, 0.5, 0.1}, {{0.3, 0.42, 0.1, 0.05}, {0, 0, 1, 1}}, 0.5, {300, 218});
  ASSERT_EQ(layout.marks.size(), 2U);
  expectNear(layout.marks[0], {600 * 0.1 - 3, 1'200 * 0.02 - 3, 66, 66});
  expectNear(layout.marks[1], {-123, -483, 606, 1'206});
}

TEST(CropLayouts, HoldPagesOfImpossibleShapes) {
  for (const double aspect : {1e-12, 1e12, -1.0, std::numeric_limits<double>::infinity()}) {
    const auto layout =
        cropLayout(cropAround(Box{0.4, 0.4, 0.1, 0.1}, aspect), {}, aspect, {300, 200});
    EXPECT_LE(layout.page.width, 1e6) << aspect;
    EXPECT_LE(layout.page.height, 1e6) << aspect;
  }
}

TEST(CropLayouts, HoldInNoRoom) {
  const auto layout = cropLayout({0, 0, 1, 1}, {}, 0, {0, 0});
  EXPECT_GE(layout.page.width, 1);
  EXPECT_GE(layout.page.height, 1);
}

struct Strip {
  double width;
  std::size_t crops;
  Extent place;
};
BOOST_DESCRIBE_STRUCT(Strip, (), (width, crops, place))
class Strips : public testing::TestWithParam<Strip> {};

TEST_P(Strips, ShareTheWidthTwelveApart) {
  EXPECT_EQ(cropPlace(GetParam().width, GetParam().crops), GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(All, Strips,
                         testing::Values(Strip{900, 1, {900, 220}}, Strip{900, 2, {444, 205}},
                                         Strip{384, 1, {384, 180}}, Strip{324, 3, {100, 120}},
                                         Strip{480, 1, {480, 220}}, Strip{240, 1, {240, 120}},
                                         Strip{480, 0, {480, 220}}));

}  // namespace
}  // namespace vellix
