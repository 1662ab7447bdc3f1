// A described value as a QML value: structs become maps by field name, vectors lists, an empty
// optional undefined.
#pragma once

#include <QString>
#include <QVariant>
#include <string>

#include "records/described.hpp"
#include "records/records.hpp"

namespace vellix {

template <class T>
QVariant toQml(const T& value) {
  if constexpr (Described<T>) {
    QVariantMap map;
    forEachMember<T>([&](auto member) {
      map.insert(QString::fromLatin1(member.name), toQml(value.*member.pointer));
    });
    return map;
  } else if constexpr (isA<T, std::optional>) {
    return value ? toQml(*value) : QVariant{};
  } else if constexpr (isA<T, std::vector>) {
    QVariantList list;
    for (const auto& entry : value) list.push_back(toQml(entry));
    return list;
  } else if constexpr (std::is_same_v<T, std::string>) {
    return QString::fromStdString(value);
  } else if constexpr (std::is_same_v<T, Int>) {
    return QVariant::fromValue<qlonglong>(value);
  } else {
    return QVariant{value};
  }
}

}  // namespace vellix
