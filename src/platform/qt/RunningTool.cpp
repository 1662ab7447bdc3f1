#include "platform/qt/RunningTool.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <tuple>
#include <utility>

namespace vellix {
namespace {

constexpr std::size_t kMostKept = std::size_t{1} << 20;  // bytes
// For one that was killed: the system may hold it where nothing reaches it.
constexpr std::chrono::milliseconds kLastBreath{1'000};
constexpr int kPatienceAtEnd = 500;  // ms

void killWithAllItStarted(const QProcess& process) {
  const auto id = static_cast<pid_t>(process.processId());
  // Zero before it runs: that would be this program's own group.
  if (id > 0) ::killpg(id, SIGKILL);
}

}  // namespace

RunningTool::~RunningTool() {
  process_->disconnect(this);
  if (process_->state() == QProcess::NotRunning) return;
  killWithAllItStarted(*process_);
  process_->kill();
  // One that does not even go then is left behind.
  if (!process_->waitForFinished(kPatienceAtEnd)) std::ignore = process_.release();
}

void RunningTool::start(const std::optional<ToolCommand>& command, Milliseconds longest) {
  if (!command) return conclude(std::unexpected(ToolError::notStarted));
  connect(process_.get(), &QProcess::readyRead, this, &RunningTool::take);
  connect(process_.get(), &QProcess::finished, this, &RunningTool::finished);
  connect(process_.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) conclude(std::unexpected(ToolError::notStarted));
  });
  connect(&deadline_, &QTimer::timeout, this, &RunningTool::end);
  process_->setProcessChannelMode(QProcess::MergedChannels);
  process_->setStandardInputFile(QProcess::nullDevice());
  process_->setChildProcessModifier([] { ::setsid(); });
  process_->setProgram(command->path);
  process_->setArguments(command->arguments);
  deadline_.setSingleShot(true);
  deadline_.start(std::chrono::ceil<std::chrono::milliseconds>(longest));
  process_->start();
}

// All of it is read, since a tool whose pipe is full waits.
void RunningTool::take() {
  std::array<char, 16'384> piece;
  for (;;) {
    const auto count = process_->read(piece.data(), piece.size());
    if (count <= 0) return;
    const auto room = kMostKept - output_.size();
    output_.append(piece.data(), std::min(room, static_cast<std::size_t>(count)));
  }
}

void RunningTool::end() {
  if (overdue_) return conclude(std::unexpected(ToolError::ended));
  overdue_ = true;
  killWithAllItStarted(*process_);
  process_->kill();
  deadline_.start(kLastBreath);
}

void RunningTool::finished(int status, QProcess::ExitStatus how) {
  take();
  if (overdue_ || how != QProcess::NormalExit) return conclude(std::unexpected(ToolError::ended));
  conclude(ToolExit{.status = status, .output = std::move(output_)});
}

void RunningTool::conclude(ToolResult result) {
  deadline_.stop();
  process_->disconnect(this);
  QMetaObject::invokeMethod(
      this, [this, result = std::move(result)] { done_(result); }, Qt::QueuedConnection);
}

}  // namespace vellix
