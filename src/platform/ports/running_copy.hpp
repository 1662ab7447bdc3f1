// What the running program is, as the system knows it. Told once, at the start.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vellix {

struct RunningCopy {
  std::optional<std::string> identifier;  // the bundle's; none where programs have none
  std::string bundle;                     // its path; empty where there is none
  std::int64_t process = 0;
  std::int64_t build = 1;
};

}  // namespace vellix
