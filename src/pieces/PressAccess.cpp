#include "PressAccess.hpp"

#include <QAccessible>
#include <QPointer>

#include "PressArea.hpp"

namespace vellix {
namespace {

// Qt Quick's own interface of an item, with more of its state.
class PressAccess : public QAccessibleInterface {
 public:
  // Both go with the item.
  PressAccess(QQuickItem* item, QAccessibleInterface* plain) : item_(item), plain_(plain) {}

  QAccessible::State state() const override {
    QAccessible::State state = plain_->state();
    if (!item_) return state;
    state.disabled = !item_->isEnabled();
    if (const auto* area = qobject_cast<const PressArea*>(item_.get())) {
      state.disabled |= area->idle();
      state.expandable = area->expandable();
      state.expanded = area->expandable() && area->expanded();
      state.collapsed = area->expandable() && !area->expanded();
    }
    return state;
  }

  bool isValid() const override { return item_ && plain_->isValid(); }
  QObject* object() const override { return item_; }
  QWindow* window() const override { return plain_->window(); }
  QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation match) const override {
    return plain_->relations(match);
  }
  QAccessibleInterface* focusChild() const override { return plain_->focusChild(); }
  QAccessibleInterface* childAt(int x, int y) const override { return plain_->childAt(x, y); }
  QAccessibleInterface* parent() const override { return plain_->parent(); }
  QAccessibleInterface* child(int index) const override { return plain_->child(index); }
  int childCount() const override { return plain_->childCount(); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return plain_->indexOfChild(child);
  }
  QString text(QAccessible::Text which) const override { return plain_->text(which); }
  void setText(QAccessible::Text which, const QString& text) override {
    plain_->setText(which, text);
  }
  QRect rect() const override { return plain_->rect(); }
  QAccessible::Role role() const override { return plain_->role(); }
  QColor foregroundColor() const override { return plain_->foregroundColor(); }
  QColor backgroundColor() const override { return plain_->backgroundColor(); }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return plain_->interface_cast(type);
  }

 private:
  QPointer<QQuickItem> item_;
  QAccessibleInterface* plain_;
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
