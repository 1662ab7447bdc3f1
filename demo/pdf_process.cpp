#include "pdf_process.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <array>
#include <cerrno>
#include <csignal>

namespace vellix::demo {
namespace {

constexpr int kReaders = 2;
// How far behind the rest of the machine it works while nobody waits for it.
constexpr int kNiceWhenChecked = 5;
constexpr int kNiceAhead = 10;

Turns& turns() {
  static Turns all(kReaders);
  return all;
}

int niceOf(Urgency urgency) {
  if (urgency == Urgency::ahead) return kNiceAhead;
  return urgency == Urgency::checked ? kNiceWhenChecked : 0;
}

// 0 when it could not be started.
pid_t started(int file, std::vector<std::string> question, int answer) {
  const std::string program =
      (QCoreApplication::applicationDirPath() + QStringLiteral("/vellix_demo_pdf_reader"))
          .toStdString();
  question.insert(question.begin(), program);
  std::vector<char*> words;
  words.reserve(question.size() + 1);
  for (std::string& word : question) words.push_back(word.data());
  words.push_back(nullptr);
  // Fonts and the like are found by the environment; no connection of the service's is handed on,
  // since it would stay open with the reader.
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, file, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, answer, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&actions, 3);
  pid_t child = 0;
  const int failed = posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return failed == 0 ? child : 0;
}

// What it does itself beyond its bounds of time and memory is its own doing.
ReaderEnd endOf(int status) {
  if (WIFEXITED(status)) return WEXITSTATUS(status) == 0 ? ReaderEnd::well : ReaderEnd::failed;
  const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : SIGKILL;
  const bool cut = signal == SIGKILL || signal == SIGALRM || signal == SIGTERM || signal == SIGINT;
  return cut ? ReaderEnd::cut : ReaderEnd::failed;
}

ReaderEnd answered(int file, std::vector<std::string> question, const Demand& demand,
                   const std::function<void(QIODevice&)>& take) {
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) return ReaderEnd::cut;
  const pid_t child = started(file, std::move(question), pipe[1]);
  close(pipe[1]);
  if (child == 0) {
    close(pipe[0]);
    return ReaderEnd::cut;
  }
  setpriority(PRIO_PROCESS, static_cast<id_t>(child), niceOf(demand.urgency));
  {
    const std::stop_callback end(demand.stop, [child] { kill(child, SIGKILL); });
    QFile answer;
    if (answer.open(pipe[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) take(answer);
  }  // who still writes now finds nobody listening
  int status = -1;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return endOf(status);
}

}  // namespace

ReaderEnd askReader(int file, std::vector<std::string> question, const Demand& demand,
                    const std::function<void(QIODevice&)>& take) {
  if (!turns().take(demand)) return ReaderEnd::cut;
  const ReaderEnd end = answered(file, std::move(question), demand, take);
  turns().give();
  return end;
}

}  // namespace vellix::demo
