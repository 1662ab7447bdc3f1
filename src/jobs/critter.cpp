#include "jobs/critter.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

static_assert(std::ranges::all_of(kCritter, [](std::string_view row) {
  return row.size() == kCritterColumns;
}));

constexpr double kBob = -2;

std::vector<CritterCell> filledCells() {
  std::vector<CritterCell> cells;
  for (int row = 0; row < kCritterRows; ++row) {
    for (int column = 0; column < kCritterColumns; ++column) {
      if (kCritter[row][column] == '#') cells.push_back({.column = column, .row = row});
    }
  }
  return cells;
}

}  // namespace

const std::vector<CritterCell>& critterCells() {
  static const std::vector<CritterCell> kCells = filledCells();
  return kCells;
}

CritterGrid critterGrid(double width, double height) {
  const bool roomy = std::isfinite(width) && std::isfinite(height) && width > 0 && height > 0;
  if (!roomy) return {};
  const double cell = std::min(height / kCritterRows, width / kCritterColumns);
  return {.cell = cell,
          .x = (width - cell * kCritterColumns) / 2,
          .y = (height - cell * kCritterRows) / 2};
}

double critterWidth(double size) { return size * kCritterColumns * 0.125; }

double critterShift(bool busy, bool up) { return busy && up ? kBob : 0; }

}  // namespace vellix
