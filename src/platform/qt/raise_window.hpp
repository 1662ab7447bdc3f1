// Brings a window to where the person sees it.
#pragma once

#include <QByteArray>

class QWindow;

namespace vellix {

// Shown, not minimised, above the others and with the keyboard, as far as the desktop lets it: it
// may want the token that came with the request, or merely mark the window. Main thread.
void raiseWindow(QWindow& window, const QByteArray& activationToken);

}  // namespace vellix
