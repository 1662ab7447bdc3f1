// A proof's picture laid over its reference's, so that what is the same lies on itself.
#pragma once

#include <QImage>
#include <QRectF>

namespace vellix::demo {

// Pages that lie further aside than that, in millimetres, are not brought together.
inline constexpr double kMostAside = 3;

struct Overlay {
  QImage proof;       // RGB888, exactly as large as the reference's picture
  QRect common;       // what both pictures cover, in pixels
  QPoint aside;       // by how many pixels the proof's content lies to the right and lower
  QRectF sheet;       // where the proof's page lies on the reference's, in pixels
  bool sized = true;  // the two pictures had the same size, but for a pixel

  QRectF placed(const QRectF& fractionsOfProof) const;
  QRectF ofProof(const QRectF& pixels) const;  // in fractions of the proof's page
};

// Both RGB888 and neither null; pages of another size are scaled or only cut, whichever fits
// better.
Overlay laidOver(const QImage& proof, const QImage& reference);

// Two of one size corner on corner, wherever their content lies.
Overlay cornerOnCorner(const QImage& proof, const QImage& reference);

}  // namespace vellix::demo
