// The heights of rows that lie below one another, of which few are there to be measured: the others
// count with what they were last measured at, or else with what rows of their kind measure.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace vellix {

// All in logical pixels, from the top of the first row.
class RowHeights {
 public:
  std::size_t count() const { return rows_.size(); }
  // What comes and goes moves what is below it, as it does where all is measured.
  void insert(std::size_t first, const std::vector<int>& kinds);
  void remove(std::size_t first, std::size_t count);
  void move(std::size_t first, std::size_t count, std::size_t to);  // `to` is the place afterwards

  void become(std::size_t row, int kind);
  // It is another row now.
  void forget(std::size_t row);
  // They lie in another width: each is as high as it was until it is measured there.
  void doubtAll();
  // It is being made: until `settle` it is only found out how high it has been all along.
  void begin(std::size_t row) { rows_[row].steady = false; }
  void measure(std::size_t row, double height);
  void settle();

  // By how much rows are higher than was thought. What has changed by itself does not count.
  struct Misjudged {
    double above = 0;  // of those that begin above `top`
    double below = 0;
    bool operator==(const Misjudged&) const = default;
  };
  // Places the rows anew.
  Misjudged layOut(double top, double spacing);

  double y(std::size_t row) const { return rows_[row].y; }
  double height(std::size_t row) const { return rows_[row].laid; }
  double total() const { return total_; }
  // The rows that lie between two heights, as laid out last: the first, and the one behind the
  // last.
  std::pair<std::size_t, std::size_t> within(double top, double bottom) const;

 private:
  struct Row {
    int kind = 0;
    std::optional<double> measured;
    bool steady = false;           // what changes from now on has changed by itself
    std::optional<double> placed;  // the height it was laid out with last, if it was
    double laid = 0;
    double y = 0;
  };

  std::vector<Row> rows_;
  double total_ = 0;
};

}  // namespace vellix
