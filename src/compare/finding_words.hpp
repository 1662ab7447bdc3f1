// What a finding is called, wherever it is shown.
#pragma once

#include <string>

#include "records/records.hpp"

namespace vellix {

std::string kindLabel(const std::string& kind);
// "{kind} · vs {reference}"
std::string cardCaption(const Finding& finding);
// Of what is decided: "Real issue" or "Fine"
std::string decisionWord(const std::string& state);
// The same, or "Open"
std::string stateWord(const std::string& state);
// A check that came out well, or an edit of ours that came through: nothing to decide.
bool isPassed(const Finding& finding);

}  // namespace vellix
