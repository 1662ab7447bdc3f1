// Proves that a disk image holds this program, from its signer and new enough, and takes it out.
// Main thread only; what is passed must outlive the task.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ports/update_files.hpp"
#include "update/running_tools.hpp"

namespace vellix {

// The identifier of the program's bundle, wherever it is a bundle.
inline constexpr const char* kBundleIdentifier = "com.rennyvale.Sorel";

// The path of the verified copy in the stage, in which the image lies. It is mounted there, and
// that only as long as this takes, however it ends. No tool may take longer than `longest`.
Task<UpdateResult<std::string>> verify(Tools& tools, UpdateFiles& files, std::string image,
                                       std::int64_t build, Milliseconds longest);

// Lets go of an image that is still mounted in the stage, since the program was ended meanwhile:
// the stage could not be made anew around it.
Task<> releaseStage(Tools& tools, UpdateFiles& files, Milliseconds longest);

}  // namespace vellix
