// A folder for one test alone, removed at its end.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace vellix::demo_tests {

class Sandbox {
 public:
  Sandbox() {
    std::string name = testing::TempDir() + "kept-XXXXXX";
    if (mkdtemp(name.data()) != nullptr) path_ = name;
  }
  ~Sandbox() {
    std::error_code wrong;
    if (!path_.empty()) std::filesystem::remove_all(path_, wrong);
  }
  Sandbox(const Sandbox&) = delete;
  Sandbox& operator=(const Sandbox&) = delete;

  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

inline std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream all;
  all << file.rdbuf();
  return all.str();
}

inline void fill(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace vellix::demo_tests
