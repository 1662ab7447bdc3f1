// What can be seen of a window, by the types of its items.
#pragma once

#include <QQuickItem>
#include <QQuickWindow>

namespace vellix {

// Whether an item is of the QML or C++ type, "Avatar" or "QQuickRectangle" say.
inline bool isOfType(const QQuickItem* item, QByteArray type) {
  for (const QMetaObject* each = item->metaObject(); each; each = each->superClass()) {
    const QByteArray name = each->className();
    if (name == type || name == "vellix::" + type || name.startsWith(type + "_QML")) return true;
  }
  return false;
}

// All visible ones below `root`, from the top.
inline QList<QQuickItem*> seen(const QQuickItem* root, const QByteArray& type) {
  QList<QQuickItem*> found;
  for (QQuickItem* child : root->childItems()) {
    if (!child->isVisible()) continue;
    if (isOfType(child, type)) found.append(child);
    found += seen(child, type);
  }
  return found;
}

// How many there are below `root`, whether they can be seen or not.
inline qsizetype made(const QQuickItem* root, const QByteArray& type) {
  qsizetype count = 0;
  for (const QQuickItem* child : root->childItems()) {
    count += (isOfType(child, type) ? 1 : 0) + made(child, type);
  }
  return count;
}

inline QQuickItem* seenText(const QQuickItem* root, const QString& text) {
  for (QQuickItem* label : seen(root, "Label")) {
    if (label->property("text").toString() == text) return label;
  }
  return nullptr;
}

inline QColor colourOf(const QObject* item, const char* name = "color") {
  return item->property(name).value<QColor>();
}

}  // namespace vellix
