// The fields of a described row as the roles of a list model.
#pragma once

#include <QHash>
#include <QList>

#include "bridge/value.hpp"

namespace vellix {

inline constexpr int kFirstRole = Qt::UserRole + 1;

template <Described Row>
QHash<int, QByteArray> rolesOf() {
  QHash<int, QByteArray> names;
  int at = kFirstRole;
  forEachMember<Row>([&](auto member) { names.insert(at++, member.name); });
  return names;
}

template <Described Row>
QVariant fieldOfRole(const Row& row, int role) {
  QVariant value;
  int at = kFirstRole;
  forEachMember<Row>([&](auto member) {
    if (at++ == role) value = toQml(row.*member.pointer);
  });
  return value;
}

template <Described Row>
QList<int> differingRoles(const Row& one, const Row& other) {
  QList<int> roles;
  int role = kFirstRole;
  forEachMember<Row>([&](auto member) {
    if (!(one.*member.pointer == other.*member.pointer)) roles.push_back(role);
    ++role;
  });
  return roles;
}

}  // namespace vellix
