#include "art_changes.hpp"

#include <algorithm>
#include <cmath>

namespace vellix::demo {
namespace {

// Two programs draw one edge a little differently; what is art differs by more.
constexpr int kShade = 40;
constexpr int kFewest = 6;  // pixels of a difference
constexpr int kReach = 3;   // pixels between two that belong together
constexpr std::size_t kMost = 8;

bool within(const QImage& picture, int x, int y, int shade) {
  int least = 255;
  int most = 0;
  for (int row = std::max(0, y - 1); row <= std::min(picture.height() - 1, y + 1); ++row) {
    const uchar* line = picture.constScanLine(row);
    for (int column = std::max(0, x - 1); column <= std::min(picture.width() - 1, x + 1);
         ++column) {
      least = std::min(least, static_cast<int>(line[column]));
      most = std::max(most, static_cast<int>(line[column]));
    }
  }
  return shade >= least - kShade && shade <= most + kShade;
}

// The pixels that words lie on, on either page.
QImage wordsOn(QSize size, const std::vector<PdfWord>& old, const std::vector<PdfWord>& now) {
  QImage mask(size, QImage::Format_Grayscale8);
  mask.fill(0);
  for (const auto* words : {&old, &now}) {
    for (const PdfWord& word : *words) {
      const QRect place = QRect(QPoint(static_cast<int>(word.box.left() * size.width()) - 2,
                                       static_cast<int>(word.box.top() * size.height()) - 2),
                                QPoint(static_cast<int>(word.box.right() * size.width()) + 2,
                                       static_cast<int>(word.box.bottom() * size.height()) + 2))
                              .intersected(mask.rect());
      for (int y = place.top(); y <= place.bottom(); ++y) {
        std::fill_n(mask.scanLine(y) + place.left(), place.width(), uchar{255});
      }
    }
  }
  return mask;
}

struct Patch {
  QRect place;
  int pixels = 0;
};

void join(std::vector<Patch>& patches, Patch patch) {
  for (bool grown = true; grown;) {
    grown = false;
    for (auto other = patches.begin(); other != patches.end(); ++other) {
      if (!other->place.adjusted(-kReach, -kReach, kReach, kReach).intersects(patch.place)) {
        continue;
      }
      patch = {patch.place.united(other->place), patch.pixels + other->pixels};
      patches.erase(other);
      grown = true;
      break;
    }
  }
  patches.push_back(patch);
}

}  // namespace

std::vector<QRectF> artChanges(const QImage& old, const QImage& now,
                               const std::vector<PdfWord>& oldWords,
                               const std::vector<PdfWord>& newWords) {
  if (old.isNull() || now.isNull()) return {};
  const QImage fitted = now.size() == old.size() ? now
                                                 : now.scaled(old.size(), Qt::IgnoreAspectRatio,
                                                              Qt::SmoothTransformation)
                                                       .convertToFormat(QImage::Format_Grayscale8);
  const QImage mask = wordsOn(old.size(), oldWords, newWords);
  std::vector<Patch> patches;
  for (int y = 0; y < old.height(); ++y) {
    for (int x = 0; x < old.width(); ++x) {
      if (mask.constScanLine(y)[x] != 0) continue;
      if (within(fitted, x, y, old.constScanLine(y)[x]) &&
          within(old, x, y, fitted.constScanLine(y)[x])) {
        continue;
      }
      join(patches, {QRect(x, y, 1, 1), 1});
    }
  }
  std::erase_if(patches, [](const Patch& patch) { return patch.pixels < kFewest; });
  if (patches.size() > kMost) {
    Patch whole;
    for (const Patch& patch : patches) whole.place = whole.place.united(patch.place);
    patches = {whole};
  }
  std::vector<QRectF> boxes;
  for (const Patch& patch : patches) {
    const auto part = [](int pixels, int of) {
      return std::round(static_cast<double>(pixels) / of * 1e5) / 1e5;
    };
    boxes.emplace_back(part(patch.place.x(), old.width()), part(patch.place.y(), old.height()),
                       part(patch.place.width(), old.width()),
                       part(patch.place.height(), old.height()));
  }
  return boxes;
}

}  // namespace vellix::demo
