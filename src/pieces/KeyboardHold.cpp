#include "pieces/KeyboardHold.hpp"

#include <QQuickWindow>
#include <utility>
#include <vector>

#include "pieces/PressArea.hpp"

namespace vellix {
namespace {

bool has(const QQuickItem* outer, const QQuickItem* inner) {
  return outer && inner && (outer == inner || outer->isAncestorOf(inner));
}

}  // namespace

void KeyboardHold::setAround(QQuickItem* around) {
  if (around_ == around) return;
  if (around_) around_->disconnect(this);
  around_ = around;
  if (around_) connect(around_, &QQuickItem::windowChanged, this, &KeyboardHold::follow);
  follow();
  emit aroundChanged();
}

void KeyboardHold::follow() {
  if (window_) window_->disconnect(this);
  window_ = around_ ? around_->window() : nullptr;
  if (window_) connect(window_, &QQuickWindow::activeFocusItemChanged, this, &KeyboardHold::look);
  look();
}

void KeyboardHold::look() {
  QQuickItem* keyed = window_ ? window_->activeFocusItem() : nullptr;
  if (std::exchange(keyed_, keyed) == keyed) return;
  const bool within = isIn(around_) && keyed != around_;
  if (within) {
    const auto* area = qobject_cast<PressArea*>(keyed);
    const bool ringed = !area || area->visualFocus();
    if (std::exchange(ringed_, ringed) != ringed) emit ringedChanged();
  }
  // What is around the item may have it for want of anybody else.
  const bool held = within || (held_ && (!keyed || has(keyed, around_)));
  if (std::exchange(held_, held) != held) emit heldChanged();
  const bool lost = held_ && keyed && !isIn(around_);
  if (std::exchange(lost_, lost) != lost) emit lostChanged();
  emit keyedChanged();
}

bool KeyboardHold::isIn(QQuickItem* item) const { return has(item, keyed_); }

void KeyboardHold::letGo() {
  std::vector<QQuickItem*> within;
  if (isIn(around_)) {
    for (QQuickItem* each = keyed_; each != around_; each = each->parentItem()) {
      within.push_back(each);
    }
  }
  for (QQuickItem* each : within) each->setFocus(false);
}

}  // namespace vellix
