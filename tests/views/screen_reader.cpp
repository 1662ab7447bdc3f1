#include "views/screen_reader.hpp"

#include <functional>

namespace vellix {
namespace {

// Visits the visible objects until one of them is taken.
QAccessibleInterface* visit(QAccessibleInterface* from,
                            const std::function<bool(QAccessibleInterface*)>& takes) {
  if (!from || !from->isValid() || from->state().invisible) return nullptr;
  if (takes(from)) return from;
  for (int i = 0; i < from->childCount(); ++i) {
    if (auto* found = visit(from->child(i), takes)) return found;
  }
  return nullptr;
}

}  // namespace

QAccessibleInterface* ScreenReader::find(const QString& name, QAccessible::Role role) const {
  return visit(QAccessible::queryAccessibleInterface(window_), [&](QAccessibleInterface* each) {
    return each->role() == role && each->text(QAccessible::Name) == name;
  });
}

bool ScreenReader::press(const QString& name, QAccessible::Role role) const {
  auto* object = find(name, role);
  auto* actions = object ? object->actionInterface() : nullptr;
  if (!actions) return false;
  const QStringList offered = actions->actionNames();
  for (const QString& action :
       {QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::toggleAction()}) {
    if (!offered.contains(action)) continue;
    actions->doAction(action);
    return true;
  }
  return false;
}

int ScreenReader::enabled(const QString& name, QAccessible::Role role) const {
  int count = 0;
  visit(QAccessible::queryAccessibleInterface(window_), [&](QAccessibleInterface* each) {
    const bool wanted = each->role() == role && each->text(QAccessible::Name) == name;
    if (wanted && !each->state().disabled) ++count;
    return false;
  });
  return count;
}

QStringList ScreenReader::told(QAccessibleInterface* object) const {
  QStringList all;
  visit(object, [&](QAccessibleInterface* each) {
    const QString name = each->text(QAccessible::Name);
    const QString more = each->text(QAccessible::Description);
    if (!name.isEmpty()) all.append(more.isEmpty() ? name : name + " | " + more);
    return false;
  });
  return all;
}

QStringList ScreenReader::names(QAccessible::Role role) const {
  QStringList all;
  visit(QAccessible::queryAccessibleInterface(window_), [&](QAccessibleInterface* each) {
    if (each->role() == role) all.append(each->text(QAccessible::Name));
    return false;
  });
  return all;
}

}  // namespace vellix
