#include "PressAccess.hpp"

#include "PlainAccess.hpp"
#include "PressArea.hpp"

namespace vellix {
namespace {

// With more of an item's state.
class PressAccess : public PlainAccess {
 public:
  using PlainAccess::PlainAccess;

  QAccessible::State state() const override {
    QAccessible::State state = PlainAccess::state();
    if (!item()) return state;
    state.disabled = !item()->isEnabled();
    if (const auto* area = qobject_cast<const PressArea*>(item())) {
      state.disabled |= area->idle();
      state.expandable = area->expandable();
      state.expanded = area->expandable() && area->expanded();
      state.collapsed = area->expandable() && !area->expanded();
    }
    return state;
  }
};

enum class Change { disabled, expanded };

void tell(QQuickItem* item, Change change) {
  QAccessible::State changed;
  changed.disabled = change == Change::disabled;
  changed.expanded = changed.collapsed = change == Change::expanded;
  QAccessibleStateChangeEvent event{item, changed};
  QAccessible::updateAccessibility(&event);
}

// Qt makes an item another interface where it comes to know more of its type; only the last one
// tells.
void watch(QQuickItem* item, const QAccessibleInterface* access) {
  const auto telling = [item, access](Change change) {
    return [item, access, change] {
      if (QAccessible::queryAccessibleInterface(item) == access) tell(item, change);
    };
  };
  QObject::connect(item, &QQuickItem::enabledChanged, item, telling(Change::disabled));
  const auto* area = qobject_cast<const PressArea*>(item);
  if (!area) return;
  QObject::connect(area, &PressArea::idleChanged, item, telling(Change::disabled));
  QObject::connect(area, &PressArea::expandedChanged, item, telling(Change::expanded));
}

bool isOurs(const QString& type) {
  return type == QLatin1String{PressArea::staticMetaObject.className()} ||
         type == QLatin1String{"QQuickTextEdit"};
}

// Qt Quick makes its interface when it is asked once more. Both stay known to Qt until the item
// goes, of which it finds the one that was made last.
QAccessibleInterface* accessTo(const QString& type, QObject* object) {
  static bool asking = false;
  auto* item = isOurs(type) ? qobject_cast<QQuickItem*>(object) : nullptr;
  if (asking || !item) return nullptr;
  asking = true;
  QAccessibleInterface* plain = QAccessible::queryAccessibleInterface(item);
  asking = false;
  if (!plain) return nullptr;
  auto* access = new PressAccess{item, plain};
  watch(item, access);
  return access;
}

}  // namespace

void tellStates() {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(accessTo), true);
}

}  // namespace vellix
