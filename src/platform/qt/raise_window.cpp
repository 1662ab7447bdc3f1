#include "platform/qt/raise_window.hpp"

#include <QWindow>

namespace vellix {

void raiseWindow(QWindow& window, const QByteArray& activationToken) {
  // Where Qt looks for it when it asks a Wayland desktop for the activation.
  if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken);
  window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
  window.setVisible(true);  // show() would undo a maximised window
  window.raise();
  window.requestActivate();
}

}  // namespace vellix
