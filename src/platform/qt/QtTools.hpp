// Tools of the system as processes of their own.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "platform/ports/tools.hpp"

namespace vellix {

class RunningTool;

// Made, used and ended on the main thread, while the QCoreApplication lives. At its end what runs
// is ended with it and never resolves. A tool gets its arguments as they are and this program's
// environment, reads nothing, and belongs to a session of its own with all that it starts. What it
// writes beyond a megabyte is read and forgotten.
class QtTools : public Tools {
 public:
  QtTools();
  ~QtTools() override;
  QtTools(const QtTools&) = delete;
  QtTools& operator=(const QtTools&) = delete;

  Pending<ToolResult> run(std::string path, std::vector<std::string> arguments,
                          Milliseconds longest) override;
  bool letGo(const std::string& path, const std::vector<std::string>& arguments) override;

 private:
  std::map<std::uint64_t, std::unique_ptr<RunningTool>> running_;
  std::uint64_t lastId_ = 0;
};

}  // namespace vellix
