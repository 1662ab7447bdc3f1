#include "pieces/row_heights.hpp"

#include <algorithm>
#include <map>

namespace vellix {
namespace {

// Before anything was measured.
constexpr double kGuess = 100;

struct Mean {
  double sum = 0;
  int count = 0;
  void add(double height) {
    sum += height;
    ++count;
  }
  double value() const { return count > 0 ? sum / count : kGuess; }
};

}  // namespace

void RowHeights::insert(std::size_t first, const std::vector<int>& kinds) {
  std::vector<Row> fresh(kinds.size());
  for (std::size_t i = 0; i < kinds.size(); ++i) fresh[i].kind = kinds[i];
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(first), fresh.begin(), fresh.end());
}

void RowHeights::remove(std::size_t first, std::size_t count) {
  const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(first);
  rows_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
}

void RowHeights::move(std::size_t first, std::size_t count, std::size_t to) {
  const auto at = [&](std::size_t row) { return rows_.begin() + static_cast<std::ptrdiff_t>(row); };
  if (to > first) {
    std::rotate(at(first), at(first + count), at(to + count));
  } else {
    std::rotate(at(to), at(first), at(first + count));
  }
}

void RowHeights::become(std::size_t row, int kind) { rows_[row].kind = kind; }

void RowHeights::forget(std::size_t row) {
  rows_[row].measured.reset();
  rows_[row].steady = false;
}

void RowHeights::doubtAll() {
  for (Row& row : rows_) row.steady = false;
}

void RowHeights::measure(std::size_t row, double height) { rows_[row].measured = height; }

void RowHeights::settle() {
  for (Row& row : rows_) row.steady = row.measured.has_value();
}

RowHeights::Misjudged RowHeights::layOut(double top, double spacing) {
  std::map<int, Mean> means;
  Mean mean;
  for (const Row& row : rows_) {
    if (!row.measured) continue;
    means[row.kind].add(*row.measured);
    mean.add(*row.measured);
  }
  const auto guess = [&](int kind) {
    const auto own = means.find(kind);
    return own == means.end() ? mean.value() : own->second.value();
  };
  Misjudged misjudged;
  double y = 0;
  for (Row& row : rows_) {
    row.laid = row.measured ? *row.measured : guess(row.kind);
    if (row.placed && !row.steady) {
      (row.y < top ? misjudged.above : misjudged.below) += row.laid - *row.placed;
    }
    row.placed = row.laid;
    row.y = y;
    y += row.laid + spacing;
  }
  total_ = rows_.empty() ? 0 : y - spacing;
  return misjudged;
}

std::pair<std::size_t, std::size_t> RowHeights::within(double top, double bottom) const {
  const auto first =
      std::ranges::partition_point(rows_, [&](const Row& row) { return row.y + row.laid <= top; });
  const auto end =
      std::partition_point(first, rows_.end(), [&](const Row& row) { return row.y < bottom; });
  return {static_cast<std::size_t>(first - rows_.begin()),
          static_cast<std::size_t>(end - rows_.begin())};
}

}  // namespace vellix
