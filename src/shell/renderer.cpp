#include "shell/renderer.hpp"

#include <QQuickWindow>

namespace vellix {

void chooseRenderer() {
#ifndef Q_OS_MACOS
  if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
      qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
    return;
  }
  // A frame is a copy of pixels that are ready: nothing is left for a GPU to do, nor for a driver
  // that is loaded, started and held in memory for it.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
#endif
}

}  // namespace vellix
