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

bool QtWindows::seen() const {
  if (QGuiApplication::applicationState() != Qt::ApplicationActive) return false;
  const auto windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(), canBeSeen);
}

}  // namespace vellix
