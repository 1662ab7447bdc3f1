// A picture of a window as the window system shows it.
#pragma once

#include <QString>

class QWindow;

namespace vellix {

// Writes the pixels that the window system holds of the window's content as PNG. Where it gives
// none out, and where the file cannot be written, there is none. Main thread.
void grabWindow(QWindow& window, const QString& path);

}  // namespace vellix
