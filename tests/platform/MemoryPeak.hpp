// How much more memory this process took at most since then.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace vellix {

class MemoryPeak {
 public:
  MemoryPeak() {
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak begins anew
    before_ = told("VmRSS");
  }
  std::int64_t kilobytes() const { return told("VmHWM") - before_; }

 private:
  static std::int64_t told(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with(field + ":")) return std::stol(line.substr(field.size() + 1));
    }
    return -1;
  }

  std::int64_t before_ = 0;
};

}  // namespace vellix
