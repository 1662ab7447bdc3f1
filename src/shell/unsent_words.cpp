#include "shell/unsent_words.hpp"

#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>

namespace vellix {
namespace {

bool isWritten(const QQuickItem& item) {
  const bool field = item.inherits("QQuickTextEdit") || item.inherits("QQuickTextInput");
  return field && !item.property("readOnly").toBool() &&
         !item.property("text").toString().trimmed().isEmpty();
}

// What has been posted or given up may lie on in a card that is closed.
bool holdsWords(const QQuickItem& item) {
  if (!item.isEnabled()) return false;
  if (isWritten(item)) return true;
  const bool floats = item.inherits("QQuickOverlay");
  return std::ranges::any_of(item.childItems(), [floats](const QQuickItem* child) {
    return (!floats || child->isVisible()) && holdsWords(*child);
  });
}

}  // namespace

bool holdUnsentWords(const QList<QWindow*>& windows) {
  return std::ranges::any_of(windows, [](const QWindow* each) {
    const auto* window = qobject_cast<const QQuickWindow*>(each);
    return window && window->isVisible() && holdsWords(*window->contentItem());
  });
}

}  // namespace vellix
