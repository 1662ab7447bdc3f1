#include "word_changes.hpp"

#include <algorithm>
#include <cmath>

namespace vellix::demo {
namespace {

// So many words in and out, and two pages have little in common.
constexpr int kMostSteps = 400;
// Changes with no more than so many same words between them are one.
constexpr std::size_t kBridged = 1;

bool onOneLine(const QRectF& before, const QRectF& after) {
  const double lower = std::min(before.height(), after.height());
  return std::abs(before.center().y() - after.center().y()) < lower * 0.5 &&
         after.left() >= before.left();
}

struct Pair {
  std::size_t old = 0;
  std::size_t now = 0;
};

// The words that both have, by the shortest way of putting in and taking out (Myers's greedy one).
std::optional<std::vector<Pair>> common(const std::vector<PdfWord>& old,
                                        const std::vector<PdfWord>& now) {
  const int n = static_cast<int>(old.size());
  const int m = static_cast<int>(now.size());
  const int most = std::min(n + m, kMostSteps);
  const auto same = [&](int x, int y) {
    return old[static_cast<std::size_t>(x)].text == now[static_cast<std::size_t>(y)].text;
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
  if (steps < 0) return std::nullopt;
  std::vector<Pair> pairs;
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
      pairs.push_back({static_cast<std::size_t>(x), static_cast<std::size_t>(y)});
    }
    x = fromX;
    y = fromY;
  }
  std::ranges::reverse(pairs);
  return pairs;
}

}  // namespace

std::optional<PageChanges> changesOf(const std::vector<PdfWord>& old,
                                     const std::vector<PdfWord>& now) {
  const auto pairs = common(old, now);
  if (!pairs || (pairs->empty() && !old.empty() && !now.empty())) return std::nullopt;
  PageChanges changes;
  WordChange open;
  const auto add = [&](const WordChange& change) {
    if (change.oldFrom == change.oldTo && change.newFrom == change.newTo) return;
    auto& all = changes.words;
    if (!all.empty() && change.oldFrom - all.back().oldTo <= kBridged) {
      all.back().oldTo = change.oldTo;
      all.back().newTo = change.newTo;
    } else {
      all.push_back(change);
    }
  };
  for (std::size_t i = 0; i < pairs->size(); ++i) {
    const Pair& pair = (*pairs)[i];
    add({open.oldFrom, pair.old, open.newFrom, pair.now});
    open = {pair.old + 1, 0, pair.now + 1, 0};
    if (i == 0) continue;
    const Pair& before = (*pairs)[i - 1];
    if (before.old + 1 != pair.old || before.now + 1 != pair.now) continue;
    if (onOneLine(old[before.old].box, old[pair.old].box) !=
        onOneLine(now[before.now].box, now[pair.now].box)) {
      changes.breaks.push_back({pair.old, pair.now});
    }
  }
  add({open.oldFrom, old.size(), open.newFrom, now.size()});
  return changes;
}

std::vector<QRectF> boxesOf(const std::vector<PdfWord>& words, std::size_t from, std::size_t to) {
  std::vector<QRectF> boxes;
  for (std::size_t i = from; i < to; ++i) {
    if (i > from && onOneLine(words[i - 1].box, words[i].box)) {
      boxes.back() = boxes.back().united(words[i].box);
    } else {
      boxes.push_back(words[i].box);
    }
  }
  return boxes;
}

}  // namespace vellix::demo
