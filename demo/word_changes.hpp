// Where the words of two pages differ, and where their lines break otherwise.
#pragma once

#include <optional>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// Words that were replaced, came in or went: a half-open range of either page, one of them
// possibly empty.
struct WordChange {
  std::size_t oldFrom = 0;
  std::size_t oldTo = 0;
  std::size_t newFrom = 0;
  std::size_t newTo = 0;
};

// A word of both pages that begins a line on one of them only; counted from 0 on each.
struct MovedBreak {
  std::size_t oldWord = 0;
  std::size_t newWord = 0;
};

struct PageChanges {
  std::vector<WordChange> words;
  std::vector<MovedBreak> breaks;
};

// None when the pages have too little in common to tell what became of what.
std::optional<PageChanges> changesOf(const std::vector<PdfWord>& old,
                                     const std::vector<PdfWord>& now);

// One box for each line that the words of the range stand on.
std::vector<QRectF> boxesOf(const std::vector<PdfWord>& words, std::size_t from, std::size_t to);

}  // namespace vellix::demo
