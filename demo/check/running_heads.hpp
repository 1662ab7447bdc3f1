// What stands at the head and foot of page after page and is no part of the text.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// For each page its words at the head and then those at the foot, each line from left to right.
using RunningHeads = std::vector<std::vector<std::uint32_t>>;

// Lines in the outer part of a page that other pages repeat at the same height, numbers aside where
// these count on; and what stands apart at the same height on most pages, whatever it says.
RunningHeads runningHeadsOf(const std::vector<PdfPage>& pages);
// Leaves those that both of two partners have at a height: what only one has is a title that
// happens to be like its neighbours'.
void keepShared(std::vector<std::uint32_t>& heads, const PdfPage& page,
                std::vector<std::uint32_t>& others, const PdfPage& partner);

// Whether a line of numbers says the same but for a folio that counts on with the pages, or for how
// many there are.
bool countsOn(const QString& before, const QString& now, long shift, long more);

// By how much the one number of a word differs, where nothing else does.
std::optional<long> numberStep(const QString& before, const QString& now);

}  // namespace vellix::demo
