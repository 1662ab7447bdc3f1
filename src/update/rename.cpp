#include "update/rename.hpp"

#include "update/place.hpp"
#include "update/scripts.hpp"
#include "update/verification.hpp"

namespace vellix {

bool renameIfNeeded(const RunningCopy& copy, Tools& tools, UpdateFiles& files,
                    const std::function<void()>& terminate) {
  const auto [parent, name] = placeOf(copy.bundle);
  if (name != "Sorel.app" || copy.identifier != kBundleIdentifier) return false;
  if (!files.isWritable(parent)) return false;
  const RenamePlan plan{.process = copy.process,
                        .build = copy.build,
                        .old = copy.bundle,
                        .renamed = parent + "/Vellix.app"};
  if (!scriptsBear(plan.old)) return false;
  const std::string script = files.temporaryFolder() + "/vellix-rename.sh";
  if (!files.write(script, renameScript(plan)) || !tools.letGo("/bin/sh", {script})) return false;
  terminate();
  return true;
}

}  // namespace vellix
