// A PDF that was uploaded. A program of its own reads it, within bounds of memory and time, so a
// PDF that brings its reader down fails by itself.
#pragma once

#include <QImage>
#include <QSize>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

class PdfFile {
 public:
  // Null when there is no room for it.
  static std::shared_ptr<const PdfFile> of(std::string_view bytes);
  ~PdfFile();
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  // These wait for the reader, and for their turn: two read at a time. Any thread.
  PdfReading read() const;
  // As JPEG; where the page cannot be drawn, a picture that says so.
  std::string picture(int page, QSize pixels) const;
  // The pages in grey, small, from the first on; it ends before the last where
  // drawing them takes too long.
  std::vector<QImage> sketches() const;
  std::string bytes() const;

 private:
  explicit PdfFile(int file) : file_(file) {}
  std::string told(std::vector<std::string> arguments) const;

  int file_;
};

// The pixels that a page of so many points is drawn in: 240 an inch, as the demo's own pages are,
// fewer for a page that would be too large.
QSize pixelsOf(const PdfPage& page);
// The same page within a box, its shape kept.
QSize pixelsWithin(const PdfPage& page, int width, int height);

}  // namespace vellix::demo
