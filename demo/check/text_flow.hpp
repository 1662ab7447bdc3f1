// The words of two documents in the order in which they are compared.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

struct FlowPart {
  QRectF box;  // in fractions of its page; empty where it makes no sense
  std::uint32_t page = 0;
  std::uint32_t word = 0;  // of the page
};

struct FlowWord {
  QString text;  // put together where the end of a line broke it
  int key = 0;   // the same for the same word of either document, hyphens aside
  FlowPart first;
  std::optional<FlowPart> rest = {};  // of a word that was broken
  bool joined = false;                // to the word before, as in scripts without spaces

  const FlowPart& last() const { return rest ? *rest : first; }
};

using Flow = std::vector<FlowWord>;

// A stretch of both that is compared as one text: words from `begin` on, to that of the next one.
struct Stretch {
  std::size_t proof = 0;
  std::size_t reference = 0;
  bool heads = false;  // what stands at the head and foot of one page
};

struct Flows {
  Flow proof;
  Flow reference;
  std::vector<Stretch> stretches;  // and one more that begins at the end
};

// First the text of all pages that kept their order, with those that have no partner; then each run
// of pages that moved, then heads and feet. Pages of which one of the two has no words are left
// out.
// Of those pages of the proof for which `byColumns` says so, and their partners, columns are read
// one after the other.
Flows flowsOf(const Pair& pair, const std::vector<bool>& byColumns);

// Whether the word stands on the line of the one before it.
bool onOneLine(const FlowWord& before, const FlowWord& word);

// Without its hyphens, unless there is nothing else.
QString withoutHyphens(const QString& text);

}  // namespace vellix::demo
