// A window's next frame.
#pragma once

#include <QImage>
#include <QQuickWindow>
#include <QSGRendererInterface>

namespace vellix {

// Its pixels. Only the software renderer takes a grab for a frame of the window's.
inline QImage nextFrame(QQuickWindow& window) {
  if (window.rendererInterface()->graphicsApi() != QSGRendererInterface::Software) {
    emit window.afterAnimating();
  }
  return window.grabWindow();
}

}  // namespace vellix
