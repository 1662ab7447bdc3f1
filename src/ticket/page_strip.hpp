// The column of small pages beside the canvas.
#pragma once

#include <string>
#include <vector>

#include "store/store.hpp"

namespace vellix {

struct PageCellView {
  std::string key;  // of the ticket and the page: another ticket's cells are others
  std::string name;
  std::string img;      // blob key; empty when there is no picture
  double tall = 0;      // height of the small page at its width, in logical pixels
  bool open = false;    // the page on show
  std::string waiting;  // a number, "1k+" beyond 999, empty for none
  std::string issues;   // likewise
  std::string notes;    // likewise
  std::string spoken;   // the counts in words
  bool operator==(const PageCellView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PageCellView, (),
                      (key, name, img, tall, open, waiting, issues, notes, spoken))

inline constexpr double kStripThumbWidth = 58;  // logical pixels

std::vector<PageCellView> pageStrip(const Store& store, const FileDetail& detail);

// `width` is that of the view which the strip stands in, in logical pixels. No detail, no strip.
bool showsPageStrip(const Store& store, const FileDetail* detail, double width);
// Whether there is room for it and it has pages, be it wanted or not: also while the detail is on
// its way, as far as the ticket tells.
bool roomForPageStrip(const FileItem& file, const FileDetail* detail, double width);

}  // namespace vellix
