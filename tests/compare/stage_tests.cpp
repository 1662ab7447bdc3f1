// Where the panes stand on the stage, how they fit, and how it scrolls.
#include "compare/stage.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vellix {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr Extent kStage{1'000, 700};

struct Room {
  std::size_t panes;
  Extent room;
};
BOOST_DESCRIBE_STRUCT(Room, (), (panes, room))

class PaneRooms : public testing::TestWithParam<Room> {};

TEST_P(PaneRooms, ShareTheStage) {
  EXPECT_EQ(paneRoom({1'000, 700}, GetParam().panes), GetParam().room);
}

INSTANTIATE_TEST_SUITE_P(All, PaneRooms,
                         testing::Values(Room{0, {964, 650}}, Room{1, {964, 650}},
                                         Room{2, {474, 650}}, Room{3, {932.0 / 3, 650}}),
                         [](const auto& each) { return std::to_string(each.param.panes); });

struct Fit {
  const char* name;
  Extent room;
  double aspect;
  double zoom;
  Extent image;
};
BOOST_DESCRIBE_STRUCT(Fit, (), (name, room, aspect, zoom, image))

class FittedImages : public testing::TestWithParam<Fit> {};

TEST_P(FittedImages, FillTheRoomInTheirShape) {
  const auto& each = GetParam();
  const Extent image = fittedImage(each.room, each.aspect, each.zoom);
  EXPECT_DOUBLE_EQ(image.width, each.image.width);
  EXPECT_DOUBLE_EQ(image.height, each.image.height);
}

INSTANTIATE_TEST_SUITE_P(All, FittedImages,
                         testing::Values(Fit{"ByHeight", {400, 600}, 0.5, 1, {300, 600}},
                                         Fit{"ByWidth", {400, 600}, 2, 1, {400, 200}},
                                         Fit{"ExactlyBoth", {400, 600}, 400.0 / 600, 1, {400, 600}},
                                         Fit{"Zoomed", {400, 600}, 2, 2.5, {1'000, 500}},
                                         Fit{"AtLeastAFifth", {400, 600}, 0.1, 1, {120, 600}},
                                         Fit{"NoWidth", {400, 600}, 0, 1, {120, 600}},
                                         Fit{"BelowZero", {400, 600}, -3, 1, {120, 600}},
                                         Fit{"NotANumber", {400, 600}, kNaN, 1, {120, 600}},
                                         Fit{"Huge", {400, 600}, 1e300, 1, {400, 1}},
                                         Fit{"Endless", {400, 600}, kInfinity, 4, {1'600, 4}},
                                         Fit{"NoRoom", {0, 0}, 1, 1, {1, 1}},
                                         Fit{"LessThanNoRoom", {-12, -50}, 1, 2, {2, 2}}),
                         [](const auto& each) { return each.param.name; });

std::vector<StagePane> square(std::size_t count) {
  return std::vector<StagePane>(count, StagePane{.aspect = 1});
}

TEST(Stage, SetsPanesInARowBesideOneAnother) {
  const auto layout = stageLayout(kStage, square(3), 1, false);
  const double room = 932.0 / 3;
  ASSERT_EQ(layout.panes.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_DOUBLE_EQ(layout.panes[i].x, 18 + static_cast<double>(i) * (room + 16));
    EXPECT_DOUBLE_EQ(layout.panes[i].y, 14);
    EXPECT_DOUBLE_EQ(layout.panes[i].width, room);
    EXPECT_DOUBLE_EQ(layout.panes[i].page.width, room);
    EXPECT_DOUBLE_EQ(layout.panes[i].page.y, 14 + 22) << "6 below the caption";
  }
}

TEST(Stage, SetsAPageInTheMiddleOfItsColumnOnAWholePixel) {
  const auto layout = stageLayout(kStage, {{.aspect = 0.5}}, 1, false);
  EXPECT_EQ(layout.panes[0].page, (Box{18 + 320, 36, 325, 650}));
  EXPECT_EQ(layout.panes[0].width, 964);
}

TEST(Stage, SetsEveryPageOnAWholePixel) {
  for (const double width : {1'000.0, 1'001.0, 885.5}) {
    for (const auto& pane : stageLayout({width, 700}, square(3), 1, false).panes) {
      EXPECT_EQ(pane.page.x, std::round(pane.page.x));
    }
  }
}

TEST(Stage, WidensAColumnWithItsPage) {
  const auto layout = stageLayout(kStage, {{.aspect = 1}, {.aspect = 1}}, 4, false);
  EXPECT_EQ(layout.panes[0].width, 474 * 4);
  EXPECT_EQ(layout.panes[1].x, 18 + 474 * 4 + 16);
  EXPECT_EQ(layout.width, 2 * 474 * 4 + 16 + 36);
  EXPECT_EQ(layout.height, 28 + 22 + 474 * 4);
}

TEST(Stage, GivesWordsInPlaceOfAPictureTheRoomAtEveryZoom) {
  for (const double zoom : {1.0, 4.0}) {
    const auto layout = stageLayout(kStage, {{.aspect = 0.2, .pictured = false}}, zoom, false);
    EXPECT_EQ(layout.panes[0].page, (Box{18, 36, 964, 650}));
  }
}

TEST(Stage, GivesEachPaneThatTakesItsTurnTheWholeOfIt) {
  const auto layout = stageLayout(kStage, square(3), 1, true);
  for (const auto& pane : layout.panes) {
    EXPECT_EQ(pane.x, 18);
    EXPECT_EQ(pane.width, 964);
  }
}

TEST(Stage, ScrollsOnlyAboveTheGuard) {
  for (const double zoom : {1.0, 1.005, 1.01}) {
    const auto layout = stageLayout(kStage, square(1), zoom, false);
    EXPECT_FALSE(layout.scrolls) << zoom;
    EXPECT_EQ(layout.width, kStage.width);
    EXPECT_EQ(layout.height, kStage.height);
  }
  EXPECT_TRUE(stageLayout(kStage, square(1), 1.0101, false).scrolls);
}

TEST(Stage, WithoutPanesIsEmpty) {
  const auto layout = stageLayout(kStage, {}, 4, false);
  EXPECT_TRUE(layout.panes.empty());
  EXPECT_EQ(layout.width, kStage.width);
}

// Where a fraction of a pane's page lies on the stage.
TEST(Stage, TellsTheRoomThatAPageOfAnyShapeIsFittedInto) {
  for (const double zoom : {1.0, 2.5}) {
    const StageLayout layout = stageLayout({1'000, 700}, {{0.7}, {2}}, zoom, false);
    EXPECT_EQ(layout.room, (Extent{zoom * 474, zoom * 650}));
    for (const double aspect : {0.05, 0.7, 2.0}) {
      const Extent fitted = fittedImage(layout.room, aspect, 1);
      const Extent shown = fittedImage(paneRoom({1'000, 700}, 2), aspect, zoom);
      EXPECT_DOUBLE_EQ(fitted.width, shown.width);
      EXPECT_DOUBLE_EQ(fitted.height, shown.height);
    }
  }
}

Spot seen(const StageLayout& layout, Spot scroll, std::size_t pane, double fx, double fy) {
  const Box& page = layout.panes[pane].page;
  return {page.x + fx * page.width - scroll.x, page.y + fy * page.height - scroll.y};
}

struct Anchor {
  const char* name;
  std::size_t pane;
  double fx;
  double fy;
  double from;
  double to;
};
BOOST_DESCRIBE_STRUCT(Anchor, (), (name, pane, fx, fy, from, to))

class Anchors : public testing::TestWithParam<Anchor> {};

TEST_P(Anchors, StayWhereTheyAre) {
  const auto& each = GetParam();
  const auto before = stageLayout(kStage, square(2), each.from, false);
  const auto after = stageLayout(kStage, square(2), each.to, false);
  const Spot scroll{(before.width - kStage.width) / 2, (before.height - kStage.height) / 2};
  const Spot anchor = seen(before, scroll, each.pane, each.fx, each.fy);
  const Spot to = anchored(anchorAt(before, scroll, anchor), scroll, after, kStage);
  const Spot now = seen(after, to, each.pane, each.fx, each.fy);
  EXPECT_NEAR(now.x, anchor.x, 1e-9);
  EXPECT_NEAR(now.y, anchor.y, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(All, Anchors,
                         testing::Values(Anchor{"MiddleOfTheFirst", 0, 0.5, 0.5, 1, 2},
                                         Anchor{"MiddleOfTheSecond", 1, 0.5, 0.5, 1, 4},
                                         Anchor{"NearAnEdge", 1, 0.9, 0.8, 1.5, 3.7},
                                         Anchor{"OnTheWayBack", 0, 0.8, 0.5, 3, 2.5}),
                         [](const auto& each) { return each.param.name; });

TEST(Anchors, AreGivenUpAtTheEndsOfTheContent) {
  const auto before = stageLayout(kStage, square(2), 4, false);
  const auto after = stageLayout(kStage, square(2), 1.5, false);
  const Spot end{before.width - 1'000, before.height - 700};
  const auto anchor = anchorAt(before, end, {990, 690});
  const Spot to = anchored(anchor, end, after, kStage);
  EXPECT_LE(to.x, after.width - kStage.width);
  EXPECT_LE(to.y, after.height - kStage.height);
  EXPECT_EQ(anchored(anchor, end, stageLayout(kStage, square(2), 1, false), kStage), Spot{});
}

TEST(Anchors, ComeBackAfterTheEndHasHeldThemBack) {
  const auto fit = stageLayout(kStage, square(3), 1, false);
  const auto some = stageLayout(kStage, square(3), 1.25, false);
  const auto more = stageLayout(kStage, square(3), 4, false);
  const auto anchor = anchorAt(fit, {}, {500, 200});
  const Spot between = anchored(anchor, {}, some, kStage);
  EXPECT_EQ(between.y, 0) << "all of it is in sight";
  const Spot to = anchored(anchor, between, more, kStage);
  EXPECT_NEAR(more.panes[1].page.y + anchor->place.y * more.panes[1].page.height - to.y, 200, 1e-9);
}

TEST(Anchors, HoldNothingWhereThereIsNothing) {
  const auto two = stageLayout(kStage, square(2), 4, false);
  EXPECT_FALSE(anchorAt(StageLayout{}, {}, {10, 10}));
  EXPECT_EQ(anchored(std::nullopt, {200, 100}, two, kStage), (Spot{200, 100}));
  auto anchor = anchorAt(stageLayout(kStage, square(3), 4, false), {3'000, 0}, {500, 10});
  ASSERT_EQ(anchor->pane, 2U);
  EXPECT_EQ(anchored(anchor, {200, 100}, two, kStage), (Spot{200, 100})) << "the pane has gone";
}

// A mark on a pane's page, in the content's coordinates.
Box on(const StageLayout& layout, std::size_t pane, Box mark) {
  const Box& page = layout.panes[pane].page;
  return {page.x + mark.x, page.y + mark.y, mark.width, mark.height};
}

TEST(Reveal, LeavesAMarkInSightWhereItIs) {
  const auto layout = stageLayout(kStage, square(2), 2, false);
  EXPECT_EQ(revealed(layout, {0, 0}, {on(layout, 0, {100, 100, 40, 20})}, kStage), Spot{});
}

TEST(Reveal, StaysWhereOneOfManyIsInSight) {
  const auto layout = stageLayout(kStage, square(2), 4, false);
  const std::vector<Box> marks{on(layout, 0, {1'500, 1'500, 40, 20}),
                               on(layout, 1, {900, 900, 40, 20})};
  const Spot here{layout.panes[1].page.x + 600, 700};
  EXPECT_EQ(revealed(layout, here, marks, kStage), here);
}

TEST(Reveal, GoesToTheNearest) {
  const auto layout = stageLayout(kStage, square(2), 4, false);
  const std::vector<Box> marks{on(layout, 0, {100, 100, 40, 20}),
                               on(layout, 1, {100, 100, 40, 20})};
  const Spot to = revealed(layout, {layout.panes[1].page.x + 300, 0}, marks, kStage);
  EXPECT_DOUBLE_EQ(layout.panes[1].page.x + 120 - to.x, 500);
  EXPECT_EQ(to.y, 0) << "it was in sight in this direction";
}

TEST(Reveal, PutsAMarkOutOfSightInTheMiddle) {
  const auto layout = stageLayout(kStage, square(2), 4, false);
  const Spot to = revealed(layout, {0, 0}, {on(layout, 1, {800, 900, 40, 20})}, kStage);
  const Box& page = layout.panes[1].page;
  EXPECT_DOUBLE_EQ(page.x + 820 - to.x, 500);
  EXPECT_DOUBLE_EQ(page.y + 910 - to.y, 350);
}

TEST(Reveal, CountsWhatIsCoveredAsOutOfSight) {
  const auto layout = stageLayout(kStage, square(2), 2, false);
  const Box low = on(layout, 0, {100, 500, 40, 20});
  EXPECT_EQ(revealed(layout, {0, 0}, {low}, kStage), Spot{});
  const Spot to = revealed(layout, {0, 0}, {low}, {1'000, 450});
  EXPECT_DOUBLE_EQ(low.y + 10 - to.y, 225);
}

TEST(Reveal, StaysWithinTheContent) {
  const auto layout = stageLayout(kStage, square(2), 4, false);
  const Spot to = revealed(layout, {0, 0}, {on(layout, 1, {1'880, 1'880, 10, 10})}, kStage);
  EXPECT_EQ(to, (Spot{layout.width - 1'000, layout.height - 700}));
}

TEST(Reveal, StandsStillOverAMarkThatIsLargerThanTheStage) {
  const auto layout = stageLayout(kStage, square(1), 4, false);
  const Box all =
      on(layout, 0, {-3, -3, layout.panes[0].page.width + 6, layout.panes[0].page.height + 6});
  EXPECT_EQ(revealed(layout, {400, 300}, {all}, kStage), (Spot{400, 300}));
}

TEST(Reveal, DoesNothingWhereNothingScrolls) {
  const auto layout = stageLayout(kStage, square(2), 1, false);
  EXPECT_EQ(revealed(layout, {}, {{900, 900, 10, 10}}, kStage), Spot{});
  EXPECT_EQ(revealed(stageLayout(kStage, square(1), 4, false), {5, 5}, {}, kStage), (Spot{5, 5}));
}

}  // namespace
}  // namespace vellix
