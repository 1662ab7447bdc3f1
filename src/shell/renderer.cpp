#include "shell/renderer.hpp"

#include <QGuiApplication>
#include <QQuickWindow>

namespace vellix {

void chooseRenderer() {
#ifdef Q_OS_MACOS
  // Without a display there is nothing but memory to draw into.
  if (QGuiApplication::platformName() != "offscreen") return;
#endif
  if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
      qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
    return;
  }
  // A frame is a copy of pixels that are ready: nothing is left for a GPU to do, nor for a driver
  // that is loaded, started and held in memory for it.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

}  // namespace vellix
