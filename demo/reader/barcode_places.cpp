#include "reader/barcode_places.hpp"

#include <algorithm>
#include <cstdlib>

namespace vellix::demo {
namespace {

// Pixels of a cell's sides.
constexpr int kCell = 8;
// How much neighbouring pixels differ in the mean, of 255.
constexpr int kLively = 18;
// The same in a square code; letters differ less.
constexpr int kSquareLively = 45;
// How much less they differ along bars than across.
constexpr int kAlong = 5;
constexpr int kLeastAcross = 6;  // in cells
constexpr int kLeastAlong = 2;
constexpr int kLeastSquare = 5;
constexpr std::size_t kMostPlaces = 32;

enum class Looks : unsigned char { plain, upright, lying, square };

Looks looksOf(const QImage& grey, int left, int top) {
  int across = 0;
  int down = 0;
  for (int y = top; y < top + kCell; ++y) {
    const uchar* row = grey.constScanLine(y);
    const uchar* next = grey.constScanLine(y + 1);
    for (int x = left; x < left + kCell; ++x) {
      across += std::abs(row[x + 1] - row[x]);
      down += std::abs(next[x] - row[x]);
    }
  }
  constexpr int least = kLively * kCell * kCell;
  if (across >= least && down * kAlong <= across) return Looks::upright;
  if (down >= least && across * kAlong <= down) return Looks::lying;
  return std::min(across, down) >= kSquareLively * kCell * kCell ? Looks::square : Looks::plain;
}

bool isLargeEnough(Looks looks, QSize cells) {
  if (looks == Looks::lying) cells.transpose();
  if (looks == Looks::square) {
    return cells.width() >= kLeastSquare && cells.height() >= kLeastSquare;
  }
  return cells.width() >= kLeastAcross && cells.height() >= kLeastAlong;
}

}  // namespace

std::vector<QRect> barcodePlaces(const QImage& grey) {
  // The last pixels have no neighbours.
  const int columns = (grey.width() - 1) / kCell;
  const int rows = (grey.height() - 1) / kCell;
  std::vector<QRect> places;
  if (columns <= 0 || rows <= 0) return places;
  std::vector<Looks> cells;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      cells.push_back(looksOf(grey, column * kCell, row * kCell));
    }
  }
  const auto cellAt = [&](QPoint at) -> Looks& {
    return cells[static_cast<std::size_t>(at.y()) * static_cast<std::size_t>(columns) +
                 static_cast<std::size_t>(at.x())];
  };
  const QRect all(0, 0, columns, rows);
  std::vector<QPoint> open;
  for (int i = 0; i < columns * rows && places.size() < kMostPlaces; ++i) {
    const QPoint begin(i % columns, i / columns);
    const Looks looks = cellAt(begin);
    if (looks == Looks::plain) continue;
    QRect area;
    const auto enter = [&](QPoint at) {
      if (!all.contains(at) || cellAt(at) != looks) return;
      cellAt(at) = Looks::plain;
      open.push_back(at);
      area |= QRect(at, QSize(1, 1));
    };
    for (enter(begin); !open.empty();) {
      const QPoint at = open.back();
      open.pop_back();
      // A gap as wide as a cell, between wide bars, ends nothing.
      for (int y = -1; y <= 1; ++y) {
        for (int x = -2; x <= 2; ++x) enter(at + QPoint(x, y));
        enter(at + QPoint(0, 2 * y));
      }
    }
    if (!isLargeEnough(looks, area.size())) continue;
    places.push_back(QRect(area.topLeft() * kCell, area.size() * kCell)
                         .adjusted(-2 * kCell, -2 * kCell, 2 * kCell, 2 * kCell)
                         .intersected(grey.rect()));
  }
  return places;
}

}  // namespace vellix::demo
