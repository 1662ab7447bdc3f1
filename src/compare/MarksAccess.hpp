// How a screen reader finds the marks of a pane: as buttons, which are made when they are asked
// for.
#pragma once

namespace vellix {

// From now on. Main thread only.
void tellMarks();

}  // namespace vellix
