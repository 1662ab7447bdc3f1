// Pictures of the program's own window. Main thread.
#pragma once

#include <QSize>
#include <QString>

namespace vellix {

// Gives the first window's content this size, but no less than the window's least.
void resizeFirstWindow(QSize content);

// Draws the window once more into a bitmap, as many pixels as it has on the device, and writes it
// as PNG. `asOnScreen` takes the pixels from the window system instead, with whatever it makes of
// them. The program's exit code: 0 done, 2 no window, 3 no bitmap. A file that cannot be written,
// and a window system that gives no pixels, end with 0 all the same.
int captureWindow(const QString& path, bool asOnScreen);

}  // namespace vellix
