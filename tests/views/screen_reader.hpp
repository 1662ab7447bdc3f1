// A window as a screen reader finds it.
#pragma once

#include <QAccessible>
#include <QString>
#include <QStringList>
#include <QWindow>

namespace vellix {

class ScreenReader {
 public:
  // The window must outlive the reader.
  explicit ScreenReader(QWindow* window) : window_(window) {}

  // The first visible object of this name and role, from the top; null when there is none.
  QAccessibleInterface* find(const QString& name, QAccessible::Role role) const;
  // Presses it, enabled or not. False when it is not there or cannot be pressed.
  bool press(const QString& name, QAccessible::Role role = QAccessible::Button) const;
  // How many visible objects of this name and role are enabled.
  int enabled(const QString& name, QAccessible::Role role = QAccessible::Button) const;
  // What is read out of it and of what is visible in it, in order: names, and what describes them.
  // Empty for null.
  QStringList told(QAccessibleInterface* object) const;
  // The names of all visible objects of the role, in order.
  QStringList names(QAccessible::Role role) const;

 private:
  QWindow* window_;
};

}  // namespace vellix
