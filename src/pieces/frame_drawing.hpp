// The pixels of a mark's frame: a line with round corners over a lighter one that keeps it readable
// on any ground. The line runs along the edge, half of it outside. However large the frame, only
// its line is ever drawn. For any thread. Lengths are logical pixels, but where told.
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace vellix {

// How a frame is drawn.
struct FrameLook {
  QColor color = Qt::black;
  qreal line = 1.6;
  qreal dash = 0;  // about as long as a dash and the gap after it are, alike; 0 for a solid line
  qreal halo = 3;  // the lighter line; 0 for none
  qreal haloOpacity = 0.9;
  qreal radius = 3;
  bool operator==(const FrameLook&) const = default;
};

// A frame of this size, whose corner lies off the grid of the device's pixels by so many of them.
struct FrameShape {
  FrameLook look;
  QSizeF size;
  QPointF off;
  qreal scale = 1;  // the device's pixels to a logical one
  bool operator==(const FrameShape&) const = default;

  bool isDrawable() const;
};

// A part of a frame: one where it is small, else the four sides, which leave the middle out.
struct FrameStrip {
  QRectF place;  // from the frame's corner; its own lie on the device's pixels
  QImage image;
};

std::vector<FrameStrip> drawFrame(const FrameShape& shape);

}  // namespace vellix
