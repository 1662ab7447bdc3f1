// A list of described rows for a view. A new vector becomes the fewest removes, moves, inserts and
// changes, so delegates stay where their row stays. One role a field, under the field's name.
// Of rows with the same key the first counts. Main thread only.
#pragma once

#include <QAbstractListModel>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "bridge/longest_run.hpp"
#include "bridge/value.hpp"

namespace vellix {

template <Described Row, auto Key>
class RowsModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (index.row() < 0 || index.row() >= rowCount()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    QVariant value;
    int at = kFirstRole;
    forEachMember<Row>([&](auto member) {
      if (at++ == role) value = toQml(row.*member.pointer);
    });
    return value;
  }

  QHash<int, QByteArray> roleNames() const override {
    QHash<int, QByteArray> names;
    int at = kFirstRole;
    forEachMember<Row>([&](auto member) { names.insert(at++, member.name); });
    return names;
  }

  const std::vector<Row>& rows() const { return rows_; }

  void setRows(std::vector<Row> next) {
    // The rows here have no repeats, so neither have new ones with the same keys.
    if (!sameKeys(next)) {
      dropRepeats(next);
      removeGone(next);
      place(next);
    }
    for (std::size_t i = 0; i < next.size(); ++i) {
      if (rows_[i] != next[i]) change(i, std::move(next[i]));
    }
  }

 private:
  static constexpr int kFirstRole = Qt::UserRole + 1;
  using KeyType = std::remove_cvref_t<decltype(std::declval<Row>().*Key)>;

  static void dropRepeats(std::vector<Row>& rows) {
    std::unordered_set<KeyType> seen;
    std::erase_if(rows, [&](const Row& row) { return !seen.insert(row.*Key).second; });
  }

  bool sameKeys(const std::vector<Row>& next) const {
    return std::ranges::equal(rows_, next, {}, Key, Key);
  }

  void removeGone(const std::vector<Row>& next) {
    std::unordered_set<KeyType> kept;
    for (const Row& row : next) kept.insert(row.*Key);
    for (std::size_t end = rows_.size(); end > 0;) {
      if (kept.contains(rows_[end - 1].*Key)) {
        --end;
        continue;
      }
      std::size_t begin = end - 1;
      while (begin > 0 && !kept.contains(rows_[begin - 1].*Key)) --begin;
      beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
      rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(begin),
                  rows_.begin() + static_cast<std::ptrdiff_t>(end));
      endRemoveRows();
      end = begin;
    }
  }

  // The rows that keep their order stay; the others are moved or inserted behind the row that
  // comes before them, from the top down.
  void place(const std::vector<Row>& next) {
    std::unordered_map<KeyType, std::size_t> present;
    for (std::size_t i = 0; i < rows_.size(); ++i) present.emplace(rows_[i].*Key, i);
    std::vector<std::size_t> order;
    for (const Row& row : next) {
      if (const auto at = present.find(row.*Key); at != present.end()) order.push_back(at->second);
    }
    std::unordered_set<std::size_t> steady;
    for (const std::size_t at : longestRisingRun(order)) steady.insert(at);

    std::size_t cursor = 0;
    for (std::size_t i = 0; i < next.size(); ++i) {
      const auto at = present.find(next[i].*Key);
      if (at == present.end()) {
        i = insertRun(next, i, cursor, present);
      } else if (steady.contains(at->second)) {
        while (rows_[cursor].*Key != next[i].*Key) ++cursor;
        ++cursor;
      } else {
        moveTo(next[i].*Key, cursor);
      }
    }
  }

  // Inserts all the new rows that follow one another here; gives the index of the last.
  std::size_t insertRun(const std::vector<Row>& next, std::size_t first, std::size_t& cursor,
                        const std::unordered_map<KeyType, std::size_t>& present) {
    std::size_t last = first;
    while (last + 1 < next.size() && !present.contains(next[last + 1].*Key)) ++last;
    const std::size_t count = last - first + 1;
    beginInsertRows({}, static_cast<int>(cursor), static_cast<int>(cursor + count) - 1);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(cursor),
                 next.begin() + static_cast<std::ptrdiff_t>(first),
                 next.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    endInsertRows();
    cursor += count;
    return last;
  }

  void moveTo(const KeyType& key, std::size_t& cursor) {
    const auto found = std::ranges::find(rows_, key, Key);
    const auto from = static_cast<std::size_t>(found - rows_.begin());
    if (from == cursor) {
      ++cursor;
      return;
    }
    beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {}, static_cast<int>(cursor));
    Row row = std::move(rows_[from]);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t to = from < cursor ? cursor - 1 : cursor;
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(to), std::move(row));
    endMoveRows();
    cursor = to + 1;
  }

  void change(std::size_t at, Row&& next) {
    Row& row = rows_[at];
    QList<int> roles;
    int role = kFirstRole;
    forEachMember<Row>([&](auto member) {
      if (!(row.*member.pointer == next.*member.pointer)) roles.push_back(role);
      ++role;
    });
    row = std::move(next);
    const QModelIndex changed = index(static_cast<int>(at));
    emit dataChanged(changed, changed, roles);
  }

  std::vector<Row> rows_;
};

}  // namespace vellix
