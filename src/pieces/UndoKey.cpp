#include "UndoKey.hpp"

#include <QKeyEvent>

namespace vellix {

void UndoKey::setText(QQuickItem* text) {
  if (text == text_) return;
  if (text_) text_->removeEventFilter(this);
  text_ = text;
  if (text_) text_->installEventFilter(this);
  emit textChanged();
}

bool UndoKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return false;
  const bool undoes = static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo);
  if (!undoes || watched->property("canUndo").toBool()) return false;
  event->ignore();
  return true;
}

}  // namespace vellix
