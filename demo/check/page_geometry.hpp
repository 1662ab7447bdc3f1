// Which words of a flow stand around another on its page, whatever the order of reading.
#pragma once

#include <optional>
#include <vector>

#include "check/text_flow.hpp"

namespace vellix::demo {

// The flow is the caller's and outlives it.
class PageGeometry {
 public:
  PageGeometry(const Flow& flow, std::size_t pages);

  const std::vector<std::uint32_t>& on(std::size_t page) const { return pages_[page]; }

  // On its line.
  std::optional<std::uint32_t> left(std::size_t word) const;
  std::optional<std::uint32_t> right(std::size_t word) const;
  // Nearest, of those that begin or end over or under it.
  std::optional<std::uint32_t> above(std::size_t word) const;
  std::optional<std::uint32_t> below(std::size_t word) const;

 private:
  std::optional<std::uint32_t> nearest(std::size_t word, const auto& distance) const;

  const Flow& flow_;
  std::vector<std::vector<std::uint32_t>> pages_;
};

}  // namespace vellix::demo
