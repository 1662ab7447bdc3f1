#include "platform/qt/tool_command.hpp"

namespace vellix {
namespace {

std::optional<QString> asTheyAre(const std::string& bytes) {
  auto text = QString::fromStdString(bytes);
  if (text.contains(QChar(0)) || text.toStdString() != bytes) return std::nullopt;
  return text;
}

}  // namespace

std::optional<ToolCommand> toolCommand(const std::string& path,
                                       const std::vector<std::string>& arguments) {
  const auto tool = asTheyAre(path);
  if (!tool || !tool->startsWith(u'/')) return std::nullopt;
  ToolCommand command{.path = *tool, .arguments = {}};
  for (const auto& argument : arguments) {
    const auto text = asTheyAre(argument);
    if (!text) return std::nullopt;
    command.arguments.append(*text);
  }
  return command;
}

}  // namespace vellix
