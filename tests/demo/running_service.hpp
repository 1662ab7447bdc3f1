// The demo service as a process of its own, on a free port, for as long as this object lives.
#pragma once

#include <httplib.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace vellix::demo_tests {

class RunningService {
 public:
  // `more` goes behind the usual arguments; `inChild` is called ahead of the service's start.
  explicit RunningService(
      std::vector<std::string> more = {}, const std::function<void()>& inChild = [] {}) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe(in.data()) != 0 || pipe(out.data()) != 0) return;
    child_ = fork();
    if (child_ == 0) {
      dup2(in[0], STDIN_FILENO);
      dup2(out[1], STDOUT_FILENO);
      for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
      inChild();
      more.insert(more.begin(),
                  {DEMO_SERVICE, "--no-colleague", "--until-stdin-closes", "--pace", "0.02"});
      std::vector<char*> words;
      words.reserve(more.size() + 1);
      for (std::string& word : more) words.push_back(word.data());
      words.push_back(nullptr);
      execv(DEMO_SERVICE, words.data());
      _exit(127);
    }
    close(in[0]);
    close(out[1]);
    stdin_ = in[1];
    if (FILE* lines = fdopen(out[0], "r")) {
      std::array<char, 256> line{};
      while (!announced_.ends_with('\n') &&
             std::fgets(line.data(), line.size(), lines) != nullptr) {
        announced_ += line.data();
      }
      std::fclose(lines);
    }
    const auto colon = announced_.rfind(':');
    if (colon != std::string::npos) port_ = std::atoi(announced_.c_str() + colon + 1);
  }
  RunningService(const RunningService&) = delete;
  RunningService& operator=(const RunningService&) = delete;
  ~RunningService() { end(); }

  // Its first line.
  const std::string& announced() const { return announced_; }
  int port() const { return port_; }

  pid_t pid() const { return child_; }

  // As a crash would, in the middle of whatever it does.
  void kill() {
    if (child_ > 0) ::kill(child_, SIGKILL);
    (void)end();
  }

  // Closes its standard input and waits; its exit status, or -1.
  int end() {
    if (stdin_ >= 0) close(stdin_);
    stdin_ = -1;
    if (child_ <= 0) return -1;
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t child_ = -1;
  int stdin_ = -1;
  int port_ = 0;
  std::string announced_;
};

}  // namespace vellix::demo_tests
