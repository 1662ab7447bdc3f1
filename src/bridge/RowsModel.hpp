// A list of described rows for a view: see `KeyedLines`. One role a field, under the field's name.
// Main thread only.
#pragma once

#include "bridge/KeyedLines.hpp"
#include "bridge/roles.hpp"

namespace vellix {

template <Described Row, auto Key>
class RowsModel : public KeyedLines<Row, Key> {
  using Lines = KeyedLines<Row, Key>;

 public:
  using Lines::Lines;

  QVariant data(const QModelIndex& index, int role) const override {
    const bool any = index.row() >= 0 && index.row() < this->rowCount();
    return any ? fieldOfRole(rows()[static_cast<std::size_t>(index.row())], role) : QVariant{};
  }

  QHash<int, QByteArray> roleNames() const override { return rolesOf<Row>(); }

  const std::vector<Row>& rows() const { return this->lines(); }

  void setRows(std::vector<Row> next) {
    this->arrange(next);
    for (std::size_t at = 0; at < next.size(); ++at) {
      Row& row = this->lines_[at];
      const QList<int> roles = differingRoles(row, next[at]);
      if (roles.isEmpty()) continue;
      row = std::move(next[at]);
      const QModelIndex changed = this->index(static_cast<int>(at));
      emit this->dataChanged(changed, changed, roles);
    }
  }
};

}  // namespace vellix
