#include "PressArea.hpp"

#include <QGuiApplication>
#include <QStyleHints>
#include <algorithm>
#include <cmath>

#include "HelpTip.hpp"
#include "PressAccess.hpp"

namespace vellix {

PressArea::PressArea(QQuickItem* parent) : QQuickItem(parent) {
  setAcceptedMouseButtons(Qt::LeftButton);
  setAcceptHoverEvents(true);
  setActiveFocusOnTab(true);
  tellStates();
}

void PressArea::setHelp(const QString& help) {
  if (help == help_) return;
  help_ = help;
  HelpTip::reword(this, help_);
  emit helpChanged();
}

void PressArea::setSays(const QVariant& says) {
  if (!sight_) sight_ = new Sight(this);
  if (says == sight_->says()) return;
  sight_->setSays(says);
  emit saysChanged();
}

// Whether a press that is made is meant for what is here.
bool PressArea::begin(quint64 stamp, std::optional<QPointF> at) {
  begunOn_ = says();
  return !sight_ || sight_->wasMeant(stamp, at);
}

bool PressArea::contains(const QPointF& point) const {
  const QPointF off = point - QPointF{width() / 2, height() / 2};
  return QQuickItem::contains(point) || (2 * std::abs(off.x()) <= std::max(width(), handRoom_) &&
                                         2 * std::abs(off.y()) <= std::max(height(), handRoom_));
}

void PressArea::click() {
  if (isEnabled() && isVisible()) emit clicked(Qt::NoModifier);
}

void PressArea::mousePressEvent(QMouseEvent* event) {
  HelpTip::hide(this);
  isMeant_ = begin(event->timestamp(), event->scenePosition());
  begunAt_ = event->scenePosition();
  formerStamp_ = std::exchange(begunStamp_, event->timestamp());
  if (!isMeant_) return;
  setKeepMouseGrab(holdsPointer_);
  setPressed(true);
  emit held(event->position());
}

// Comes right behind the second press of two, which was meant for what the first one fell on: that
// may have made room for this.
void PressArea::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto most = static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
  if (sight_ && event->timestamp() - formerStamp_ > most) {
    isMeant_ = false;
    setPressed(false);
  }
  QQuickItem::mouseDoubleClickEvent(event);
}

// What moves away under a pointer that rests is held all the same.
bool PressArea::isHeld(const QMouseEvent& event) const {
  const QPointF moved = event.scenePosition() - begunAt_;
  return contains(event.position()) ||
         moved.manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
}

void PressArea::mouseMoveEvent(QMouseEvent* event) {
  if (!isMeant_) return;
  setPressed(holdsPointer_ || isHeld(*event));
  emit held(event->position());
}

void PressArea::mouseReleaseEvent(QMouseEvent* event) {
  setKeepMouseGrab(false);
  const bool was = pressed_;
  setPressed(false);
  if (was && isHeld(*event) && saysTheSame()) emit clicked(static_cast<int>(event->modifiers()));
}

void PressArea::mouseUngrabEvent() {
  setKeepMouseGrab(false);
  setPressed(false);
}

// Hovering is left unaccepted, so that a row stays hovered under its own buttons.
void PressArea::hoverEnterEvent(QHoverEvent* event) {
  setHovered(true);
  event->ignore();
}

void PressArea::hoverMoveEvent(QHoverEvent* event) { event->ignore(); }

void PressArea::hoverLeaveEvent(QHoverEvent* event) {
  setHovered(false);
  event->ignore();
}

void PressArea::keyPressEvent(QKeyEvent* event) {
  const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
  if (plain && (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select)) {
    if (!event->isAutoRepeat() && begin(event->timestamp(), {})) setPressed(true);
  } else if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    if (!event->isAutoRepeat() && begin(event->timestamp(), {})) click();
  } else {
    event->ignore();
  }
}

void PressArea::keyReleaseEvent(QKeyEvent* event) {
  const bool ours = event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
  if (!ours || event->isAutoRepeat() || !pressed_) {
    event->ignore();
    return;
  }
  setPressed(false);
  if (saysTheSame()) click();
}

void PressArea::focusInEvent(QFocusEvent* event) {
  QQuickItem::focusInEvent(event);
  const auto reason = event->reason();
  const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                     reason == Qt::ShortcutFocusReason;
  const bool isBack = reason == Qt::OtherFocusReason || reason == Qt::ActiveWindowFocusReason;
  setVisualFocus(byKey || (isBack && ringWaits_));
  ringWaits_ = false;
}

void PressArea::focusOutEvent(QFocusEvent* event) {
  QQuickItem::focusOutEvent(event);
  // With another parent the focus is taken away and given back, and is the area's own throughout.
  const bool movesAlong = event->reason() == Qt::OtherFocusReason && hasFocus();
  ringWaits_ = visualFocus_ &&
               (!isEnabled() || movesAlong || event->reason() == Qt::ActiveWindowFocusReason);
  setVisualFocus(false);
  setPressed(false);
}

void PressArea::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if ((change == ItemEnabledHasChanged || change == ItemVisibleHasChanged) && !data.boolValue) {
    setPressed(false);
    setHovered(false);
  }
}

void PressArea::setPressed(bool pressed) {
  if (pressed == pressed_) return;
  pressed_ = pressed;
  emit pressedChanged();
}

void PressArea::setHovered(bool hovered) {
  if (hovered == hovered_) return;
  hovered_ = hovered;
  if (hovered) {
    HelpTip::show(this, help_);
  } else {
    HelpTip::hide(this);
  }
  emit hoveredChanged();
}

void PressArea::setVisualFocus(bool visual) {
  if (visual == visualFocus_) return;
  visualFocus_ = visual;
  showRing();
  emit visualFocusChanged();
}

void PressArea::showRing() {
  if (visualFocus_ && !ring_ && ringOf_) {
    QObject* made = ringOf_->beginCreate(ringOf_->creationContext());
    ring_ = qobject_cast<QQuickItem*>(made);
    if (ring_) {
      ring_->setParent(this);
      ring_->setParentItem(this);
    }
    ringOf_->completeCreate();
  }
  if (ring_) ring_->setVisible(visualFocus_);
}

}  // namespace vellix
