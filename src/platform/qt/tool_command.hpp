// What is handed to the system to start a tool.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

namespace vellix {

struct ToolCommand {
  QString path;
  QStringList arguments;
};

// None when the tool would not be the one at that path, or would not get these very bytes: a path
// that is not absolute is searched for, a zero byte ends an argument, and what is no UTF-8 changes.
std::optional<ToolCommand> toolCommand(const std::string& path,
                                       const std::vector<std::string>& arguments);

}  // namespace vellix
