// A described value as a QML value: structs become maps by field name, vectors lists, an empty
// optional undefined; rectangles, points and sizes become QML's own.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVariant>
#include <string>

#include "records/described.hpp"
#include "records/geometry.hpp"
#include "records/records.hpp"

namespace vellix {

inline QRectF rectOf(const Box& box) { return {box.x, box.y, box.width, box.height}; }
inline QPointF pointOf(Spot spot) { return {spot.x, spot.y}; }
inline QSizeF sizeOf(Extent extent) { return {extent.width, extent.height}; }
inline Box boxOf(const QRectF& rect) { return {rect.x(), rect.y(), rect.width(), rect.height()}; }
inline Spot spotOf(QPointF point) { return {point.x(), point.y()}; }
inline Extent extentOf(QSizeF size) { return {size.width(), size.height()}; }

inline QVariant toQml(const Box& box) { return rectOf(box); }
inline QVariant toQml(Spot spot) { return pointOf(spot); }
inline QVariant toQml(Extent extent) { return sizeOf(extent); }

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

// What a described value, or a vector of them, is in QML. Properties are declared as this, so that
// lint knows which value it is.
template <class T>
using Qml = std::conditional_t<isA<T, std::vector>, QVariantList, QVariantMap>;

}  // namespace vellix
