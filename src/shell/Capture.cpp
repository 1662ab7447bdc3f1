#include "shell/Capture.hpp"

#include <QGuiApplication>
#include <QQuickWindow>
#include <algorithm>

#include "platform/System.hpp"

namespace vellix {
namespace {

constexpr int kDone = 0;
constexpr int kNoWindow = 2;
constexpr int kNoBitmap = 3;

QWindow* firstWindow() {
  const auto windows = QGuiApplication::topLevelWindows();
  const auto visible = std::ranges::find_if(windows, &QWindow::isVisible);
  if (visible != windows.end()) return *visible;
  return windows.isEmpty() ? nullptr : windows.constFirst();
}

}  // namespace

void resizeFirstWindow(QSize content) {
  const auto windows = QGuiApplication::topLevelWindows();
  if (windows.isEmpty()) return;
  QWindow* first = windows.constFirst();
  first->resize(content.expandedTo(first->minimumSize()));
}

int captureWindow(const QString& path, bool asOnScreen) {
  auto* window = qobject_cast<QQuickWindow*>(firstWindow());
  if (!window) return kNoWindow;
  if (asOnScreen) {
    grabWindow(*window, path);
    return kDone;
  }
  const QImage bitmap = window->grabWindow();
  if (bitmap.isNull()) return kNoBitmap;
  bitmap.save(path, "PNG");
  return kDone;
}

}  // namespace vellix
