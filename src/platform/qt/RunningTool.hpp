// One tool, from its start to its end.
#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/tools.hpp"
#include "platform/qt/tool_command.hpp"

namespace vellix {

class RunningTool : public QObject {
 public:
  // `done` is called exactly once, not before `start` has returned, unless this is deleted first;
  // it may only ask for a later deletion.
  explicit RunningTool(std::function<void(ToolResult)> done) : done_(std::move(done)) {}
  ~RunningTool() override;
  RunningTool(const RunningTool&) = delete;
  RunningTool& operator=(const RunningTool&) = delete;

  // Without a command nothing is started, and that is the answer.
  void start(const std::optional<ToolCommand>& command, Milliseconds longest);

 private:
  void take();
  void end();
  void finished(int status, QProcess::ExitStatus how);
  void conclude(ToolResult result);

  std::function<void(ToolResult)> done_;
  std::unique_ptr<QProcess> process_ = std::make_unique<QProcess>();
  QTimer deadline_;
  std::string output_;
  bool overdue_ = false;
};

}  // namespace vellix
