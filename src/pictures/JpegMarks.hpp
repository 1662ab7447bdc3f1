// What the marks of a JPEG tell of it, without decoding anything. Any thread.
#pragma once

#include <QByteArray>
#include <cstdint>

namespace vellix {

struct JpegMarks {
  int scans = 0;       // passes over its pixels
  bool whole = false;  // ends with its end mark, which cannot occur inside the coded pixels
  // What the decoder holds beside the pixels: where a pixel is coded in more than one scan, the
  // coefficients of all of them, at whatever scale it is decoded.
  std::int64_t coefficientBytes = 0;
};

JpegMarks jpegMarks(const QByteArray& bytes);

}  // namespace vellix
