// A demo service that keeps its state, and is started anew as often as a test wants.
#pragma once

#include <fcntl.h>
#include <grp.h>

#include <map>

#include "demo_service.hpp"
#include "sandbox.hpp"
#include "written_pdf.hpp"

namespace vellix::demo_tests {

class KeptProcess {
 protected:
  KeptProcess() : running_(std::make_unique<RunningService>(arguments("0"))) {}

  std::string folder() const { return sandbox_ / "state"; }
  // As after a crash, at the same port, since a link tells its address.
  void restart(const std::function<void()>& inChild = [] {}) {
    const std::string port = std::to_string(running_->port());
    running_->kill();
    running_ = std::make_unique<RunningService>(arguments(port), inChild);
    ASSERT_GT(running_->port(), 0) << running_->announced();
  }
  std::vector<std::string> arguments(const std::string& port) const {
    return {"--port", port, "--state", folder()};
  }

  Sandbox sandbox_;
  std::unique_ptr<RunningService> running_;
};

class KeptService : public testing::Test, protected KeptProcess, protected Caller {
 protected:
  KeptService() : Caller(running_->port()) {}
  void SetUp() override { signIn(); }

  // Until no version of the ticket is checked any more.
  bool checked(const std::string& id) {
    return eventually(
        [&](const BoardState&) { return detail(id).versions->back().status != "checking"; });
  }
  std::string textOf(const std::string& path) {
    const auto answer = get(path);
    EXPECT_EQ(statusOf(answer), 200) << path;
    return answer ? answer->body : std::string();
  }
  // Every answer that tells something of the board, by its path.
  std::map<std::string, std::string> everything() {
    std::map<std::string, std::string> all;
    const BoardState now = board();
    std::vector<std::string> paths = {"/api/state"};
    for (const FileItem& file : now.files) {
      for (Int n = 1; n <= file.versionNumber(); ++n) {
        paths.push_back("/api/files/" + file.id + "?v=" + std::to_string(n));
      }
    }
    for (const Job& job : now.jobs) paths.push_back("/api/jobs/" + job.id);
    if (now.sync) paths.push_back("/api/jobs/" + now.sync->id);
    for (const Report& report : now.reports) paths.push_back("/api/reports/" + report.id + "/pdf");
    for (const Person& user : now.users) {
      if (user.photo) paths.push_back("/api/blob/" + *user.photo);
    }
    for (const std::string& path : paths) all[path] = textOf(path);
    return all;
  }
  static void expectSame(const std::map<std::string, std::string>& before,
                         const std::map<std::string, std::string>& after) {
    EXPECT_EQ(before.size(), after.size());
    for (const auto& [path, text] : before) {
      const auto found = after.find(path);
      ASSERT_NE(found, after.end()) << path;
      EXPECT_TRUE(found->second == text) << path << "\n" << text << "\n" << found->second;
    }
  }
};

// The same caller at another service. A client of the library's by itself, as a variable, is
// written over by a byte: the archive's library is built with one member more than its header
// shows.
class Elsewhere : public Caller {
 public:
  Elsewhere(int port, const std::string& token) : Caller(port) { token_ = token; }
  const std::string& token() const { return token_; }
  using Caller::board;
  using Caller::detail;
  using Caller::eventually;
  using Caller::get;
  using Caller::post;
  using Caller::put;
  using Caller::signIn;
  using Caller::statusOf;
};

// Runs it to its end: what it says on standard error, its exit status, and its first line.
struct Ended {
  std::string said;
  int status = -1;
  std::string announced = {};
};
inline Ended endOf(
    const std::vector<std::string>& arguments, const std::function<void()>& inChild = [] {}) {
  const Sandbox sandbox;
  const std::string said = sandbox / "said";
  RunningService service(arguments, [&] {
    const int file = open(said.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    dup2(file, STDERR_FILENO);
    inChild();
  });
  const int status = service.end();
  return {contentOf(said), status, service.announced()};
}

}  // namespace vellix::demo_tests
