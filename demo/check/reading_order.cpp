#include "reading_order.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace vellix::demo {
namespace {

using Order = std::vector<std::uint32_t>;

// In points: lines of a column begin at the same place.
constexpr double kAside = 1.5;
// What is free to the left of a column, and how many lines it must have to be one: without white
// space in between there must be more, since spaces of some lines may lie under each other.
struct Gutter {
  double width = 0;
  std::size_t lines = 0;
};
constexpr std::array kGutters{Gutter{8, 3}, Gutter{0.1, 6}};
constexpr int kDeepest = 12;

struct Split {
  double x = 0;
  double top = 0;
  double bottom = 0;
  std::size_t lines = 0;
};

class Columns {
 public:
  explicit Columns(const PdfPage& page) : page_(page) {}

  Order made() {
    Order all;
    for (std::size_t i = 0; i < page_.words.size(); ++i)
      all.push_back(static_cast<std::uint32_t>(i));
    put(all, 0);
    return std::move(order_);
  }

 private:
  double left(std::uint32_t word) const { return page_.words[word].box.left() * page_.width; }
  double right(std::uint32_t word) const { return page_.words[word].box.right() * page_.width; }
  double middle(std::uint32_t word) const {
    return page_.words[word].box.center().y() * page_.height;
  }

  void put(const Order& words, int depth) {
    const auto split = depth < kDeepest ? splitOf(words) : std::nullopt;
    if (!split) {
      order_.insert(order_.end(), words.begin(), words.end());
      return;
    }
    std::array<Order, 4> parts;  // above, the column to the left, that to the right, below
    for (const std::uint32_t word : words) {
      const double y = middle(word);
      const bool within = y > split->top && y < split->bottom;
      const bool beside = left(word) >= split->x - kAside;
      parts[within ? (beside ? 2 : 1) : (y >= split->bottom ? 3 : 0)].push_back(word);
    }
    const bool empty = parts[1].empty() || parts[2].empty();
    for (const Order& part : parts) put(part, empty ? kDeepest : depth + 1);
  }

  std::optional<Split> splitOf(const Order& words) const {
    Order byLeft;
    for (const std::uint32_t word : words) {
      if (std::isfinite(left(word) + right(word) + middle(word))) byLeft.push_back(word);
    }
    std::ranges::stable_sort(byLeft, {}, [this](std::uint32_t word) { return left(word); });
    for (const Gutter& gutter : kGutters) {
      std::optional<Split> best;
      for (std::size_t from = 0; from < byLeft.size();) {
        std::size_t to = from;
        while (to < byLeft.size() && left(byLeft[to]) - left(byLeft[from]) <= kAside) ++to;
        if (to - from >= gutter.lines) {
          const Order starts(byLeft.begin() + static_cast<std::ptrdiff_t>(from),
                             byLeft.begin() + static_cast<std::ptrdiff_t>(to));
          const auto split = freeBeside(byLeft, starts, gutter);
          if (split && (!best || split->lines > best->lines)) best = split;
        }
        from = std::max(from + 1, to);
      }
      if (best) return best;
    }
    return std::nullopt;
  }

  // The longest way down along the starts of these words that nothing crosses.
  std::optional<Split> freeBeside(const Order& words, const Order& starts,
                                  const Gutter& gutter) const {
    const double x = left(starts.front());
    std::vector<double> blocked{-1e9, 1e9};
    std::vector<double> beside;
    for (const std::uint32_t word : words) {
      if (left(word) >= x) break;
      (right(word) > x - gutter.width ? blocked : beside).push_back(middle(word));
    }
    std::ranges::sort(blocked);
    std::ranges::sort(beside);
    std::vector<double> begins;
    for (const std::uint32_t word : starts) begins.push_back(middle(word));
    std::ranges::sort(begins);
    const auto within = [](const std::vector<double>& all, double top, double bottom) {
      return static_cast<std::size_t>(std::ranges::lower_bound(all, bottom) -
                                      std::ranges::upper_bound(all, top));
    };
    std::optional<Split> best;
    for (std::size_t i = 0; i + 1 < blocked.size(); ++i) {
      const Split split{x, blocked[i], blocked[i + 1], within(begins, blocked[i], blocked[i + 1])};
      if (split.lines < gutter.lines || (best && best->lines >= split.lines)) continue;
      if (within(beside, split.top, split.bottom) >= gutter.lines) best = split;
    }
    return best;
  }

  const PdfPage& page_;
  Order order_;
};

}  // namespace

std::vector<std::uint32_t> columnOrder(const PdfPage& page) { return Columns(page).made(); }

}  // namespace vellix::demo
