// How much of a text is laid out. What a service sends may be of any length, and laying out takes
// the longer the more there is, of one endless word above all.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "records/words.hpp"

namespace vellix {

// In characters.
inline constexpr int kMostShown = 20'000;
inline constexpr int kMostOnALine = 1'000;

// Whether a text is short enough to be shown to its end.
inline bool shownWhole(std::string_view text) {
  return std::ranges::count_if(text, beginsCharacter) <= kMostShown;
}

// At most so many characters of a text, and an ellipsis for the rest.
inline std::string shownTo(std::string_view text, int most) {
  int begun = 0;
  const auto rest = std::ranges::find_if(
      text, [&](char byte) { return beginsCharacter(byte) && ++begun > most; });
  std::string shown{text.begin(), rest};
  if (rest != text.end()) shown += "…";
  return shown;
}

// The last so many characters of it, behind an ellipsis for what comes before.
inline std::string shownFrom(std::string_view text, int most) {
  auto before = std::ranges::count_if(text, beginsCharacter) - most;
  if (before <= 0) return std::string{text};
  const auto start =
      std::ranges::find_if(text, [&](char byte) { return beginsCharacter(byte) && before-- == 0; });
  return "…" + std::string{start, text.end()};
}

}  // namespace vellix
