// A folder that reports come into, and what is in the way there.
#pragma once

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vellix {

namespace fs = std::filesystem;

class ReportsTest : public testing::Test {
 protected:
  void SetUp() override { fs::create_directory(folder()); }
  fs::path root() const { return root_.path().toStdString(); }
  fs::path folder() const { return root() / "Downloads"; }
  fs::path at(const std::string& name) const { return folder() / name; }
  void put(const std::string& name, const std::string& bytes) const {
    std::ofstream(at(name), std::ios::binary) << bytes;
  }
  std::string bytesOf(const std::string& name) const {
    std::ifstream in(at(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // Hidden ones as well.
  std::vector<std::string> all() const {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(folder())) {
      names.push_back(each.path().filename());
    }
    std::ranges::sort(names);
    return names;
  }

 private:
  QTemporaryDir root_;
};

inline std::string someReport(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(i * i % 251 + i / 251);
  return bytes;
}

}  // namespace vellix
