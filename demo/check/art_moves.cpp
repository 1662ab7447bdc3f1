#include "check/art_moves.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "check/areas.hpp"
#include "check/ink.hpp"

namespace vellix::demo {
namespace {

constexpr int kInk = 40;       // from the ground, out of 255
constexpr int kFewestInk = 9;  // pixels of a piece of art
constexpr int kLeastMove = 2;  // pixels to a side; less is a matter of rounding, and no move
constexpr int kOff = 2;        // pixels by which a piece may be larger or smaller for its edges
constexpr double kUnlike = 0.04;
// A page of so many pieces is a pattern, and which of them became which is anyone's guess.
constexpr std::size_t kMostPieces = 300;
// Pieces that moved alike with no more than so many pixels between them are one.
constexpr int kNear = 12;

struct Piece {
  QRect place;
  int ink = 0;
  std::vector<std::size_t> cells;
};

// The pieces of art on a page that differ in some place from the other page.
std::vector<Piece> piecesOf(const ArtPage& page, const Difference& difference) {
  const QRgb ground = groundOf(page.picture);
  std::vector<int> ink(difference.plain.size(), 0);
  std::vector<bool> cells(difference.plain.size(), false);
  const auto isInk = [&](int x, int y) {
    return page.words.constScanLine(y)[x] == 0 && away(pixelAt(page.picture, x, y), ground) > kInk;
  };
  for (int y = 0; y < page.picture.height(); ++y) {
    for (int x = 0; x < page.picture.width(); ++x) {
      if (isInk(x, y)) ++ink[difference.at(x / kCell, y / kCell)];
    }
  }
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = ink[i] > 0;
  std::vector<Piece> pieces;
  for (auto& group : together(cells, difference.columns, 1)) {
    Piece piece;
    if (std::ranges::none_of(group, [&](auto cell) { return difference.differs(cell); })) continue;
    for (const std::size_t cell : group) {
      piece.ink += ink[cell];
      const QRect square = squareOf(cell, difference.columns) & page.picture.rect();
      for (int y = square.top(); y <= square.bottom(); ++y) {
        for (int x = square.left(); x <= square.right(); ++x) {
          if (isInk(x, y)) piece.place |= QRect(x, y, 1, 1);
        }
      }
    }
    piece.cells = std::move(group);
    if (piece.ink >= kFewestInk) pieces.push_back(std::move(piece));
  }
  return pieces;
}

// Whether the one looks like the other, so far aside.
bool alike(const Piece& piece, QPoint shift, const ArtPage& proof, const ArtPage& reference) {
  const QRect then = piece.place.adjusted(-1, -1, 1, 1);
  const QRect now = then.translated(shift);
  QImage words = reference.words.copy(then);
  const QImage more = proof.words.copy(now);
  for (int y = 0; y < words.height(); ++y) {
    for (int x = 0; x < words.width(); ++x) words.scanLine(y)[x] |= more.constScanLine(y)[x];
  }
  const Difference left =
      differenceOf(reference.picture.copy(then), proof.picture.copy(now), words);
  int plain = 0;
  for (const int pixels : left.plain) plain += pixels;
  return plain <= std::max(3, static_cast<int>(kUnlike * piece.ink));
}

std::optional<QPoint> shiftOf(const Piece& old, const Piece& now, const ArtPage& proof,
                              const ArtPage& reference) {
  const QSize grown = now.place.size() - old.place.size();
  const QPoint shift = now.place.center() - old.place.center();
  if (std::abs(grown.width()) > kOff || std::abs(grown.height()) > kOff) return std::nullopt;
  if (std::abs(now.ink - old.ink) > 3 + old.ink / 8) return std::nullopt;
  for (const QPoint off :
       {QPoint(0, 0), QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
    if (alike(old, shift + off, proof, reference)) return shift + off;
  }
  return std::nullopt;
}

void takeOut(Difference& difference, const Piece& piece) {
  for (const std::size_t cell : piece.cells) {
    const int column = static_cast<int>(cell) % difference.columns;
    const int row = static_cast<int>(cell) / difference.columns;
    for (int y = std::max(0, row - 1); y <= std::min(difference.rows - 1, row + 1); ++y) {
      for (int x = std::max(0, column - 1); x <= std::min(difference.columns - 1, column + 1);
           ++x) {
        difference.plain[difference.at(x, y)] = 0;
        difference.faint[difference.at(x, y)] = false;
      }
    }
  }
}

bool movedAlike(const ArtMove& a, const ArtMove& b) {
  const QPoint first = a.to.center() - a.from.center();
  const QPoint second = b.to.center() - b.from.center();
  return (first - second).manhattanLength() <= 2 &&
         a.to.adjusted(-kNear, -kNear, kNear, kNear).intersects(b.to);
}

}  // namespace

std::vector<ArtMove> takeMoves(Difference& difference, const ArtPage& proof,
                               const ArtPage& reference) {
  const auto old = piecesOf(reference, difference);
  auto now = piecesOf(proof, difference);
  std::vector<ArtMove> moves;
  if (old.size() > kMostPieces || now.size() > kMostPieces) return moves;
  for (const Piece& piece : old) {
    const auto distance = [&](const Piece& other) {
      return (other.place.center() - piece.place.center()).manhattanLength();
    };
    std::ranges::sort(now, {}, distance);
    for (auto other = now.begin(); other != now.end(); ++other) {
      const auto shift = shiftOf(piece, *other, proof, reference);
      if (!shift) continue;
      if (std::max(std::abs(shift->x()), std::abs(shift->y())) >= kLeastMove) {
        moves.push_back({piece.place, piece.place.translated(*shift)});
      }
      takeOut(difference, piece);
      takeOut(difference, *other);
      now.erase(other);
      break;
    }
  }
  join(moves, movedAlike, [](ArtMove& a, const ArtMove& b) {
    a.from |= b.from;
    a.to |= b.to;
  });
  return moves;
}

}  // namespace vellix::demo
