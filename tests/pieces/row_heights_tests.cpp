// What is thought of the heights of rows, and what becomes of it.
#include "pieces/row_heights.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

constexpr double kGap = 10;

class RowHeightsOf : public testing::Test {
 protected:
  // Measures rows that are there to be seen, and has them settle.
  void know(std::initializer_list<std::pair<std::size_t, double>> heights) {
    for (const auto& [row, height] : heights) {
      rows.begin(row);
      rows.measure(row, height);
    }
    rows.layOut(0, kGap);
    rows.settle();
  }
  std::vector<double> all() const {
    std::vector<double> heights;
    heights.reserve(rows.count());
    for (std::size_t row = 0; row < rows.count(); ++row) heights.push_back(rows.height(row));
    return heights;
  }

  RowHeights rows;
};

TEST_F(RowHeightsOf, NoneAtAll) {
  EXPECT_EQ(rows.layOut(0, kGap), RowHeights::Misjudged{});
  EXPECT_EQ(rows.total(), 0);
  EXPECT_EQ(rows.within(0, 100), std::pair(std::size_t{0}, std::size_t{0}));
}

TEST_F(RowHeightsOf, RowsLikeThoseThatWereMeasured) {
  rows.insert(0, {0, 0, 0, 1, 1, 2});
  know({{0, 40}, {1, 60}, {3, 200}});
  EXPECT_EQ(all(), (std::vector<double>{40, 60, 50, 200, 200, 100})) << "of no kind: of all";
  EXPECT_EQ(rows.y(3), 40 + 60 + 50 + 3 * kGap);
  EXPECT_EQ(rows.total(), 650 + 5 * kGap);
}

TEST_F(RowHeightsOf, RowsBetweenTwoHeights) {
  rows.insert(0, {0, 0, 0});
  know({{0, 40}, {1, 40}, {2, 40}});
  EXPECT_EQ(rows.within(-100, 0), std::pair(std::size_t{0}, std::size_t{0}));
  EXPECT_EQ(rows.within(0, 50), std::pair(std::size_t{0}, std::size_t{1}));
  EXPECT_EQ(rows.within(40, 51), std::pair(std::size_t{1}, std::size_t{2}));
  EXPECT_EQ(rows.within(39, 500), std::pair(std::size_t{0}, std::size_t{3}));
}

TEST_F(RowHeightsOf, RowsThatComeGoAndMove) {
  rows.insert(0, {0, 0, 0});
  know({{0, 10}, {1, 20}, {2, 30}});
  rows.move(0, 1, 2);
  rows.layOut(0, kGap);
  EXPECT_EQ(all(), (std::vector<double>{20, 30, 10}));
  rows.move(1, 2, 0);
  rows.layOut(0, kGap);
  EXPECT_EQ(all(), (std::vector<double>{30, 10, 20}));
  rows.remove(1, 1);
  rows.insert(0, {0});
  EXPECT_EQ(rows.layOut(500, kGap).above, 0) << "what comes moves the others, as everywhere";
  EXPECT_EQ(all(), (std::vector<double>{25, 30, 20}));
}

TEST_F(RowHeightsOf, WhatWasMisjudgedAboveWhatIsSeen) {
  rows.insert(0, {0, 0, 0, 0});
  know({{3, 50}});
  rows.begin(1);
  rows.measure(1, 80);
  // The second is 30 higher, and those that were like the last one 15.
  EXPECT_EQ(rows.layOut(100, kGap), (RowHeights::Misjudged{.above = 15 + 30, .below = 15}));
  rows.measure(1, 90);
  EXPECT_EQ(rows.layOut(120, kGap).above, 5 + 10) << "until it has settled";
  rows.settle();
  rows.measure(1, 190);
  EXPECT_EQ(rows.layOut(120, kGap).above, 50)
      << "it has changed by itself; the first is only guessed";
  rows.begin(0);
  rows.measure(0, 500);
  EXPECT_EQ(rows.layOut(0, kGap).above, 0) << "nothing is above";
}

TEST_F(RowHeightsOf, WhatIsHeldUntilItIsAnotherRow) {
  rows.insert(0, {0, 1, 1});
  know({{0, 40}, {1, 100}, {2, 200}});
  rows.become(1, 0);
  rows.forget(1);
  EXPECT_EQ(rows.layOut(1'000, kGap).above, -60);
  EXPECT_EQ(all(), (std::vector<double>{40, 40, 200}));
  rows.settle();
  rows.doubtAll();
  rows.measure(2, 300);
  EXPECT_EQ(rows.layOut(1'000, kGap).above, 100) << "what is seen stays in another width as well";
  EXPECT_EQ(all(), (std::vector<double>{40, 40, 300}));
}

}  // namespace
}  // namespace vellix
