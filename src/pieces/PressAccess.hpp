// What Qt 6.4 does not tell a screen reader of an item of Qt Quick: that it is disabled, and
// whether what it opens is open. Both are told as they change.
#pragma once

namespace vellix {

// From now on, for every press area and every text field. Main thread only.
void tellStates();

}  // namespace vellix
