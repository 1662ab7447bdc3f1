// What goes wrong between a publisher's file and a supplier's proof, planted on purpose.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "page_art.hpp"
#include "records/records.hpp"

namespace vellix::demo {

enum class Defect {
  changedWord,
  movedBreak,
  wrongFont,
  stopForComma,
  shiftedPicture,
  barcodeDigit,
  strayColour,
  coveredCredit,
  trimmed,
};

// What was planted and how to find it again on a page.
struct Planted {
  Defect defect = Defect::changedWord;
  std::vector<int> wordIds;
  std::optional<Element> element;
  std::string title;
  std::string detail;
  std::string before;  // our wording, empty where words are not concerned
  std::string after;   // the proof's wording
};

// The kind of finding that a defect is reported as.
std::string kindOf(Defect defect);

// Does the defect to the page. `line` says where on a text page to begin looking for a place; none
// when the page has no place for it.
std::optional<Planted> plant(PageArt& page, Defect defect, int line);

// The finding with its true boxes on both pages; id, severity, state and against are the caller's.
Finding located(const Planted& planted, const PageArt& proof, const PageArt& reference);

}  // namespace vellix::demo
