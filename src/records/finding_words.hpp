// What a finding is called, and what it is compared with, wherever it is shown.
#pragma once

#include <string>

#include "records/records.hpp"

namespace vellix {

std::string kindLabel(const std::string& kind);
std::string roleLabel(const std::string& role);  // of a reference
// "{kind} · vs {reference}"
std::string cardCaption(const Finding& finding);
// Of what is decided: "Real issue" or "Fine"
std::string decisionWord(const std::string& state);
// The same, or "Open"
std::string stateWord(const std::string& state);
// The supplier's name, or what stands for it.
std::string supplierOf(const FileItem& file);

}  // namespace vellix
