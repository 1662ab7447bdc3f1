#include "page_matching.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "page_likeness.hpp"

namespace vellix::demo {
namespace {

// Less than that may be chance.
constexpr float kLeast = 0.12F;
// A page that left its place among the others must be more like its partner than one that kept it.
constexpr float kLeastMoved = 0.5F;
// Two that are only a little alike part where one of them has a page elsewhere that is so much more
// like it.
constexpr float kMuchMore = 0.5F;
// Pages stay with the neighbours that they had.
constexpr float kNeighbours = 0.08F;
constexpr double kSizesFit = 0.05;

using Pages = std::vector<PdfPage>;

bool sizesFit(const PdfPage& one, const PdfPage& other) {
  const auto near = [](double a, double b) {
    return std::abs(a - b) <= kSizesFit * std::max(std::abs(a), std::abs(b));
  };
  return near(one.width, other.width) && near(one.height, other.height);
}

// The best way to pair pages that keeps the order; of ways that are as good, the one that pairs the
// first ones.
class InOrder {
 public:
  InOrder(const LikenessTable& table, std::size_t rows, std::size_t columns)
      : table_(table), rows_(rows), columns_(columns), best_((rows + 1) * (columns + 1) * 2) {
    for (std::size_t row = rows; row-- > 0;) {
      for (std::size_t column = columns; column-- > 0;) {
        for (const bool follows : {false, true})
          at(row, column, follows) = from(row, column, follows);
      }
    }
  }

  Partners partners() {
    Partners all(rows_);
    std::size_t row = 0;
    std::size_t column = 0;
    for (bool follows = true; row < rows_ && column < columns_;) {
      const float best = at(row, column, follows);
      if (pairs(row, column) && paired(row, column, follows) >= best) {
        const Likeness& likeness = table_.at(row, column);
        all[row++] = Partner{column++, likeness.value, false, likeness.byText};
        follows = true;
      } else {
        const bool down = at(row + 1, column, false) >= best;
        ++(down ? row : column);
        follows = false;
      }
    }
    return all;
  }

 private:
  float& at(std::size_t row, std::size_t column, bool follows) {
    return best_[(row * (columns_ + 1) + column) * 2 + (follows ? 1 : 0)];
  }
  bool pairs(std::size_t row, std::size_t column) const {
    return table_.at(row, column).value >= kLeast;
  }
  float paired(std::size_t row, std::size_t column, bool follows) {
    return table_.at(row, column).value + (follows ? kNeighbours : 0) +
           at(row + 1, column + 1, true);
  }
  float from(std::size_t row, std::size_t column, bool follows) {
    const float without = std::max(at(row + 1, column, false), at(row, column + 1, false));
    return pairs(row, column) ? std::max(without, paired(row, column, follows)) : without;
  }

  const LikenessTable& table_;
  std::size_t rows_;
  std::size_t columns_;
  std::vector<float> best_;  // of what is left from a place on; by whether a pair went in front
};

void partUnlike(Partners& partners, const LikenessTable& table, std::size_t columns) {
  const auto left = withoutPartner(partners, columns);
  const Partners before = partners;
  for (std::size_t row = 0; row < partners.size(); ++row) {
    if (!before[row] || before[row]->likeness >= kLeastMoved) continue;
    const std::size_t column = before[row]->page;
    const float least = static_cast<float>(before[row]->likeness) + kMuchMore;
    bool better = std::ranges::any_of(
        left, [&](std::size_t other) { return table.at(row, other).value >= least; });
    for (std::size_t other = 0; other < before.size() && !better; ++other) {
      better = !before[other] && table.at(other, column).value >= least;
    }
    if (better) partners[row].reset();
  }
}

void pairMoved(Partners& partners, const LikenessTable& table, std::size_t columns,
               const auto& tellsApart) {
  std::vector<std::tuple<float, std::size_t, std::size_t>> likely;
  const auto left = withoutPartner(partners, columns);
  for (std::size_t row = 0; row < partners.size(); ++row) {
    if (partners[row]) continue;
    for (const std::size_t column : left) {
      const float value = table.at(row, column).value;
      if (value >= kLeastMoved && tellsApart(row)) likely.emplace_back(-value, row, column);
    }
  }
  std::ranges::sort(likely);
  std::vector<bool> taken(columns, false);
  for (const auto& [less, row, column] : likely) {
    if (partners[row] || taken[column]) continue;
    taken[column] = true;
    partners[row] = Partner{column, -less, true, table.at(row, column).byText};
  }
}

// Pages between two pairs that follow on each other: a single one on each side is the other's even
// where most of it was changed, and so are as many as there are where nothing tells of them.
void pairBetween(Partners& partners, const Pages& proof, const Pages& reference,
                 const LikenessTable& table, const auto& unknown) {
  std::vector<bool> taken(reference.size() + 1, false);
  for (const auto& partner : partners) {
    if (partner) taken[partner->page] = true;
  }
  taken.back() = true;
  std::size_t column = 0;
  for (std::size_t row = 0; row < partners.size();) {
    if (partners[row]) {
      if (!partners[row]->moved) column = partners[row]->page + 1;
      ++row;
      continue;
    }
    std::size_t rows = 0;
    while (row + rows < partners.size() && !partners[row + rows]) ++rows;
    std::size_t columns = 0;
    while (!taken[column + columns]) ++columns;
    const auto may = [&](std::size_t i) {
      return sizesFit(proof[row + i], reference[column + i]) &&
             (rows == 1 || unknown(row + i, column + i));
    };
    for (std::size_t i = 0; rows == columns && i < rows; ++i) {
      if (!may(i)) continue;
      const Likeness& likeness = table.at(row + i, column + i);
      partners[row + i] = Partner{column + i, likeness.value, false, likeness.byText};
    }
    row += rows;
  }
}

}  // namespace

Partners partnersOf(const Pages& proof, const Pages& reference,
                    const std::vector<QImage>& proofSketches,
                    const std::vector<QImage>& referenceSketches) {
  const LikenessTable table = likenessOf(proof, reference, proofSketches, referenceSketches);
  Partners partners = InOrder(table, proof.size(), reference.size()).partners();
  const auto seen = [](const std::vector<QImage>& sketches, std::size_t page) {
    return page < sketches.size() && !sketches[page].isNull();
  };
  const bool any = std::ranges::any_of(partners, [](const auto& one) { return one.has_value(); });
  if (!any) {
    for (std::size_t i = 0; i < std::min(proof.size(), reference.size()); ++i) {
      partners[i] = Partner{i, 0, false, !proof[i].words.empty() && !reference[i].words.empty()};
    }
    return partners;
  }
  partUnlike(partners, table, reference.size());
  pairMoved(partners, table, reference.size(), [&](std::size_t row) {
    return proof[row].words.size() >= kFewWords ||
           (seen(proofSketches, row) && !showsNothing(proofSketches[row]));
  });
  pairBetween(partners, proof, reference, table, [&](std::size_t row, std::size_t column) {
    const bool words = !proof[row].words.empty() && !reference[column].words.empty();
    const bool looks = seen(proofSketches, row) && seen(referenceSketches, column);
    return !words && !looks;
  });
  return partners;
}

std::vector<std::size_t> withoutPartner(const Partners& partners, std::size_t reference) {
  std::vector<bool> has(reference, false);
  for (const auto& partner : partners) {
    if (partner && partner->page < reference) has[partner->page] = true;
  }
  std::vector<std::size_t> left;
  for (std::size_t i = 0; i < reference; ++i) {
    if (!has[i]) left.push_back(i);
  }
  return left;
}

}  // namespace vellix::demo
