#include "platform/linux/grab_window.hpp"

#include <QPixmap>
#include <QScreen>
#include <QWindow>

namespace vellix {

void grabWindow(QWindow& window, const QString& path) {
  if (QScreen* screen = window.screen()) screen->grabWindow(window.winId()).save(path, "PNG");
}

}  // namespace vellix
