// Rows of which a view sees a few out of thousands: see `KeyedLines`. The list holds a small line
// for each, and makes the row of it when it is asked for. The made one lasts as long as somebody
// holds what the role "kept" gives, and some of the last in any case; once asked for, it tells like
// all others when it changes. One role a field, under the field's name. Main thread only.
#pragma once

#include <QPersistentModelIndex>
#include <array>
#include <memory>

#include "bridge/KeyedLines.hpp"
#include "bridge/roles.hpp"

namespace vellix {

// Lines are compared by ==, and equal ones make equal rows but for what moves with time.
template <Described Row, class Line, auto Key>
class LazyRowsModel : public KeyedLines<Line, Key> {
 public:
  using Make = std::function<Row(const Line&)>;
  explicit LazyRowsModel(Make make) : make_(std::move(make)) {}

  QVariant data(const QModelIndex& index, int role) const override {
    if (index.row() < 0 || index.row() >= this->rowCount()) return {};
    const auto row = made(index);
    return role == kKept ? QVariant::fromValue(std::shared_ptr<void>(row))
                         : fieldOfRole(*row, role);
  }

  QHash<int, QByteArray> roleNames() const override {
    auto names = rolesOf<Row>();
    names.insert(kKept, "kept");
    return names;
  }

  // What the lines held so far refer to must outlive the call, and the new until the next.
  void setLines(std::vector<Line> next) {
    this->arrange(next);
    const auto known = heldRows();
    auto one = known.begin();
    for (std::size_t at = 0; at < next.size(); ++at) {
      const bool isKnown = one != known.end() && one->first == static_cast<int>(at);
      const auto row = isKnown ? (one++)->second : nullptr;
      Line& line = this->lines_[at];
      const bool same = line == next[at];
      if (same && !row) {
        line = std::move(next[at]);
        continue;
      }
      const Row before = row ? *row : make_(line);
      line = std::move(next[at]);
      Row after = make_(line);
      const QList<int> roles = differingRoles(before, after);
      if (roles.isEmpty()) continue;
      if (row) *row = std::move(after);
      const QModelIndex changed = this->index(static_cast<int>(at));
      emit this->dataChanged(changed, changed, roles);
    }
  }

 private:
  static constexpr int kKept = Qt::UserRole;
  static constexpr std::size_t kLast = 64;
  struct Made {
    QPersistentModelIndex at;
    std::weak_ptr<Row> row;
  };

  std::shared_ptr<Row> made(const QModelIndex& index) const {
    // A row is asked for each of its fields in turn.
    const auto newest = std::find_if(made_.rbegin(), made_.rend(), [&](const Made& one) {
      return one.at.row() == index.row() && !one.row.expired();
    });
    if (newest != made_.rend()) return newest->row.lock();
    std::erase_if(made_, [](const Made& one) { return one.row.expired() || !one.at.isValid(); });
    auto row = std::make_shared<Row>(make_(this->lines_[static_cast<std::size_t>(index.row())]));
    made_.push_back({index, row});
    last_[next_++ % kLast] = row;
    return row;
  }

  // By their places, rising.
  std::vector<std::pair<int, std::shared_ptr<Row>>> heldRows() const {
    std::vector<std::pair<int, std::shared_ptr<Row>>> rows;
    for (const Made& one : made_) {
      if (auto row = one.row.lock(); row && one.at.isValid()) {
        rows.emplace_back(one.at.row(), std::move(row));
      }
    }
    std::ranges::sort(rows, {}, [](const auto& row) { return row.first; });
    return rows;
  }

  Make make_;
  mutable std::vector<Made> made_;
  mutable std::array<std::shared_ptr<Row>, kLast> last_;
  mutable std::size_t next_ = 0;
};

}  // namespace vellix
