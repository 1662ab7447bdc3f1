// The two shell scripts that outlive the program: one puts a new copy into the place of the running
// one, the other gives a copy under the program's earlier name its present one. Paths are absolute.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vellix {

struct SwapPlan {
  std::int64_t process = 0;  // waited for
  std::string current;       // the running bundle
  std::string target;        // where the new one is to stand
  std::string fresh;         // the new one as it was verified
};
std::string swapScript(const SwapPlan& plan);

struct RenamePlan {
  std::int64_t process = 0;  // waited for
  std::int64_t build = 0;    // of the running copy
  std::string old;           // the running bundle
  std::string renamed;       // where it is to stand
};
std::string renameScript(const RenamePlan& plan);

// Both put paths into double quotes and remove what lies there. One that would mean something else
// to the shell then must not be given to them.
bool scriptsBear(std::string_view path);

}  // namespace vellix
