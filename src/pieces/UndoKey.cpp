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
  const auto* key = static_cast<QKeyEvent*>(event);
  // Held down, the key ends with the text. What is being composed is undone where it is.
  const bool passes = key->matches(QKeySequence::Undo) && !key->isAutoRepeat();
  if (!passes || watched->property("canUndo").toBool() ||
      watched->property("inputMethodComposing").toBool()) {
    return false;
  }
  event->ignore();
  return true;
}

}  // namespace vellix
