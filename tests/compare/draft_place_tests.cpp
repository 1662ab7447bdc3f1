// Where the card of a note being written stands.
#include "compare/draft_place.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Case {
  const char* what;
  Box mark;
  Extent picture;
  Spot centre;
};
BOOST_DESCRIBE_STRUCT(Case, (), (what, mark, picture))

class DraftPlace : public testing::TestWithParam<Case> {};

TEST_P(DraftPlace, IsByTheMark) {
  const auto& [what, mark, picture, centre] = GetParam();
  const Spot at = draftCardCentre(mark, picture);
  EXPECT_DOUBLE_EQ(at.x, centre.x);
  EXPECT_DOUBLE_EQ(at.y, centre.y);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DraftPlace,
    testing::Values(
        Case{"below an area", {0.5, 0.25, 0.25, 0.25}, {800, 1000}, {500, 607}},
        Case{"below a point", {0.5, 0.25, 0, 0}, {800, 1000}, {400, 357}},
        // 6 below the card is just enough: 792 + 12 + 190 + 6 = 1000.
        Case{"below, just", {0.5, 0.792, 0, 0}, {800, 1000}, {400, 899}},
        Case{"above, since below it reaches the edge", {0.5, 0.793, 0, 0}, {800, 1000}, {400, 686}},
        Case{"above the top of an area", {0.5, 0.5, 0.25, 0.4}, {800, 1000}, {500, 393}},
        // 6 + 190 + 12 = 208 above the mark is just enough.
        Case{"above, just", {0.5, 0.208, 0, 0.7}, {800, 1000}, {400, 101}},
        Case{"over the mark, in the middle", {0.5, 0.207, 0, 0.7}, {800, 1000}, {400, 500}},
        Case{"over the whole page", {0, 0, 1, 1}, {800, 1000}, {400, 500}},
        Case{"over the mark of a low page", {0.5, 0.5, 0, 0}, {800, 220}, {400, 110}},
        Case{"off the top of a page of 202", {0.5, 0.5, 0, 0}, {800, 202}, {400, 101}},
        Case{"at the foot of a lower page", {0.5, 0.5, 0, 0}, {800, 150}, {400, 49}},
        Case{"held at the left", {0.1, 0.25, 0, 0}, {800, 1000}, {151, 357}},
        Case{"held at the right", {0.9, 0.25, 0, 0}, {800, 1000}, {649, 357}},
        Case{"by an area that leaves the page", {0.9, 0.25, 0.5, 0}, {800, 1000}, {649, 357}},
        Case{"in the middle of a narrow page", {0.9, 0.25, 0, 0}, {301, 1000}, {150.5, 357}},
        Case{"in the middle of one of 302", {0.9, 0.25, 0, 0}, {302, 1000}, {151, 357}},
        Case{"held on one of 303", {0.9, 0.25, 0, 0}, {303, 1000}, {152, 357}}));

TEST(DraftPlaceOnTheStage, IsWhereThePageLies) {
  const Spot at = draftCardCorner({0.5, 0.25, 0, 0}, {20, 50, 800, 1000}, {1'640, 1'100});
  EXPECT_EQ(at, (Spot{20 + 400 - 145, 50 + 357 - 95}));
}

TEST(DraftPlaceOnTheStage, IsMovedInWhereTheStageWouldCutItOff) {
  const Extent stage{400, 500};
  const Box mark{0.5, 0.25, 0, 0};
  EXPECT_EQ(draftCardCorner(mark, {18, 50, 110, 400}, stage).x, 6);
  EXPECT_EQ(draftCardCorner(mark, {272, 50, 110, 400}, stage).x, 104);
  EXPECT_EQ(draftCardCorner(mark, {18, 50, 110, 60}, stage).y, 6) << "off a flat page's top";
  EXPECT_EQ(draftCardCorner(mark, {18, 450, 110, 300}, stage).y, 304);
  EXPECT_EQ(draftCardCorner(mark, {18, 50, 110, 400}, {200, 100}), (Spot{6, 6}));
}

}  // namespace
}  // namespace vellix
