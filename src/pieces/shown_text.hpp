// How much of a text is laid out. What a service sends may be of any length, and laying out takes
// the longer the more there is, of one endless word above all.
#pragma once

#include <algorithm>
#include <string_view>

namespace vellix {

// In characters.
inline constexpr int kMostShown = 20'000;
inline constexpr int kMostOnALine = 1'000;

// Whether a text is short enough to be shown to its end.
inline bool shownWhole(std::string_view text) {
  const auto continues = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
  };
  return std::ssize(text) - std::ranges::count_if(text, continues) <= kMostShown;
}

}  // namespace vellix
