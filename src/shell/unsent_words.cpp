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

bool holdsWords(const QQuickItem& item) {
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
