#include "check/art_moves.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "check/areas.hpp"

namespace vellix::demo {
namespace {

constexpr int kLeastMove = 2;  // pixels to a side; less is a matter of rounding, and no move
constexpr int kOff = 2;        // pixels by which a piece may be larger or smaller for its edges
constexpr double kUnlike = 0.04;
// A page of so many pieces is a pattern, and which of them became which is anyone's guess.
constexpr std::size_t kMostPieces = 300;
// Pieces that moved alike with no more than so many pixels between them are one.
constexpr int kNear = 12;

using Pieces = std::vector<ArtPiece>;

QPoint shiftOf(const ArtMove& move) { return move.to.topLeft() - move.from.topLeft(); }

bool near(const QRect& a, const QRect& b) {
  return a.adjusted(-kNear, -kNear, kNear, kNear).intersects(b);
}

class Moves {
 public:
  Moves(Difference& difference, const ArtPage& proof, const ArtPage& reference)
      : difference_(difference), proof_(proof), reference_(reference) {}

  std::vector<ArtMove> taken() {
    const auto same = [](const ArtPiece& piece) { return !piece.differs; };
    all_ = piecesOf(reference_, difference_);
    old_ = all_;
    std::erase_if(old_, same);
    now_ = piecesOf(proof_, difference_);
    std::erase_if(now_, same);
    if (old_.size() > kMostPieces || now_.size() > kMostPieces) return {};
    taken_.assign(old_.size(), false);
    for (std::size_t i = 0; i < old_.size(); ++i) {
      if (taken_[i]) continue;
      // With all that lies in it, whose like may be nearer.
      const QRect place = old_[i].place;
      const auto liesInIt = [&](const QRect& other) { return place.contains(other); };
      if (const auto shift = shiftToItsLike(old_[i])) takeAlong(liesInIt, *shift);
    }
    // What touches its neighbour on one page alone is a piece of its own on the other.
    for (const ArtMove& move : std::vector(moves_)) {
      takeAlong([&](const QRect& other) { return near(move.from, other); }, shiftOf(move));
    }
    const auto together = [](const ArtMove& a, const ArtMove& b) {
      return (shiftOf(a) - shiftOf(b)).manhattanLength() <= 2 && near(a.to, b.to);
    };
    join(moves_, together, [](ArtMove& a, const ArtMove& b) {
      a.from |= b.from;
      a.to |= b.to;
    });
    for (const ArtMove& move : moves_) takeShades(move);
    return std::move(moves_);
  }

 private:
  // Whether the reference's piece looks like what the proof has so far aside.
  bool alike(const ArtPiece& piece, QPoint shift) const {
    const QRect then = piece.place.adjusted(-1, -1, 1, 1);
    const QRect now = then.translated(shift);
    QImage words = reference_.words.copy(then);
    const QImage more = proof_.words.copy(now);
    for (int y = 0; y < words.height(); ++y) {
      for (int x = 0; x < words.width(); ++x) words.scanLine(y)[x] |= more.constScanLine(y)[x];
    }
    const Difference apart =
        differenceOf(reference_.picture.copy(then), proof_.picture.copy(now), words);
    int plain = 0;
    for (const int pixels : apart.plain) plain += pixels;
    int ink = 0;
    for (const ArtPiece& each : all_) ink += piece.place.contains(each.place) ? each.ink : 0;
    return plain <= std::max(3, static_cast<int>(kUnlike * ink));
  }

  std::optional<QPoint> shiftBetween(const ArtPiece& old, const ArtPiece& now) const {
    const QSize grown = now.place.size() - old.place.size();
    const QPoint shift = now.place.center() - old.place.center();
    if (std::abs(grown.width()) > kOff || std::abs(grown.height()) > kOff) return std::nullopt;
    // A thin line has up to twice as many pixels where it lies on two of them.
    if (now.ink > 2 * old.ink || old.ink > 2 * now.ink) return std::nullopt;
    for (const QPoint off :
         {QPoint(0, 0), QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
      if (alike(old, shift + off)) return shift + off;
    }
    return std::nullopt;
  }

  // To the nearest piece of the proof that looks the same.
  std::optional<QPoint> shiftToItsLike(const ArtPiece& old) {
    std::ranges::sort(now_, {}, [&](const ArtPiece& other) {
      return (other.place.center() - old.place.center()).manhattanLength();
    });
    // A part of a picture does not move out of it alone: its like stands in another picture.
    std::vector<QRect> around;
    for (const ArtPiece& piece : all_) {
      if (piece.place != old.place && piece.place.contains(old.place))
        around.push_back(piece.place);
    }
    for (const ArtPiece& other : now_) {
      const auto holds = [&](const QRect& place) { return place.contains(other.place); };
      if (!std::ranges::all_of(around, holds)) continue;
      if (const auto shift = shiftBetween(old, other)) return shift;
    }
    return std::nullopt;
  }

  // All of these places that looks as if it had moved so far.
  template <class Belongs>
  void takeAlong(Belongs belongs, QPoint shift) {
    for (std::size_t i = 0; i < old_.size(); ++i) {
      if (taken_[i] || !belongs(old_[i].place) || !alike(old_[i], shift)) continue;
      taken_[i] = true;
      take(old_[i], shift);
    }
  }

  void take(const ArtPiece& old, QPoint shift) {
    const QRect now = old.place.translated(shift);
    if (std::max(std::abs(shift.x()), std::abs(shift.y())) >= kLeastMove) {
      moves_.push_back({old.place, now});
    }
    std::erase_if(now_, [&](const ArtPiece& other) {
      return now.adjusted(-kOff, -kOff, kOff, kOff).contains(other.place) &&
             other.place.adjusted(-kOff, -kOff, kOff, kOff).contains(now);
    });
    takeOut(old, {});
    takeOut(old, shift);
  }

  void takeOut(const ArtPiece& piece, QPoint aside) {
    for (const std::size_t cell : piece.cells) {
      const QRect square = squareOf(cell, difference_.columns).translated(aside);
      forEachCell(square.adjusted(-kCell, -kCell, kCell, kCell), [&](std::size_t near) {
        difference_.plain[near] = 0;
        difference_.faint[near] = false;
      });
    }
  }

  // What is but a shade off the ground is no piece, and moved along where the two look alike in
  // that, too.
  void takeShades(const ArtMove& move) {
    const Difference apart =
        differenceOf(reference_.picture.copy(move.from), proof_.picture.copy(move.to), {});
    if (std::ranges::any_of(areasOf(apart), &Area::faint)) return;
    for (const QRect& place : {move.from, move.to}) {
      forEachCell(place, [&](std::size_t cell) { difference_.faint[cell] = false; });
    }
  }

  // All that have a part of the place.
  template <class Each>
  void forEachCell(const QRect& place, Each each) const {
    const QRect inside = place & proof_.picture.rect();
    if (inside.isEmpty()) return;
    for (int y = inside.top() / kCell; y <= inside.bottom() / kCell; ++y) {
      for (int x = inside.left() / kCell; x <= inside.right() / kCell; ++x) {
        each(difference_.at(x, y));
      }
    }
  }

  Difference& difference_;
  const ArtPage& proof_;
  const ArtPage& reference_;
  Pieces all_;  // of the reference
  Pieces old_;  // those of them that differ
  Pieces now_;  // of the proof, those that differ and are left
  std::vector<bool> taken_;
  std::vector<ArtMove> moves_;
};

}  // namespace

std::vector<ArtMove> takeMoves(Difference& difference, const ArtPage& proof,
                               const ArtPage& reference) {
  return Moves(difference, proof, reference).taken();
}

}  // namespace vellix::demo
