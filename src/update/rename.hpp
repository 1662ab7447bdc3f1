// The program once bore another name. A copy that still lies under it moves itself, once.
#pragma once

#include <functional>

#include "platform/ports/running_copy.hpp"
#include "platform/ports/tools.hpp"
#include "platform/ports/update_files.hpp"

namespace vellix {

// True when a script has taken the move over and the program was told to end; false when it is to
// go on as usual, also when anything failed. Main thread, before there is a window.
bool renameIfNeeded(const RunningCopy& copy, Tools& tools, UpdateFiles& files,
                    const std::function<void()>& terminate);

}  // namespace vellix
