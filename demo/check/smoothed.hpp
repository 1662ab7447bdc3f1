// A picture's rows as they are compared with another's: smoothed, and what they lie between.
#pragma once

#include <QImage>
#include <array>
#include <vector>

namespace vellix::demo {

// The picture is RGB888, the caller's, and outlives it. One thread.
class Smoothed {
 public:
  using Row = std::vector<uchar>;

  explicit Smoothed(const QImage& picture);

  // Row `y`, smoothed; valid until two rows further are asked for.
  const Row& row(int y);
  // Makes `least` and `most` those of row `y`: what a place and its neighbours lie between, and a
  // part of that more, since where a thin line falls between two pixels it is as strong as that.
  void range(int y);
  const Row& least() const { return least_; }
  const Row& most() const { return most_; }

 private:
  void smooth(int y, Row& to);

  const QImage& picture_;
  std::size_t bytes_;
  std::array<Row, 4> rows_;
  std::array<int, 4> made_{};
  Row least_, most_, work_;
};

// How far each of a row's bytes lies beyond the range of the other's, either way; the most of them.
uchar beyond(const Smoothed::Row& one, const Smoothed& oneRange, const Smoothed::Row& other,
             const Smoothed& otherRange, Smoothed::Row& out);

}  // namespace vellix::demo
