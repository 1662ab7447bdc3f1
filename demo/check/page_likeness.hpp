// How much any page of one document is like any of another.
#pragma once

#include <cstddef>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

struct Likeness {
  float value = 0;  // 0 to 1
  bool byText = true;
};

// One for each two pages: rows are the first document's.
class LikenessTable {
 public:
  LikenessTable(std::size_t rows, std::size_t columns)
      : columns_(columns), cells_(rows * columns) {}
  Likeness& at(std::size_t row, std::size_t column) { return cells_[row * columns_ + column]; }
  const Likeness& at(std::size_t row, std::size_t column) const {
    return cells_[row * columns_ + column];
  }

 private:
  std::size_t columns_;
  std::vector<Likeness> cells_;
};

// Sketches may be null or too few; what has neither words nor a sketch is like nothing but what has
// neither as well, and like that by nothing.
LikenessTable likenessOf(const std::vector<PdfPage>& proof, const std::vector<PdfPage>& reference,
                         const std::vector<QImage>& proofSketches,
                         const std::vector<QImage>& referenceSketches);

// Fewer words than that tell little of a page: a folio, a caption.
inline constexpr std::size_t kFewWords = 8;

// Whether a sketch shows one even shade, as an empty page does.
bool showsNothing(const QImage& sketch);

}  // namespace vellix::demo
