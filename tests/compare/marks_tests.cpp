// The geometry of marks and of drawing.
#include "compare/marks.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vellix {
namespace {

using Numbers = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr Extent kPicture{400, 600};

TEST(Boxes, AreFourFiniteNumbers) {
  EXPECT_EQ(boxOf(Numbers{0.1, 0.2, 0.3, 0.4}), (Box{0.1, 0.2, 0.3, 0.4}));
  for (const auto& numbers : {Numbers{}, Numbers{0.1}, Numbers{0.1, 0.2, 0.3},
                              Numbers{0.1, 0.2, 0.3, 0.4, 0.5}, Numbers{kNaN, 0, 0.1, 0.1},
                              Numbers{0, kInfinity, 0.1, 0.1}, Numbers{0, 0, -kInfinity, 0.1}}) {
    EXPECT_FALSE(boxOf(numbers));
  }
  EXPECT_FALSE(boxOf(std::nullopt));
}

TEST(Boxes, FarOutsideStayWithinWhatCanBeComputed) {
  EXPECT_EQ(boxOf(Numbers{-1e300, 1e300, 1e300, 2}), (Box{-1'000, 1'000, 1'000, 2}));
}

struct Mark {
  const char* name;
  Box box;
  Extent picture;
  Box drawn;
};
BOOST_DESCRIBE_STRUCT(Mark, (), (name, box, picture, drawn))
class BoxMarks : public testing::TestWithParam<Mark> {};

TEST_P(BoxMarks, StandThreeAroundTheirRectangle) {
  EXPECT_EQ(boxMark(GetParam().box, GetParam().picture), GetParam().drawn);
}

INSTANTIATE_TEST_SUITE_P(
    All, BoxMarks,
    testing::Values(Mark{"Plain", {0.25, 0.5, 0.5, 0.25}, kPicture, {97, 297, 206, 156}},
                    Mark{"Zoomed", {0.25, 0.5, 0.5, 0.25}, {1'600, 2'400}, {397, 1'197, 806, 606}},
                    Mark{"WholePage", {0, 0, 1, 1}, kPicture, {-3, -3, 406, 606}},
                    Mark{"NoSize", {0.5, 0.5, 0, 0}, kPicture, {197, 297, 8, 8}},
                    Mark{"Flat", {0.5, 0.5, 0.5, 0}, kPicture, {197, 297, 206, 8}},
                    Mark{"BelowNothing", {0.5, 0.5, -0.5, 0.25}, kPicture, {197, 297, 8, 156}},
                    Mark{"BeyondThePage", {0.75, 0, 0.5, 0.25}, kPicture, {297, -3, 206, 156}}),
    [](const auto& each) { return each.param.name; });

class AreaMarks : public testing::TestWithParam<Mark> {};

TEST_P(AreaMarks, GrowAboutTheirCentre) {
  EXPECT_EQ(areaMark(GetParam().box, GetParam().picture), GetParam().drawn);
}

INSTANTIATE_TEST_SUITE_P(
    All, AreaMarks,
    testing::Values(
        Mark{"Plain", {0.25, 0.5, 0.5, 0.25}, kPicture, {100, 300, 200, 150}},
        Mark{"Small", {0.5, 0.5, 0.0078125, 0.0078125}, kPicture, {197.5625, 298.34375, 8, 8}},
        Mark{"Narrow", {0.5, 0.5, 0.0078125, 0.5}, kPicture, {197.5625, 300, 8, 300}}),
    [](const auto& each) { return each.param.name; });

TEST(Marks, EndWhereNobodyCanSeeThem) {
  EXPECT_EQ(inSight({10, 20, 30, 40}, kPicture), (Box{10, 20, 30, 40}));
  EXPECT_EQ(inSight({-3, -3, 406, 606}, kPicture), (Box{-3, -3, 406, 606}));
  EXPECT_EQ(inSight({-4e5, -4e5, 8e5, 8e5}, kPicture), (Box{-24, -24, 448, 648}));
  EXPECT_EQ(inSight({200, 300, 4e5, 8}, kPicture), (Box{200, 300, 224, 8}));
  EXPECT_EQ(inSight({4e5, 10, 50, 50}, kPicture), (Box{424, 10, 1, 50})) << "all of it is outside";
}

Finding finding() {
  Finding made;
  made.box = Numbers{0.1, 0.1, 0.1, 0.1};
  made.ref_box = Numbers{0.2, 0.2, 0.1, 0.1};
  made.boxes = std::vector<Numbers>{{0.3, 0.3, 0.1, 0.1}, {0.4, 0.4, 0.1}, {0.5, 0.5, 0.1, 0.1}};
  return made;
}

std::vector<double> lefts(const std::vector<Box>& boxes) {
  std::vector<double> all;
  all.reserve(boxes.size());
  for (const auto& box : boxes) all.push_back(box.x);
  return all;
}

TEST(FindingBoxes, OnTheSuppliersPaneAreAllThatAreWhole) {
  EXPECT_EQ(lefts(boxesOn(std::nullopt, finding())), (Numbers{0.3, 0.5}));
}

TEST(FindingBoxes, OnAReferenceAreTheReferencesOwn) {
  EXPECT_EQ(lefts(boxesOn("submitted", finding())), Numbers{0.2});
  Finding none = finding();
  none.ref_box.reset();
  EXPECT_EQ(lefts(boxesOn("submitted", none)), (Numbers{0.3, 0.5}));
  none.ref_box = Numbers{0.2, 0.2, 0.1};
  EXPECT_TRUE(boxesOn("submitted", none).empty()) << "a rectangle that is none stands all the same";
}

TEST(FindingBoxes, FallBackToTheOne) {
  Finding one = finding();
  one.boxes = std::vector<Numbers>{};
  EXPECT_EQ(lefts(boxesOf(one)), Numbers{0.1});
  one.boxes.reset();
  EXPECT_EQ(lefts(boxesOf(one)), Numbers{0.1});
  one.box = Numbers{0.1, 0.1, 0.1};
  EXPECT_TRUE(boxesOf(one).empty());
  one.box.reset();
  EXPECT_TRUE(boxesOf(one).empty());
}

struct Drag {
  const char* name;
  Spot from;
  Spot to;
  Box note;
};
BOOST_DESCRIBE_STRUCT(Drag, (), (name, note))
class Drags : public testing::TestWithParam<Drag> {};

TEST_P(Drags, MakePointsAndAreas) {
  const DraftNote note = drawn(GetParam().from, GetParam().to, kPicture);
  EXPECT_EQ((Box{note.x, note.y, note.w, note.h}), GetParam().note);
}

INSTANTIATE_TEST_SUITE_P(
    All, Drags,
    testing::Values(
        Drag{"Click", {100, 300}, {100, 300}, {0.25, 0.5, 0, 0}},
        Drag{"ShakyClick", {100, 300}, {105.9, 294.1}, {0.25, 0.5, 0, 0}},
        Drag{"SixAcross", {100, 300}, {106, 300}, {0.25, 0.5, 0.015, 0}},
        Drag{"SixDown", {100, 300}, {100, 306}, {0.25, 0.5, 0, 0.01}},
        Drag{"FiveAcrossAndFarDown", {100, 300}, {105, 500}, {0.25, 0.5, 0.0125, 200.0 / 600}},
        Drag{"Down", {100, 150}, {300, 300}, {0.25, 0.25, 0.5, 0.25}},
        Drag{"UpAndLeft", {300, 300}, {100, 150}, {0.25, 0.25, 0.5, 0.25}},
        Drag{"ClickAtTheCorner", {400, 600}, {400, 600}, {1, 1, 0, 0}},
        Drag{"ClickAtTheOrigin", {0, 0}, {0, 0}, {0, 0, 0, 0}},
        Drag{"ClickOutside", {-2, 601}, {-2, 601}, {0, 1, 0, 0}},
        Drag{"OutAtTheRight", {300, 300}, {700, 450}, {0.75, 0.5, 1, 0.25}},
        Drag{"OutAtTheLeft", {200, 300}, {-100, 450}, {0, 0.5, 0.75, 0.25}},
        Drag{"FarOut", {200, 300}, {5'000, 5'000}, {0.5, 0.5, 1, 1}}),
    [](const auto& each) { return each.param.name; });

TEST(Drags, OnAPictureWithoutSizeAreAtItsCorner) {
  const DraftNote note = drawn({5, 5}, {50, 50}, {0, 0});
  EXPECT_EQ((Box{note.x, note.y, note.w, note.h}), Box{});
}

}  // namespace
}  // namespace vellix
