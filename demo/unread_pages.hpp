// What of a proof could not be compared, told so that nobody takes it for alike.
#pragma once

#include <set>
#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

// Each is said once for pages that follow each other.

// Neither side's page could be read, or one of the two could not: for its words, or how it looks.
enum class Unread { words, looks };
std::vector<Finding> unreadFindings(const Pair& pair, const std::set<std::size_t>& pages,
                                    Unread what);
// Pages that show something, but in no words.
std::vector<Finding> silentFindings(const Pair& pair, const std::set<std::size_t>& pages);
// Pages with more words than are read.
std::vector<Finding> wordyFindings(const Pair& pair);
bool hasMoreWords(const Pair& pair, std::size_t page);

}  // namespace vellix::demo
