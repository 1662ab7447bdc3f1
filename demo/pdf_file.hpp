// A PDF that was uploaded, or lies on the disk. A program of its own reads it, within bounds of
// memory and time, so a PDF that brings its reader down fails by itself.
#pragma once

#include <QImage>
#include <QSize>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf_reading.hpp"
#include "pdf_turns.hpp"

namespace vellix::demo {

// A page's picture as JPEG bytes; where the page cannot be drawn, one that says so, and none at all
// when it is no longer wanted or could not be drawn just now.
struct PdfPicture {
  std::string jpeg;
  bool drawn = false;
};

class PdfFile {
 public:
  // Null when there is no room for it.
  static std::shared_ptr<const PdfFile> of(std::string_view bytes);
  // A file of the disk's, which is kept open; null when it cannot be opened.
  static std::shared_ptr<const PdfFile> at(const std::string& path);
  ~PdfFile();
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  // These wait for the reader and for their turn, in the order of their urgency. Any thread. What
  // is no longer wanted ends soon, with what there is until then.

  // The pages without their words, which takes a moment even for many.
  PdfReading facts(const Demand& demand = {Urgency::checked}) const;
  // Pages from `from` until before `to`, with everything; they end before the first that cannot be
  // read.
  std::vector<PdfPage> pages(int from, int to, const Demand& demand = {Urgency::checked}) const;
  std::vector<PdfSight> sights(int from, int to, const Demand& demand = {Urgency::checked}) const;
  // All of it; a page that cannot be read makes it damaged.
  PdfReading read(const Demand& demand = {Urgency::checked}) const;
  PdfPicture drawn(int page, QSize pixels, const Demand& demand = {}) const;
  std::string picture(int page, QSize pixels) const { return drawn(page, pixels).jpeg; }
  // The pages in grey, small; they end before the last where drawing them takes too long.
  std::vector<QImage> sketches(int from = 0, int to = kMostPdfPages,
                               const Demand& demand = {Urgency::checked}) const;

  // In bytes.
  std::size_t size() const;
  // So many bytes of the file from there on, fewer at its end.
  std::string piece(std::size_t from, std::size_t most) const;
  // The same for one file that nobody wrote to meanwhile, and for the same bytes.
  const std::string& tag() const { return tag_; }

 private:
  explicit PdfFile(int file) : file_(file) {}

  int file_;
  std::string tag_;
};

// The pixels that a page of so many points is drawn in: 240 an inch, as the demo's own pages are,
// fewer for a page that would be too large.
QSize pixelsOf(const PdfPage& page);
// The same page within a box, its shape kept.
QSize pixelsWithin(const PdfPage& page, int width, int height);

}  // namespace vellix::demo
