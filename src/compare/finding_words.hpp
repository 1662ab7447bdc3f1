// What a finding is called, wherever it is shown.
#pragma once

#include <string>

#include "records/records.hpp"

namespace vellix {

std::string kindLabel(const std::string& kind);
// "{kind} · vs {reference}"
std::string cardCaption(const Finding& finding);
// "Open", "Real issue" or "Fine"
std::string stateWord(const std::string& state);
// A check that came out well, or an edit of ours that came through: nothing to decide.
bool isPassed(const Finding& finding);

}  // namespace vellix
