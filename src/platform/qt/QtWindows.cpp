#include "platform/qt/QtWindows.hpp"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

namespace vellix {
namespace {

bool canBeSeen(const QWindow* window) {
  return window->isVisible() && window->isExposed() && window->visibility() != QWindow::Hidden &&
         window->visibility() != QWindow::Minimized;
}

}  // namespace

QtWindows::QtWindows(Milliseconds start) : start_(start) { since_.start(); }

bool QtWindows::seen() const {
  if (static_cast<double>(since_.elapsed()) < start_.count()) return true;
  if (QGuiApplication::applicationState() != Qt::ApplicationActive) return false;
  const auto windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(), canBeSeen);
}

}  // namespace vellix
