// Tools as an update runs them: what goes wrong is worded for the reader.
#pragma once

#include <expected>
#include <string>
#include <vector>

#include "platform/ports/task.hpp"
#include "platform/ports/tools.hpp"

namespace vellix {

// Why an update did not come about, in the words that the person reads.
struct UpdateFail {
  std::string message;
  bool operator==(const UpdateFail&) const = default;
};

template <class T>
using UpdateResult = std::expected<T, UpdateFail>;

// What is said of all that has no words of its own.
UpdateFail didNotFinish();

// What the tool wrote, an empty text when that is no UTF-8. Main thread only.
Task<UpdateResult<std::string>> runTool(Tools& tools, std::string path,
                                        std::vector<std::string> arguments, Milliseconds longest);

}  // namespace vellix
