// The words that stand in the same way at the same place of two pages.
#pragma once

#include <QRectF>
#include <vector>

#include "check/alignment.hpp"
#include "pdf_reading.hpp"

namespace vellix::demo {

struct SameWord {
  QString text;
  QRectF place;  // on the reference's picture, in pixels
};

struct WordsInPlace {
  std::vector<SameWord> same;
  std::vector<QRectF> other;  // where either page has a word that is not on the other, in pixels
};

// Of pages of which one has no live text nothing is in place, and nothing is other: how its words
// look is all that there is of them.
WordsInPlace wordsInPlace(const PdfPage& proof, const PdfPage& reference, const Overlay& overlay);

}  // namespace vellix::demo
