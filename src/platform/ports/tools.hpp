// Tools of the system, named by their absolute paths. Main thread only; nothing here waits.
#pragma once

#include <expected>
#include <string>
#include <vector>

#include "platform/ports/moment.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

struct ToolExit {
  int status = 0;
  std::string output;  // what it wrote, both streams in one, as it came
};

enum class ToolError {
  notStarted,
  ended,  // before it came to an end of its own: by a signal, or since it took too long
};

using ToolResult = std::expected<ToolExit, ToolError>;

class Tools {
 public:
  virtual ~Tools() = default;
  // Runs it to its end, or ends it with all that it has started when it takes longer than this.
  virtual Pending<ToolResult> run(std::string path, std::vector<std::string> arguments,
                                  Milliseconds longest) = 0;
  // Starts it and lets it go: it outlives the program, and what it writes is lost. False when it
  // could not be started.
  virtual bool letGo(const std::string& path, const std::vector<std::string>& arguments) = 0;
};

}  // namespace vellix
