// A page's words column by column, as its white space tells them.
#pragma once

#include <cstdint>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// The page's own order stays within a column, and where there is none. Readers take columns and the
// cells of tables together line by line, or not, depending on little.
std::vector<std::uint32_t> columnOrder(const PdfPage& page);

}  // namespace vellix::demo
