// Which page of a reference a page of a proof was made from.
#pragma once

#include <optional>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

struct Partner {
  std::size_t page = 0;  // of the reference, from 0
  double likeness = 0;   // 0 to 1
  bool moved = false;    // it stood elsewhere among the others
  bool byText = true;    // or by its picture
};
// One entry for each page of the proof; a page of the reference has no more than one partner.
using Partners = std::vector<std::optional<Partner>>;

// By the words, or where there are none by how the pages look: `sketches` are small and grey, one
// for each page, and may be null, or none at all, where there are words. What keeps the order goes
// first; of the rest, what is alike all the same has moved.
Partners partnersOf(const std::vector<PdfPage>& proof, const std::vector<PdfPage>& reference,
                    const std::vector<QImage>& proofSketches = {},
                    const std::vector<QImage>& referenceSketches = {});

// The pages of the reference that no page of the proof was made from.
std::vector<std::size_t> withoutPartner(const Partners& partners, std::size_t reference);

}  // namespace vellix::demo
