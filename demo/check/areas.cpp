#include "check/areas.hpp"

#include <algorithm>

namespace vellix::demo {
namespace {

constexpr int kFewestPixels = 4;
constexpr std::size_t kFewestFaint = 12;  // squares
// Squares that differ with no more than two between them are one area.
constexpr int kReach = 3;

QRect plainIn(const Difference& difference, QRect square) {
  square &= difference.pixels.rect();
  QRect place;
  for (int y = square.top(); y <= square.bottom(); ++y) {
    const uchar* line = difference.pixels.constScanLine(y);
    for (int x = square.left(); x <= square.right(); ++x) {
      if (line[x] != 0) place |= QRect(x, y, 1, 1);
    }
  }
  return place;
}

// A square of another shade there is the edge of what differs plainly.
bool besidePlain(const Difference& difference, std::size_t cell) {
  const int column = static_cast<int>(cell) % difference.columns;
  const int row = static_cast<int>(cell) / difference.columns;
  for (int y = std::max(0, row - 1); y <= std::min(difference.rows - 1, row + 1); ++y) {
    for (int x = std::max(0, column - 1); x <= std::min(difference.columns - 1, column + 1); ++x) {
      if (difference.plain[difference.at(x, y)] > 0) return true;
    }
  }
  return false;
}

}  // namespace

QRect squareOf(std::size_t cell, int columns) {
  const auto wide = static_cast<std::size_t>(columns);
  return {static_cast<int>(cell % wide) * kCell, static_cast<int>(cell / wide) * kCell, kCell,
          kCell};
}

std::vector<std::vector<std::size_t>> together(const std::vector<bool>& cells, int columns,
                                               int reach) {
  const int rows = columns > 0 ? static_cast<int>(cells.size()) / columns : 0;
  std::vector<bool> left = cells;
  std::vector<std::vector<std::size_t>> all;
  for (std::size_t start = 0; start < left.size(); ++start) {
    if (!left[start]) continue;
    left[start] = false;
    std::vector<std::size_t> group{start};
    for (std::size_t next = 0; next < group.size(); ++next) {
      const int column = static_cast<int>(group[next]) % columns;
      const int row = static_cast<int>(group[next]) / columns;
      for (int y = std::max(0, row - reach); y <= std::min(rows - 1, row + reach); ++y) {
        for (int x = std::max(0, column - reach); x <= std::min(columns - 1, column + reach); ++x) {
          const auto cell = static_cast<std::size_t>(y) * static_cast<std::size_t>(columns) +
                            static_cast<std::size_t>(x);
          if (!left[cell]) continue;
          left[cell] = false;
          group.push_back(cell);
        }
      }
    }
    all.push_back(std::move(group));
  }
  return all;
}

std::vector<Area> areasOf(const Difference& difference) {
  std::vector<bool> cells(difference.plain.size());
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = difference.differs(i);
  std::vector<Area> areas;
  for (const auto& group : together(cells, difference.columns, kReach)) {
    int pixels = 0;
    std::size_t squares = 0;
    QRect plainly;
    QRect faintly;
    for (const std::size_t cell : group) {
      const QRect square = squareOf(cell, difference.columns);
      pixels += difference.plain[cell];
      if (difference.plain[cell] > 0) plainly |= plainIn(difference, square);
      if (!difference.faint[cell] || besidePlain(difference, cell)) continue;
      ++squares;
      faintly |= square & difference.pixels.rect();
    }
    const bool plain = pixels >= kFewestPixels;
    const bool tinted = squares >= kFewestFaint;
    if (plain || tinted) {
      areas.push_back({(plain ? plainly : QRect()) | (tinted ? faintly : QRect()), !plain});
    }
  }
  join(
      areas, [](const Area& a, const Area& b) { return a.place.intersects(b.place); },
      [](Area& a, const Area& b) { a = {a.place | b.place, a.faint && b.faint}; });
  return areas;
}

}  // namespace vellix::demo
