// Which word of a proof is which of the reference.
#pragma once

#include <vector>

#include "check/text_flow.hpp"

namespace vellix::demo {

inline constexpr std::uint32_t kNoWord = ~std::uint32_t{0};

// Words side by side in both flows, half-open; a passage stands elsewhere.
struct Passage {
  std::size_t proof = 0;
  std::size_t reference = 0;
  std::size_t count = 0;
};

// Indexes are those of the flows.
struct TextMatch {
  std::vector<std::uint32_t> ofProof;  // its word of the reference, or kNoWord
  std::vector<std::uint32_t> ofReference;
  // Words of which nothing is to be told: they have their other, or it is known why they have none.
  std::vector<bool> proofDone;
  std::vector<bool> referenceDone;
  std::vector<Passage> moved;  // done as well

  void match(std::size_t proof, std::size_t reference);
  void unmatch(std::size_t proof);
  void done(const std::vector<std::size_t>& proof, const std::vector<std::size_t>& reference);
};

TextMatch textMatchOf(const Pair& pair, const Flows& flows);

}  // namespace vellix::demo
