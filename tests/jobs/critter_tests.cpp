#include "jobs/critter.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "records/described.hpp"

namespace vellix {
namespace {

TEST(Critter, StandsOnAGridOfFourteenByEight) {
  EXPECT_EQ(kCritterColumns, 14);
  EXPECT_EQ(kCritterRows, 8);
  EXPECT_EQ(kCritter.size(), 8U);
  for (const auto& row : kCritter) {
    EXPECT_EQ(row.size(), 14U) << row;
    EXPECT_EQ(row.find_first_not_of(".#"), std::string_view::npos) << row;
  }
}

TEST(Critter, TouchesEverySideOfItsGrid) {
  const auto& cells = critterCells();
  const auto stands = [&](int CritterCell::* axis, int at) {
    return std::ranges::find(cells, at, axis) != cells.end();
  };
  EXPECT_TRUE(stands(&CritterCell::row, 0));
  EXPECT_TRUE(stands(&CritterCell::row, 7));
  EXPECT_TRUE(stands(&CritterCell::column, 0));
  EXPECT_TRUE(stands(&CritterCell::column, 13));
}

TEST(Critter, IsOfOnePiece) {
  const auto& cells = critterCells();
  ASSERT_FALSE(cells.empty());
  std::vector<CritterCell> reached{cells.front()};
  for (std::size_t i = 0; i < reached.size(); ++i) {
    for (const CritterCell& cell : cells) {
      const int far =
          std::abs(cell.column - reached[i].column) + std::abs(cell.row - reached[i].row);
      if (far == 1 && std::ranges::find(reached, cell) == reached.end()) reached.push_back(cell);
    }
  }
  EXPECT_EQ(reached.size(), cells.size());
}

TEST(Critter, IsDrawnCellByCell) {
  std::array<std::string, kCritterRows> drawn;
  drawn.fill(std::string(kCritterColumns, '.'));
  for (const CritterCell& cell : critterCells()) {
    auto& place = drawn.at(cell.row).at(cell.column);
    EXPECT_EQ(place, '.') << "drawn twice";
    place = '#';
  }
  EXPECT_TRUE(std::ranges::equal(drawn, kCritter));
}

TEST(Critter, IsBuiltOnce) { EXPECT_EQ(&critterCells(), &critterCells()); }

struct GridCase {
  const char* name;
  double width;
  double height;
  CritterGrid grid;
};
BOOST_DESCRIBE_STRUCT(GridCase, (), (name, width, height))

class CritterGrids : public testing::TestWithParam<GridCase> {};

TEST_P(CritterGrids, FitAndLieInTheMiddle) {
  EXPECT_EQ(critterGrid(GetParam().width, GetParam().height), GetParam().grid);
}

constexpr double kInfinite = std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(
    All, CritterGrids,
    testing::Values(GridCase{"Exact", 28, 16, {2, 0, 0}}, GridCase{"Wide", 48, 16, {2, 10, 0}},
                    GridCase{"High", 28, 36, {2, 0, 10}}, GridCase{"Square", 14, 14, {1, 0, 3}},
                    GridCase{"Small", 7, 4, {0.5, 0, 0}}, GridCase{"NoWidth", 0, 16, {}},
                    GridCase{"NoHeight", 28, 0, {}}, GridCase{"Negative", -28, -16, {}},
                    GridCase{"NoNumber", std::nan(""), 16, {}},
                    GridCase{"Endless", kInfinite, 16, {}},
                    GridCase{"EndlessHeight", 28, kInfinite, {}}),
    [](const auto& each) { return each.param.name; });

TEST(Critter, FillsAViewOfItsOwnSize) {
  for (const double size : {8.0, 15.0, 22.0}) {
    EXPECT_DOUBLE_EQ(critterWidth(size), size * 1.75);
    const CritterGrid grid = critterGrid(critterWidth(size), size);
    EXPECT_DOUBLE_EQ(grid.cell, size / 8);
    EXPECT_DOUBLE_EQ(grid.x, 0);
    EXPECT_DOUBLE_EQ(grid.y, 0);
  }
}

TEST(Critter, BobsWhileBusyAlone) {
  EXPECT_EQ(critterShift(true, true), -2);
  EXPECT_EQ(critterShift(true, false), 0);
  EXPECT_EQ(critterShift(false, true), 0);
  EXPECT_EQ(critterShift(false, false), 0);
}

}  // namespace
}  // namespace vellix
