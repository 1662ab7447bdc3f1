#include "check/art_pieces.hpp"

#include <algorithm>
#include <functional>

#include "check/areas.hpp"
#include "check/ink.hpp"

namespace vellix::demo {
namespace {

constexpr int kInk = 40;       // from the ground, out of 255
constexpr int kFewestInk = 9;  // pixels of a piece of art
constexpr int kReach = 3;      // pixels around each of them; pieces of which these touch are one

// Where a page has art, a value for each pixel.
std::vector<bool> inkOf(const ArtPage& page) {
  const QRgb ground = groundOf(page.picture);
  std::vector<bool> ink;
  ink.reserve(static_cast<std::size_t>(page.picture.width()) *
              static_cast<std::size_t>(page.picture.height()));
  for (int y = 0; y < page.picture.height(); ++y) {
    const uchar* words = page.words.constScanLine(y);
    for (int x = 0; x < page.picture.width(); ++x) {
      ink.push_back(words[x] == 0 && away(pixelAt(page.picture, x, y), ground) > kInk);
    }
  }
  return ink;
}

// With all that is no more than kReach from it.
std::vector<bool> widened(const std::vector<bool>& ink, int width) {
  const int height = static_cast<int>(ink.size()) / width;
  std::vector<int> columns(static_cast<std::size_t>(width), 0);  // how much of each is in reach
  std::vector<bool> wide;
  wide.reserve(ink.size());
  const auto add = [&](int y, int count) {
    if (y < 0 || y >= height) return;
    const auto row = ink.begin() + static_cast<std::ptrdiff_t>(y) * width;
    for (int x = 0; x < width; ++x) columns[static_cast<std::size_t>(x)] += row[x] ? count : 0;
  };
  for (int y = 0; y < kReach; ++y) add(y, 1);
  for (int y = 0; y < height; ++y) {
    add(y + kReach, 1);
    add(y - kReach - 1, -1);
    int near = 0;  // columns with ink in reach of the pixel
    const auto at = [&](int x) {
      return x >= 0 && x < width && columns[static_cast<std::size_t>(x)] > 0 ? 1 : 0;
    };
    for (int x = 0; x < kReach; ++x) near += at(x);
    for (int x = 0; x < width; ++x) {
      near += at(x + kReach) - at(x - kReach - 1);
      wide.push_back(near > 0);
    }
  }
  return wide;
}

}  // namespace

std::vector<ArtPiece> piecesOf(const ArtPage& page, const Difference& difference) {
  const int width = page.picture.width();
  std::vector<ArtPiece> pieces;
  const auto ink = inkOf(page);
  for (const auto& group : together(widened(ink, width), width, 1)) {
    ArtPiece piece;
    for (const std::size_t pixel : group) {
      if (!ink[pixel]) continue;
      ++piece.ink;
      const QPoint at(static_cast<int>(pixel) % width, static_cast<int>(pixel) / width);
      piece.place |= QRect(at, QSize(1, 1));
      piece.cells.push_back(difference.at(at.x() / kCell, at.y() / kCell));
    }
    if (piece.ink < kFewestInk) continue;
    std::ranges::sort(piece.cells);
    const auto again = std::ranges::unique(piece.cells);
    piece.cells.erase(again.begin(), again.end());
    piece.differs =
        std::ranges::any_of(piece.cells, [&](auto cell) { return difference.differs(cell); });
    pieces.push_back(std::move(piece));
  }
  std::ranges::sort(pieces, std::greater(), [](const ArtPiece& piece) {
    return piece.place.width() * piece.place.height();
  });
  return pieces;
}

}  // namespace vellix::demo
