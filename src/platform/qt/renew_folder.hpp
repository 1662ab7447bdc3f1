// A folder of this program's own, made anew.
#pragma once

#include <string>

namespace vellix {

// Removes what is at that path with all that is in it, as far as that can be, and makes a folder
// there, the person's alone. Links are removed and never followed. False when there is no folder
// afterwards that can be written into. May wait for the disk.
bool renewFolder(const std::string& path);

}  // namespace vellix
