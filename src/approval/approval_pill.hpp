// The pill that tells where a ticket's approval stands, in a row of the list and over the page.
#pragma once

#include <optional>

#include "pieces/vocabulary.hpp"
#include "records/records.hpp"

namespace vellix {

// None without a round, and for a state that is not known. `small` is for where there is little
// room.
std::optional<PillView> approvalPill(const FileItem& file, bool small);

}  // namespace vellix
