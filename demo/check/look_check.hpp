// Where two pages look different although their words are the same.
#pragma once

#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

// Page `page` of the proof against its partner, both as they look. Words that differ, or stand
// elsewhere, are left to the check of the text; how edges were smoothed, and a page that lies a
// little off as a whole, makes no difference.
std::vector<Finding> lookFindings(const Pair& pair, std::size_t page, const PdfSight& proof,
                                  const PdfSight& reference);

// The barcodes of the two pages; of those that read the same, one that says so.
std::vector<Finding> barcodeFindings(const Pair& pair, std::size_t page, const PdfSight& proof,
                                     const PdfSight& reference);

}  // namespace vellix::demo
