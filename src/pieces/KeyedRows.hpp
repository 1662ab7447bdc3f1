// A list of maps as the rows of a Repeater: a new list becomes the fewest inserts, removes, moves
// and changes, told by each map's "key", or by what else `by` names. So what stands for a row keeps
// its focus and its hover. A row has "key" and "value", which is the map. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "bridge/RowsModel.hpp"

namespace vellix {

struct KeyedRow {
  std::string key;
  QVariantMap value;
  bool operator==(const KeyedRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(KeyedRow, (), (key, value))

class KeyedRows : public RowsModel<KeyedRow, &KeyedRow::key> {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString by MEMBER by_)  // to be told once
  Q_PROPERTY(QVariantList rows READ list WRITE setList NOTIFY listChanged)

 public:
  using RowsModel::RowsModel;

  QVariantList list() const { return list_; }
  void setList(const QVariantList& list) {
    if (list == list_) return;
    list_ = list;
    std::vector<KeyedRow> rows;
    rows.reserve(static_cast<std::size_t>(list.size()));
    for (const QVariant& entry : list) {
      const QVariantMap value = entry.toMap();
      rows.push_back({value[by_].toString().toStdString(), value});
    }
    setRows(std::move(rows));
    emit listChanged();
  }

 signals:
  void listChanged();

 private:
  QString by_ = QStringLiteral("key");
  QVariantList list_;
};

}  // namespace vellix
