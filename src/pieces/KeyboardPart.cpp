#include "pieces/KeyboardPart.hpp"

#include <QQuickWindow>
#include <vector>

namespace vellix {
namespace {

struct Walk {
  const QQuickItem* keyed = nullptr;
  std::vector<KeyboardPart*> parts;
  int before = 0;  // how many come before what has the keyboard
};

bool isWithin(const QQuickItem* outer, const QQuickItem* item) {
  return outer && item && (outer == item || outer->isAncestorOf(item));
}

void walkThrough(QQuickItem* item, Walk& walk) {
  if (!item->isVisible() || !item->isEnabled()) return;
  if (item == walk.keyed) walk.before = static_cast<int>(walk.parts.size());
  if (auto* part = qobject_cast<KeyboardPart*>(item)) walk.parts.push_back(part);
  const auto children = item->childItems();
  for (QQuickItem* child : children) walkThrough(child, walk);
}

}  // namespace

bool KeyboardPart::has(const QQuickItem* item) const {
  return isWithin(around_, item) || isWithin(also_, item);
}

bool KeyboardPart::take() {
  QQuickItem* first = at_ ? at_.data() : nextItemInFocusChain();
  if (!has(first)) return false;
  first->forceActiveFocus(Qt::TabFocusReason);
  return true;
}

void KeyboardPart::step(QQuickItem& root, int by) {
  Walk walk{.keyed = root.window() ? root.window()->activeFocusItem() : nullptr, .parts = {}};
  walkThrough(&root, walk);
  const int count = static_cast<int>(walk.parts.size());
  int at = by > 0 ? walk.before - 1 : walk.before;
  for (int i = 0; i < count; ++i) {
    if (walk.parts[static_cast<std::size_t>(i)]->has(walk.keyed)) at = i;
  }
  for (int tries = 0; tries < count; ++tries) {
    at = (at + by + count) % count;
    if (walk.parts[static_cast<std::size_t>(at)]->take()) return;
  }
}

void KeyboardParts::step(int by) {
  if (within_) KeyboardPart::step(*within_, by);
}

}  // namespace vellix
