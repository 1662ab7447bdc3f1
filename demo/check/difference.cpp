#include "check/difference.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "check/smoothed.hpp"

namespace vellix::demo {
namespace {

// Out of 255: two programs draw one edge a little differently; what is drawn otherwise differs by
// more.
constexpr int kShade = 40;
constexpr int kRawShade = 24;
// The same of the mean of a square, where noise is gone.
constexpr int kFaintShade = 8;

void add(const uchar* __restrict row, unsigned short* __restrict sums, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) {
    sums[i] = static_cast<unsigned short>(sums[i] + row[i]);
  }
}

// The mean colours of the squares, three bytes each.
std::vector<uchar> meansOf(const QImage& picture, int columns, int rows) {
  const int width = picture.width();
  const int height = picture.height();
  std::vector<uchar> means(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 3);
  uchar* mean = means.data();
  std::vector<unsigned short> sums(static_cast<std::size_t>(columns) * kCell * 3);
  for (int row = 0; row < rows; ++row) {
    std::ranges::fill(sums, 0);
    const int to = std::min(height, (row + 1) * kCell);
    for (int y = row * kCell; y < to; ++y) {
      add(picture.constScanLine(y), sums.data(), static_cast<std::size_t>(width) * 3);
    }
    const unsigned short* from = sums.data();
    for (int column = 0; column < columns; ++column, from += std::ptrdiff_t{3} * kCell) {
      const int pixels = std::min(kCell, width - column * kCell) * (to - row * kCell);
      for (int channel = 0; channel < 3; ++channel) {
        int sum = 0;
        for (std::ptrdiff_t x = 0; x < kCell; ++x) sum += from[3 * x + channel];
        *mean++ =
            static_cast<uchar>(pixels == kCell * kCell ? sum / (kCell * kCell) : sum / pixels);
      }
    }
  }
  return means;
}

// Whether a square of one lies beyond what the squares around it have on the other.
bool faintly(const std::vector<uchar>& one, const std::vector<uchar>& other, const Difference& grid,
             int column, int row) {
  const std::size_t here = 3 * grid.at(column, row);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    const int value = one[here + channel];
    if (std::abs(value - other[here + channel]) <= kFaintShade) continue;
    int least = 255;
    int most = 0;
    for (int y = std::max(0, row - 1); y <= std::min(grid.rows - 1, row + 1); ++y) {
      for (int x = std::max(0, column - 1); x <= std::min(grid.columns - 1, column + 1); ++x) {
        const int near = other[3 * grid.at(x, y) + channel];
        least = std::min(least, near);
        most = std::max(most, near);
      }
    }
    // A thin line may lie on one square here, and half on each of two there.
    const int apart = most - least + kFaintShade;
    if (value < least - apart || value > most + apart) return true;
  }
  return false;
}

std::vector<bool> rowsAlike(const QImage& one, const QImage& other) {
  const auto bytes = static_cast<std::size_t>(one.width()) * 3;
  std::vector<bool> alike(static_cast<std::size_t>(one.height()));
  for (int y = 0; y < one.height(); ++y) {
    alike[static_cast<std::size_t>(y)] =
        std::memcmp(one.constScanLine(y), other.constScanLine(y), bytes) == 0;
  }
  return alike;
}

void compareRow(int y, const QImage& one, const QImage& other, const QImage& ignored,
                const Smoothed::Row& apart, Difference& made) {
  const uchar* a = one.constScanLine(y);
  const uchar* b = other.constScanLine(y);
  const uchar* skip = ignored.isNull() ? nullptr : ignored.constScanLine(y);
  uchar* mark = made.pixels.scanLine(y);
  for (int x = 0; x < one.width(); ++x) {
    if (skip && skip[x] != 0) continue;
    for (int i = 3 * x; i < 3 * x + 3; ++i) {
      if (apart[static_cast<std::size_t>(i)] <= kShade) continue;
      if (std::abs(a[i] - b[i]) <= kRawShade) continue;
      mark[x] = 255;
      ++made.plain[made.at(x / kCell, y / kCell)];
      break;
    }
  }
}

void comparePlainly(const QImage& one, const QImage& other, const QImage& ignored,
                    const std::vector<bool>& alike, Difference& made) {
  Smoothed first(one);
  Smoothed second(other);
  Smoothed::Row apart(static_cast<std::size_t>(one.width()) * 3);
  for (int y = 0; y < one.height(); ++y) {
    if (alike[static_cast<std::size_t>(y)]) continue;
    first.range(y);
    second.range(y);
    if (beyond(first.row(y), first, second.row(y), second, apart) > kShade) {
      compareRow(y, one, other, ignored, apart, made);
    }
  }
}

void compareFaintly(const QImage& one, const QImage& other, const QImage& ignored,
                    const std::vector<bool>& alike, Difference& made) {
  const auto first = meansOf(one, made.columns, made.rows);
  const auto second = meansOf(other, made.columns, made.rows);
  const auto left = [&](int column, int row) {
    if (ignored.isNull()) return false;
    const int to = std::min(ignored.height(), (row + 1) * kCell);
    const int wide = std::min(kCell, ignored.width() - column * kCell);
    for (int y = row * kCell; y < to; ++y) {
      const uchar* line = ignored.constScanLine(y) + std::ptrdiff_t{kCell} * column;
      if (std::any_of(line, line + wide, [](uchar pixel) { return pixel != 0; })) return true;
    }
    return false;
  };
  for (int row = 0; row < made.rows; ++row) {
    const auto from = alike.begin() + std::ptrdiff_t{kCell} * row;
    const auto to = alike.begin() + std::min(one.height(), (row + 1) * kCell);
    if (std::find(from, to, false) == to) continue;
    for (int column = 0; column < made.columns; ++column) {
      made.faint[made.at(column, row)] = (faintly(first, second, made, column, row) ||
                                          faintly(second, first, made, column, row)) &&
                                         !left(column, row);
    }
  }
}

}  // namespace

Difference differenceOf(const QImage& one, const QImage& other, const QImage& ignored) {
  Difference made;
  made.columns = (one.width() + kCell - 1) / kCell;
  made.rows = (one.height() + kCell - 1) / kCell;
  const auto cells = static_cast<std::size_t>(made.columns) * static_cast<std::size_t>(made.rows);
  made.plain.resize(cells, 0);
  made.faint.resize(cells, false);
  made.pixels = QImage(one.size(), QImage::Format_Grayscale8);
  made.pixels.fill(0);
  const auto alike = rowsAlike(one, other);
  if (std::ranges::find(alike, false) == alike.end()) return made;
  comparePlainly(one, other, ignored, alike, made);
  compareFaintly(one, other, ignored, alike, made);
  return made;
}

void takeOut(Difference& difference, const QRect& place) {
  const QRect inside = place & difference.pixels.rect();
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    uchar* line = difference.pixels.scanLine(y);
    for (int x = inside.left(); x <= inside.right(); ++x) {
      const std::size_t cell = difference.at(x / kCell, y / kCell);
      difference.faint[cell] = false;
      if (line[x] == 0) continue;
      line[x] = 0;
      --difference.plain[cell];
    }
  }
}

}  // namespace vellix::demo
