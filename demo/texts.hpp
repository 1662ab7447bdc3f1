// Lists of lines as jobs tell them.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vellix::demo {

using Texts = std::vector<std::string>;

// "1 page", "3 pages".
inline std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

inline std::optional<Texts> unlessEmpty(Texts texts) {
  return texts.empty() ? std::nullopt : std::optional(std::move(texts));
}

}  // namespace vellix::demo
