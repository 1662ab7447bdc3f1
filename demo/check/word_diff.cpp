#include "word_diff.hpp"

#include <algorithm>
#include <array>
#include <optional>

namespace vellix::demo {
namespace {

// So many words in and out between two anchors, and the shortest way is not looked for.
constexpr int kMostSteps = 300;
// Shorter ones are compared at once, without anchors.
constexpr std::size_t kShort = 400;
// Words in a row that make an anchor, first these and then those.
constexpr std::array<std::size_t, 2> kAnchors = {3, 1};

struct Range {
  std::size_t old = 0;
  std::size_t oldEnd = 0;
  std::size_t now = 0;
  std::size_t nowEnd = 0;
};

class Comparison {
 public:
  Comparison(std::span<const int> old, std::span<const int> now) : old_(old), now_(now) {}

  std::vector<Same> made() {
    compare({0, old_.size(), 0, now_.size()});
    std::ranges::sort(same_);
    return std::move(same_);
  }

 private:
  void put(std::size_t old, std::size_t now) {
    same_.emplace_back(static_cast<std::uint32_t>(old), static_cast<std::uint32_t>(now));
  }

  // Ranges wait in a list of their own: odd documents would nest them deeply.
  void compare(const Range& whole) {
    std::vector<Range> waiting{whole};
    while (!waiting.empty()) {
      Range range = waiting.back();
      waiting.pop_back();
      trim(range);
      const std::size_t olds = range.oldEnd - range.old;
      const std::size_t nows = range.nowEnd - range.now;
      if (olds == 0 || nows == 0) continue;
      if (olds + nows <= kShort && shortestWay(range)) continue;
      const auto anchors = anchorsIn(range);
      if (anchors.empty()) {
        if (olds + nows > kShort) shortestWay(range);
        continue;
      }
      Range between = range;
      for (const auto& [old, now] : anchors) {
        put(old, now);
        between.oldEnd = old;
        between.nowEnd = now;
        waiting.push_back(between);
        between.old = old + 1;
        between.now = now + 1;
      }
      between.oldEnd = range.oldEnd;
      between.nowEnd = range.nowEnd;
      waiting.push_back(between);
    }
  }

  void trim(Range& range) {
    while (range.old < range.oldEnd && range.now < range.nowEnd &&
           old_[range.old] == now_[range.now]) {
      put(range.old++, range.now++);
    }
    while (range.old < range.oldEnd && range.now < range.nowEnd &&
           old_[range.oldEnd - 1] == now_[range.nowEnd - 1]) {
      put(--range.oldEnd, --range.nowEnd);
    }
  }

  struct Place {
    std::array<int, 3> words{};
    bool isNow = false;
    std::size_t at = 0;
    auto operator<=>(const Place&) const = default;
  };

  // What stands exactly once in each, as far as its order is the same.
  std::vector<std::pair<std::size_t, std::size_t>> anchorsIn(const Range& range) const {
    for (const std::size_t length : kAnchors) {
      std::vector<Place> places;
      places.reserve(range.oldEnd - range.old + range.nowEnd - range.now);
      const auto gather = [&](std::span<const int> all, std::size_t from, std::size_t to,
                              bool now) {
        for (std::size_t i = from; i + length <= to; ++i) {
          Place place{{-1, -1, -1}, now, i};
          std::ranges::copy(all.subspan(i, length), place.words.begin());
          places.push_back(place);
        }
      };
      gather(old_, range.old, range.oldEnd, false);
      gather(now_, range.now, range.nowEnd, true);
      std::ranges::sort(places);
      std::vector<std::pair<std::size_t, std::size_t>> unique;
      for (std::size_t i = 0; i < places.size();) {
        std::size_t to = i + 1;
        while (to < places.size() && places[to].words == places[i].words) ++to;
        if (to - i == 2 && !places[i].isNow && places[i + 1].isNow) {
          unique.emplace_back(places[i].at, places[i + 1].at);
        }
        i = to;
      }
      std::ranges::sort(unique);
      if (auto longest = longestRise(unique); !longest.empty()) return longest;
    }
    return {};
  }

  static std::vector<std::pair<std::size_t, std::size_t>> longestRise(
      const std::vector<std::pair<std::size_t, std::size_t>>& pairs) {
    constexpr std::size_t kNone = ~std::size_t{0};
    std::vector<std::size_t> ends;  // by length, the pair that ends it lowest
    std::vector<std::size_t> before(pairs.size(), kNone);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      const auto at = std::ranges::lower_bound(ends, pairs[i].second, {},
                                               [&](std::size_t end) { return pairs[end].second; });
      if (at != ends.begin()) before[i] = *(at - 1);
      if (at == ends.end()) {
        ends.push_back(i);
      } else {
        *at = i;
      }
    }
    std::vector<std::pair<std::size_t, std::size_t>> rise;
    for (std::size_t i = ends.empty() ? kNone : ends.back(); i != kNone; i = before[i]) {
      rise.push_back(pairs[i]);
    }
    std::ranges::reverse(rise);
    return rise;
  }

  // By the shortest way of putting in and taking out (Myers's greedy one); false where it is long.
  bool shortestWay(const Range& range) {
    const auto n = static_cast<int>(range.oldEnd - range.old);
    const auto m = static_cast<int>(range.nowEnd - range.now);
    const int most = std::min(n + m, kMostSteps);
    const auto same = [&](int x, int y) {
      return old_[range.old + static_cast<std::size_t>(x)] ==
             now_[range.now + static_cast<std::size_t>(y)];
    };
    std::vector<std::vector<int>> trace;
    std::vector<int> reach(2 * static_cast<std::size_t>(most) + 3, 0);
    const auto at = [most](int k) { return static_cast<std::size_t>(k + most + 1); };
    const auto comesDown = [&](const std::vector<int>& by, int k, int d) {
      return k == -d || (k != d && by[at(k - 1)] < by[at(k + 1)]);
    };
    int steps = -1;
    for (int d = 0; d <= most && steps < 0; ++d) {
      trace.push_back(reach);
      for (int k = -d; k <= d; k += 2) {
        int x = comesDown(reach, k, d) ? reach[at(k + 1)] : reach[at(k - 1)] + 1;
        while (x < n && x - k < m && x - k >= 0 && same(x, x - k)) ++x;
        reach[at(k)] = x;
        if (x >= n && x - k >= m) steps = d;
      }
    }
    if (steps < 0) return false;
    int x = n;
    int y = m;
    for (int d = steps; d >= 0; --d) {
      const auto& by = trace[static_cast<std::size_t>(d)];
      const int k = x - y;
      const int fromK = comesDown(by, k, d) ? k + 1 : k - 1;
      const int fromX = d == 0 ? 0 : by[at(fromK)];
      const int fromY = d == 0 ? 0 : fromX - fromK;
      while (x > fromX && y > fromY && same(x - 1, y - 1)) {
        --x;
        --y;
        put(range.old + static_cast<std::size_t>(x), range.now + static_cast<std::size_t>(y));
      }
      x = fromX;
      y = fromY;
    }
    return true;
  }

  std::span<const int> old_;
  std::span<const int> now_;
  std::vector<Same> same_;
};

}  // namespace

std::vector<Same> commonOf(std::span<const int> old, std::span<const int> now) {
  return Comparison(old, now).made();
}

}  // namespace vellix::demo
