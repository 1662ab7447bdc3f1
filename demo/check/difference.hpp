// Where two pictures differ.
#pragma once

#include <QImage>
#include <vector>

namespace vellix::demo {

// What is compared goes by small squares of so many pixels, a millimetre at kSightDots.
inline constexpr int kCell = 4;

// By squares, row by row.
struct Difference {
  int columns = 0;
  int rows = 0;
  std::vector<int> plain;   // how many of its pixels differ plainly
  std::vector<bool> faint;  // it has another shade as a whole
  QImage pixels;            // grey, 255 where a pixel differs plainly

  std::size_t at(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column);
  }
  bool differs(std::size_t cell) const { return plain[cell] > 0 || faint[cell]; }
};

// Both RGB888 and of one size. How edges were smoothed, a pixel aside, and the noise of a picture
// that was compressed make no difference. Pixels that are not 0 in `ignored`, which is grey or
// null, are left out.
Difference differenceOf(const QImage& one, const QImage& other, const QImage& ignored);

// Takes what differs at a place out.
void takeOut(Difference& difference, const QRect& place);

}  // namespace vellix::demo
