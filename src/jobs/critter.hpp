// The small creature that stands for the worker, on a grid of cells.
#pragma once

#include <array>
#include <string_view>
#include <vector>

namespace vellix {

inline constexpr int kCritterColumns = 14;
inline constexpr int kCritterRows = 8;

// Where something stands is drawn, from the top down.
inline constexpr std::array<std::string_view, kCritterRows> kCritter{
    ".....######...",  //
    "...##.##.###..",  //
    "###.########..",  //
    "#.##.##.##.##.",  //
    "####.#########",  //
    "..###########.",  //
    "...##....##...",  //
    "...##....##...",
};

struct CritterCell {
  int column = 0;
  int row = 0;
  bool operator==(const CritterCell&) const = default;
};

// All that are filled, row by row. Computed once; any thread.
const std::vector<CritterCell>& critterCells();

// Where the grid lies in what it is drawn into, all in its unit. Cells are square; the grid is as
// large as it fits, and in the middle. No cell has a size where there is no room.
struct CritterGrid {
  double cell = 0;
  double x = 0;
  double y = 0;
  bool operator==(const CritterGrid&) const = default;
};
CritterGrid critterGrid(double width, double height);

// As wide as it has to be for its height.
double critterWidth(double size);
// How far it is moved down, in logical pixels: upwards is below 0. It bobs while the worker is
// busy.
double critterShift(bool busy, bool up);

}  // namespace vellix
