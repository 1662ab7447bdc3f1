// How findings quote the words of a flow, and where they mark them.
#pragma once

#include <string>
#include <vector>

#include "check/text_flow.hpp"

namespace vellix::demo {

// Words in a row, half-open; what is long is cut.
std::string phraseOf(const Flow& flow, std::size_t from, std::size_t to);
// With " / " where a line ends.
std::string brokenPhraseOf(const Flow& flow, std::size_t from, std::size_t to);
std::string quoted(const std::string& phrase);

// Two words more on each side, as far as `begin` and `end` let it.
struct Surroundings {
  std::size_t from = 0;
  std::size_t to = 0;
};
Surroundings around(std::size_t from, std::size_t to, std::size_t begin, std::size_t end);

// One box for each line, of what of the words stands on that page.
std::vector<QRectF> boxesOn(const Flow& flow, const std::vector<std::size_t>& words,
                            std::size_t page);
std::vector<std::size_t> wordsFrom(std::size_t from, std::size_t to);

// Boxes of the proof's words, and of the reference's that are on its partner.
void mark(Finding& finding, const Pair& pair, const Flows& flows,
          const std::vector<std::size_t>& proof, const std::vector<std::size_t>& reference);
// Boxes of its own, and of the reference's words.
void mark(Finding& finding, const Pair& pair, const Flows& flows, const std::vector<QRectF>& boxes,
          const std::vector<std::size_t>& reference);

}  // namespace vellix::demo
