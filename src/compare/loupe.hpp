// The spot of the selected finding, enlarged, on the supplier's page and on each reference.
#pragma once

#include <string>
#include <vector>

#include "records/geometry.hpp"
#include "store/store.hpp"

namespace vellix {

struct CropView {
  std::string key;  // of its pane
  std::string img;  // blob key; empty for none
  double aspect = 0;
  Box part;                // of the page, in fractions
  std::vector<Box> boxes;  // in fractions of the page
  std::string colour;      // "accent" or "reference"
  std::string label;
  bool operator==(const CropView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CropView, (), (key, img, aspect, part, boxes, colour, label))

struct LoupeView {
  bool open = false;
  std::string caption;
  std::string title;
  std::vector<CropView> crops;
  bool operator==(const LoupeView&) const = default;
};
BOOST_DESCRIBE_STRUCT(LoupeView, (), (open, caption, title, crops))

// `roles` are those of the panes that are built.
LoupeView loupe(const Store& store, const FileDetail& detail, const Page& page, Int index,
                const std::vector<std::string>& roles);

}  // namespace vellix
