// A picture of a window as the window system shows it.
#pragma once

#include <QString>

class QWindow;

namespace vellix {

// Has the system's own tool write the window with its frame as PNG, and waits for it. Where the
// tool cannot be started or may not look at the screen, there is none. Main thread.
void grabWindow(QWindow& window, const QString& path);

}  // namespace vellix
