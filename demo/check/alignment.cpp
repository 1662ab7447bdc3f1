#include "check/alignment.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {
namespace {

constexpr int kReach = static_cast<int>(kMostAside / 25.4 * kSightDots) + 1;
// A pixel that differs by more counts no more, so that what changed does not pull at the page.
constexpr uchar kMostOfAPixel = 64;
// Another place has to fit better by that much than none, or it is chance.
constexpr double kBetter = 0.97;
constexpr double kMuchBetter = 0.75;
constexpr int kRowsApart = 3;
// Pages whose sides differ by more than this part are scaled and not cut.
constexpr double kMostCut = 0.15;

QImage greyOf(const QImage& picture) {
  QImage grey(picture.size(), QImage::Format_Grayscale8);
  const int width = picture.width();
  for (int y = 0; y < picture.height(); ++y) {
    const uchar* __restrict from = picture.constScanLine(y);
    uchar* __restrict to = grey.scanLine(y);
    for (std::ptrdiff_t x = 0; x < width; ++x) {
      to[x] = static_cast<uchar>((from[3 * x] + 2U * from[3 * x + 1] + from[3 * x + 2]) >> 2U);
    }
  }
  return grey;
}

// The mean shade of each column and each row.
struct Profile {
  std::vector<double> columns, rows;
};

Profile profileOf(const QImage& grey) {
  Profile profile;
  const auto wide = static_cast<std::size_t>(grey.width());
  std::vector<unsigned> columns(wide, 0);
  for (int y = 0; y < grey.height(); ++y) {
    const uchar* __restrict line = grey.constScanLine(y);
    unsigned* __restrict column = columns.data();
    unsigned sum = 0;
    for (std::size_t x = 0; x < wide; ++x) {
      column[x] += line[x];
      sum += line[x];
    }
    profile.rows.push_back(static_cast<double>(sum) / grey.width());
  }
  for (const unsigned sum : columns) {
    profile.columns.push_back(static_cast<double>(sum) / grey.height());
  }
  return profile;
}

// Where the second lies relative to the first, no further than `reach`.
int shiftOf(const std::vector<double>& first, const std::vector<double>& second, int reach) {
  const int n = static_cast<int>(first.size());
  const int m = static_cast<int>(second.size());
  int best = 0;
  double least = -1;
  for (int step = 0; step <= 2 * reach; ++step) {
    const int shift = step % 2 == 1 ? (step + 1) / 2 : -(step / 2);
    const int from = std::max(0, -shift);
    const int to = std::min(n, m - shift);
    if (to - from < n / 2) continue;
    const auto at = static_cast<std::size_t>(std::max(0, shift));
    double sum = 0;
    for (int i = from; i < to; ++i) {
      sum += std::abs(first[static_cast<std::size_t>(i)] -
                      second[at + static_cast<std::size_t>(i - from)]);
    }
    sum /= to - from;
    if (least >= 0 && sum >= least * kBetter) continue;
    least = sum;
    best = shift;
  }
  return best;
}

QRect commonOf(const QImage& reference, const QImage& proof, QPoint shift) {
  return reference.rect().intersected(proof.rect().translated(-shift));
}

// How badly the two fit with the proof so far aside.
double misfit(const QImage& reference, const QImage& proof, QPoint shift) {
  const QRect common = commonOf(reference, proof, shift);
  if (common.isEmpty()) return kMostOfAPixel;
  std::size_t sum = 0;
  std::size_t rows = 0;
  for (int y = common.top(); y <= common.bottom(); y += kRowsApart, ++rows) {
    const uchar* a = reference.constScanLine(y) + common.left();
    const uchar* b = proof.constScanLine(y + shift.y()) + common.left() + shift.x();
    const int width = common.width();
    unsigned row = 0;
    for (int x = 0; x < width; ++x) {
      const auto apart = static_cast<uchar>(std::max(a[x], b[x]) - std::min(a[x], b[x]));
      row += std::min(apart, kMostOfAPixel);
    }
    sum += row;
  }
  return static_cast<double>(sum) /
         (static_cast<double>(rows) * static_cast<double>(common.width()));
}

struct Fit {
  QPoint shift;
  double misfit = 0;
};

Fit fitted(const QImage& reference, const QImage& proof) {
  const Profile old = profileOf(reference);
  const Profile now = profileOf(proof);
  const QPoint near(
      shiftOf(old.columns, now.columns, kReach + std::abs(reference.width() - proof.width())),
      shiftOf(old.rows, now.rows, kReach + std::abs(reference.height() - proof.height())));
  Fit best{{0, 0}, misfit(reference, proof, {0, 0})};
  const double still = best.misfit;
  for (int y = -1; y <= 1; ++y) {
    for (int x = -1; x <= 1; ++x) {
      const QPoint shift = near + QPoint(x, y);
      const double here = misfit(reference, proof, shift);
      if (here < still * kMuchBetter && here < best.misfit) best = {shift, here};
    }
  }
  return best;
}

bool same(const QImage& a, const QImage& b) {
  const auto row = static_cast<std::size_t>(a.width()) * 3;
  for (int y = 0; y < a.height(); ++y) {
    if (std::memcmp(a.constScanLine(y), b.constScanLine(y), row) != 0) return false;
  }
  return true;
}

Overlay overlay(const QImage& proof, QSize reference, QPoint shift) {
  const QRect seen(shift, reference);
  const QRect sheet = proof.rect().translated(-shift);
  return {shift.isNull() && proof.size() == reference ? proof : proof.copy(seen),
          QRect(QPoint(), reference).intersected(sheet), shift, sheet, true};
}

}  // namespace

QRectF Overlay::placed(const QRectF& part) const {
  return {sheet.x() + part.x() * sheet.width(), sheet.y() + part.y() * sheet.height(),
          part.width() * sheet.width(), part.height() * sheet.height()};
}

QRectF Overlay::ofProof(const QRectF& pixels) const {
  return QRectF((pixels.x() - sheet.x()) / sheet.width(), (pixels.y() - sheet.y()) / sheet.height(),
                pixels.width() / sheet.width(), pixels.height() / sheet.height())
      .intersected(QRectF(0, 0, 1, 1));
}

Overlay cornerOnCorner(const QImage& proof, const QImage& reference) {
  return overlay(proof, reference.size(), {});
}

Overlay laidOver(const QImage& proof, const QImage& reference) {
  if (proof.size() == reference.size() && same(proof, reference)) {
    return cornerOnCorner(proof, reference);
  }
  const QImage grey = greyOf(reference);
  const QSize more = proof.size() - reference.size();
  const bool sized = std::abs(more.width()) <= 1 && std::abs(more.height()) <= 1;
  const Fit cut = fitted(grey, greyOf(proof));
  if (sized) return overlay(proof, reference.size(), cut.shift);
  const QImage scaled =
      proof.scaled(reference.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
          .convertToFormat(QImage::Format_RGB888);
  const Fit whole = fitted(grey, greyOf(scaled));
  const bool near = std::abs(more.width()) < kMostCut * reference.width() &&
                    std::abs(more.height()) < kMostCut * reference.height();
  Overlay made = near && cut.misfit < whole.misfit ? overlay(proof, reference.size(), cut.shift)
                                                   : overlay(scaled, reference.size(), whole.shift);
  made.sized = false;
  return made;
}

}  // namespace vellix::demo
