// The lines of a list, each with a key. A new vector becomes the fewest removes, moves, inserts and
// changes, so delegates stay where their line stays. Of lines with the same key the first counts.
// Main thread only.
#pragma once

#include <QAbstractListModel>
#include <algorithm>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "bridge/longest_run.hpp"

namespace vellix {

// `Key` is a field or a function of the line.
template <class Line, auto Key>
class KeyedLines : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
  }

  const std::vector<Line>& lines() const { return lines_; }

 protected:
  using KeyType = std::remove_cvref_t<std::invoke_result_t<decltype(Key), const Line&>>;

  // Brings the lines into the order of the new ones, which are left without repeats. What else
  // differs between them is still to be changed.
  void arrange(std::vector<Line>& next) {
    // The lines here have no repeats, so neither have new ones with the same keys.
    if (std::ranges::equal(lines_, next, {}, Key, Key)) return;
    dropRepeats(next);
    removeGone(next);
    place(next);
  }

  std::vector<Line> lines_;

 private:
  static KeyType keyOf(const Line& line) { return std::invoke(Key, line); }

  static void dropRepeats(std::vector<Line>& lines) {
    std::unordered_set<KeyType> seen(lines.size());
    std::erase_if(lines, [&](const Line& line) { return !seen.insert(keyOf(line)).second; });
  }

  void removeGone(const std::vector<Line>& next) {
    std::unordered_set<KeyType> kept(next.size());
    for (const Line& line : next) kept.insert(keyOf(line));
    for (std::size_t end = lines_.size(); end > 0;) {
      if (kept.contains(keyOf(lines_[end - 1]))) {
        --end;
        continue;
      }
      std::size_t begin = end - 1;
      while (begin > 0 && !kept.contains(keyOf(lines_[begin - 1]))) --begin;
      beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
      lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(begin),
                   lines_.begin() + static_cast<std::ptrdiff_t>(end));
      endRemoveRows();
      end = begin;
    }
  }

  // The lines that keep their order stay; the others are moved or inserted behind the line that
  // comes before them, from the top down.
  void place(const std::vector<Line>& next) {
    std::unordered_map<KeyType, std::size_t> present(lines_.size());
    for (std::size_t i = 0; i < lines_.size(); ++i) present.emplace(keyOf(lines_[i]), i);
    std::vector<std::size_t> order;
    for (const Line& line : next) {
      if (const auto at = present.find(keyOf(line)); at != present.end())
        order.push_back(at->second);
    }
    std::vector<bool> steady(lines_.size());
    for (const std::size_t at : longestRisingRun(order)) steady[at] = true;

    std::size_t cursor = 0;
    for (std::size_t i = 0; i < next.size(); ++i) {
      const auto at = present.find(keyOf(next[i]));
      if (at == present.end()) {
        i = insertRun(next, i, cursor, present);
      } else if (steady[at->second]) {
        while (keyOf(lines_[cursor]) != keyOf(next[i])) ++cursor;
        ++cursor;
      } else {
        moveTo(keyOf(next[i]), cursor);
      }
    }
  }

  // Inserts all the new lines that follow one another here; gives the index of the last.
  std::size_t insertRun(const std::vector<Line>& next, std::size_t first, std::size_t& cursor,
                        const std::unordered_map<KeyType, std::size_t>& present) {
    std::size_t last = first;
    while (last + 1 < next.size() && !present.contains(keyOf(next[last + 1]))) ++last;
    const std::size_t count = last - first + 1;
    beginInsertRows({}, static_cast<int>(cursor), static_cast<int>(cursor + count) - 1);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(cursor),
                  next.begin() + static_cast<std::ptrdiff_t>(first),
                  next.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    endInsertRows();
    cursor += count;
    return last;
  }

  void moveTo(const KeyType& key, std::size_t& cursor) {
    const auto found = std::ranges::find(lines_, key, Key);
    const auto from = static_cast<std::size_t>(found - lines_.begin());
    if (from == cursor) {
      ++cursor;
      return;
    }
    beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {}, static_cast<int>(cursor));
    Line line = std::move(lines_[from]);
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t to = from < cursor ? cursor - 1 : cursor;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(to), std::move(line));
    endMoveRows();
    cursor = to + 1;
  }
};

}  // namespace vellix
