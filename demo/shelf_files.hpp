// Files that are there whole or not at all, also after a loss of power.
#pragma once

#include <expected>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace vellix::demo {

// Names are such as "report-3.pdf": a kind, what tells it apart, and an ending. Makes the folder,
// for its owner alone. The failure is a sentence.
std::expected<void, std::string> writeWhole(const std::string& folder, const std::string& name,
                                            std::string_view bytes);
std::optional<std::string> allOfFile(const std::string& path);
// Removes files with such names, and what was left half written; never anything else.
void removeOwnBut(const std::string& folder, const std::set<std::string>& names);

}  // namespace vellix::demo
