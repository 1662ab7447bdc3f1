#include "platform/qt/QtTools.hpp"

#include <QProcess>
#include <optional>
#include <utility>

#include "platform/qt/RunningTool.hpp"
#include "platform/qt/tool_command.hpp"

namespace vellix {

QtTools::QtTools() = default;
QtTools::~QtTools() = default;

Pending<ToolResult> QtTools::run(std::string path, std::vector<std::string> arguments,
                                 Milliseconds longest) {
  const auto id = ++lastId_;
  const Resolver<ToolResult> resolver;
  auto tool = std::make_unique<RunningTool>([this, id, resolver](const ToolResult& result) {
    running_.extract(id).mapped().release()->deleteLater();
    // Whoever waits may end this.
    resolver(result);
  });
  tool->start(toolCommand(path, arguments), longest);
  running_.emplace(id, std::move(tool));
  return resolver.pending();
}

bool QtTools::letGo(const std::string& path, const std::vector<std::string>& arguments) {
  const auto command = toolCommand(path, arguments);
  if (!command) return false;
  QProcess process;
  process.setProgram(command->path);
  process.setArguments(command->arguments);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace vellix
