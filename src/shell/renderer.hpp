// What draws the windows.
#pragma once

namespace vellix {

// Main thread, ahead of the first window, once the application is there. What the person asks for
// by Qt's own QT_QUICK_BACKEND (`software`, or `rhi` for the system's graphics) or QSG_RHI_BACKEND
// holds.
void chooseRenderer();

}  // namespace vellix
