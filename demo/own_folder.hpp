// Copies of somebody's own proofs: what lies at their paths may be written over at any time, while
// what was reviewed stays as it was.
#pragma once

#include <map>
#include <string>
#include <utility>

namespace vellix::demo {

class OwnFolder {
 public:
  // Without a folder nothing is copied, and a proof is read where it lies.
  explicit OwnFolder(std::string folder = {}) : folder_(std::move(folder)) {}

  // Where that file's copy lies, named by what it holds; made when there is none. The path itself
  // where it cannot be copied. Takes as long as reading the file, for one that did not change a
  // moment.
  std::string copyOf(const std::string& path);
  // Whether that path is of a copy.
  static bool holds(const std::string& path);

 private:
  std::string nameFor(const std::string& path);

  std::string folder_;
  // By path: what lay there when it was read last, and the copy's name.
  std::map<std::string, std::pair<std::string, std::string>> names_;
};

}  // namespace vellix::demo
