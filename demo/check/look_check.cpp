#include "check/look_check.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "check/alignment.hpp"
#include "check/areas.hpp"
#include "check/art_moves.hpp"
#include "check/look_told.hpp"
#include "check/same_words.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostAreas = 8;
constexpr double kLeastAside = 0.5;  // millimetres of the page as a whole
constexpr double kMostStill = 0.1;   // of its words, and it is not the page that lies aside
constexpr int kOverhang = 3;         // pixels by which letters leave their boxes
constexpr int kRounding = 5;         // places that a word is looked for at in each direction
constexpr int kFewestOfAWord = 2;    // pixels
// Around a barcode, in pixels: its digits, and where it is told a little off.
constexpr int kAroundBarcode = 16;
// Pixels along the edge of a page, which may be half of the page and half of nothing.
constexpr int kEdge = 2;

void fill(QImage& mask, const QRectF& place, int more) {
  const QRect inside = place.toAlignedRect().adjusted(-more, -more, more, more) & mask.rect();
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    std::fill_n(mask.scanLine(y) + inside.left(), inside.width(), uchar{255});
  }
}

QImage emptyMask(QSize size) {
  QImage mask(size, QImage::Format_Grayscale8);
  mask.fill(0);
  return mask;
}

// Barcodes that do not read the same are told for themselves.
void leaveBarcodes(QImage& ignored, const Overlay& overlay, const PdfSight& proof,
                   const PdfSight& reference) {
  const auto readsAlso = [](const PdfBarcode& code, const PdfSight& sight) {
    return std::ranges::any_of(
        sight.barcodes, [&](const PdfBarcode& other) { return other.digits == code.digits; });
  };
  for (const PdfBarcode& code : proof.barcodes) {
    if (!readsAlso(code, reference)) fill(ignored, overlay.placed(code.box), kAroundBarcode);
  }
  for (const PdfBarcode& code : reference.barcodes) {
    if (readsAlso(code, proof)) continue;
    fill(ignored,
         {code.box.x() * ignored.width(), code.box.y() * ignored.height(),
          code.box.width() * ignored.width(), code.box.height() * ignored.height()},
         kAroundBarcode);
  }
}

void leaveOutAround(QImage& ignored, const QRect& seen) {
  const QRect all = ignored.rect();
  fill(ignored, QRect(all.topLeft(), QPoint(all.right(), seen.top() - 1)), 0);
  fill(ignored, QRect(QPoint(all.left(), seen.bottom() + 1), all.bottomRight()), 0);
  fill(ignored, QRect(all.topLeft(), QPoint(seen.left() - 1, all.bottom())), 0);
  fill(ignored, QRect(QPoint(seen.right() + 1, all.top()), all.bottomRight()), 0);
}

// A word that looks the same a little aside was placed by another program's rounding.
void takeRoundingOut(Difference& difference, const WordsInPlace& words, const Overlay& overlay,
                     const QImage& reference) {
  const auto areas = areasOf(difference);
  const auto differs = [&](const QRect& place) {
    return std::ranges::any_of(areas,
                               [&](const Area& area) { return area.place.intersects(place); });
  };
  const auto alike = [&](const QRect& then, QPoint shift) {
    const Difference left =
        differenceOf(reference.copy(then), overlay.proof.copy(then.translated(shift)), {});
    return std::accumulate(left.plain.begin(), left.plain.end(), 0) <= kFewestOfAWord;
  };
  for (const SameWord& word : words.same) {
    const QRect place = word.place.toAlignedRect().adjusted(-1, -1, 1, 1);
    if (!differs(place)) continue;
    for (int step = 0; step < kRounding * kRounding; ++step) {
      const QPoint shift(step % kRounding - kRounding / 2, step / kRounding - kRounding / 2);
      if (!alike(place, shift)) continue;
      takeOut(difference, place);
      break;
    }
  }
}

struct Both {
  QImage proof, reference;  // RGB888
  const PdfPage& now;
  const PdfPage& then;
  double perMillimetre() const { return reference.width() / then.width * 72 / 25.4; }
};

// The one over the other, and whether the page lies aside, but for some words or all of it.
struct Laid {
  Overlay overlay;
  WordsInPlace words;
  bool aside = false;
  bool all = false;
};

Laid laid(const Both& both) {
  Laid made{laidOver(both.proof, both.reference), {}};
  made.words = wordsInPlace(both.now, both.then, made.overlay);
  const double aside = std::hypot(made.overlay.aside.x(), made.overlay.aside.y());
  made.aside = made.overlay.sized && aside > kLeastAside * both.perMillimetre();
  if (!made.aside) return made;
  Overlay still = cornerOnCorner(both.proof, both.reference);
  WordsInPlace stay = wordsInPlace(both.now, both.then, still);
  made.all = stay.same.empty();
  // Text below a taller line lies lower without the page.
  if (static_cast<double>(stay.same.size()) >
      kMostStill * static_cast<double>(made.words.same.size())) {
    made = {std::move(still), std::move(stay)};
  }
  return made;
}

QImage wordsOn(QSize size, const WordsInPlace& words) {
  QImage mask = emptyMask(size);
  for (const SameWord& word : words.same) fill(mask, word.place, 1);
  for (const QRectF& place : words.other) fill(mask, place, kOverhang);
  return mask;
}

}  // namespace

std::vector<Finding> lookFindings(const Pair& pair, std::size_t page, const PdfSight& proof,
                                  const PdfSight& reference) {
  if (page >= pair.proof.size() || page >= pair.partners.size() || !pair.partners[page]) return {};
  const PdfPage& now = pair.proof[page];
  const PdfPage& then = pair.reference[pair.partners[page]->page];
  if (proof.picture.isNull() || reference.picture.isNull()) {
    Finding made = findingOn(page, pair, "picture", "medium");
    made.title = "The art was not compared";
    made.detail = (proof.picture.isNull() ? "The page" : "The page of " + pair.called) +
                  " could not be drawn. Compare it by eye.";
    return {std::move(made)};
  }
  const Both both{proof.picture.convertToFormat(QImage::Format_RGB888),
                  reference.picture.convertToFormat(QImage::Format_RGB888), now, then};
  const QImage& picture = both.reference;
  const auto [overlay, words, aside, all] = laid(both);
  const Pages pages{pair, page, overlay, picture, words.same, both.perMillimetre()};
  std::vector<Finding> findings;
  if (aside) findings.push_back(liesAside(pages, all));
  QImage ignored = emptyMask(picture.size());
  for (const QRectF& place : words.other) fill(ignored, place, kOverhang);
  leaveBarcodes(ignored, overlay, proof, reference);
  leaveOutAround(ignored, overlay.common.adjusted(kEdge, kEdge, -kEdge, -kEdge));
  Difference difference = differenceOf(picture, overlay.proof, ignored);
  takeRoundingOut(difference, words, overlay, picture);
  if (areasOf(difference).empty()) return findings;
  const QImage letters = wordsOn(ignored.size(), words);
  const auto moves = takeMoves(difference, {overlay.proof, letters}, {picture, letters});
  const auto areas = areasOf(difference);
  if (areas.size() + moves.size() > kMostAreas) {
    findings.push_back(throughout(pages, areas, moves));
    return findings;
  }
  for (const ArtMove& move : moves) findings.push_back(ofMove(pages, move));
  for (const Area& area : areas) findings.push_back(ofArea(pages, area));
  return findings;
}

}  // namespace vellix::demo
