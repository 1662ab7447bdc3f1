// How keys are named in words: these are given in the Mac's signs ("⌘R"), which no other keyboard
// has.
#pragma once

#include <string>
#include <string_view>

namespace vellix {

#ifdef __APPLE__
inline constexpr bool kCommandIsControl = false;
#else
inline constexpr bool kCommandIsControl = true;
#endif

// Where the command key is Control the keys are written out, in the order that is usual there:
// "⇧⌘S" is "Ctrl+Shift+S", "⌘↩" is "Ctrl+Return". All else in the words stays, as do all of them
// where the signs are on the keys.
std::string writtenKeys(std::string_view words, bool commandIsControl = kCommandIsControl);

}  // namespace vellix
