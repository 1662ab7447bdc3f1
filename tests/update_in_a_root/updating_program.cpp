// The updater on its real ports, without a window: does what it reads, line by line, and writes
// what becomes of it. What the tools do is up to whoever stands at their paths.
//
//   vellix_updating_program copy IDENTIFIER BUNDLE BUILD TOOL_MS   "-" for no identifier
//   vellix_updating_program swap-script PROCESS CURRENT TARGET FRESH
//   vellix_updating_program rename-script PROCESS BUILD OLD RENAMED
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/LogindWakes.hpp"
#include "platform/linux/xml_property_list.hpp"
#include "platform/qt/QtDefaults.hpp"
#include "platform/qt/QtHttp.hpp"
#include "platform/qt/QtMainLoop.hpp"
#include "platform/qt/QtTools.hpp"
#include "platform/qt/QtUpdateFiles.hpp"
#include "update/rename.hpp"
#include "update/scripts.hpp"
#include "update/updater.hpp"

namespace vellix {
namespace {

void tell(const std::string& line) { std::cout << line << std::endl; }

class TellingOpener : public UrlOpener {
 public:
  bool open(const std::string& url) override {
    tell("opened " + url);
    return true;
  }
};

class OneToken : public TokenStore {
 public:
  std::optional<std::string> read() override { return "the-token"; }
  void remove() override {}
  void add(const std::string& /*token*/) override {}
};

class Program {
 public:
  Program(RunningCopy copy, Milliseconds tool)
      : copy_(std::move(copy)), updater_(ports(), copy_, limits(tool)) {
    told_ = updater_.changes.observe(Updater::kAny, [this] { tellPhase(); });
    QObject::connect(&input_, &QSocketNotifier::activated, &input_, [this] { read(); });
  }

 private:
  static Updater::Limits limits(Milliseconds tool) {
    Updater::Limits limits;
    limits.image = std::int64_t{8} << 20;
    limits.room = std::int64_t{16} << 20;
    limits.tool = tool;
    return limits;
  }
  Updater::Ports ports() {
    return {
        api_, http_, defaults_, loop_, tools_, files_, opener_, wakes_, [this] { terminate(); }};
  }
  void terminate() {
    tellPhase();
    tell("terminates");
    QCoreApplication::quit();
  }

  void tellPhase() {
    const auto& [kind, text] = updater_.phase();
    const auto phase = kind == Updater::Phase::Kind::idle     ? "idle"
                       : kind == Updater::Phase::Kind::failed ? "failed " + text
                                                              : "working " + text;
    if (phase != std::exchange(phase_, phase)) tell(phase);
    const auto& latest = updater_.latest();
    const auto found = latest ? "latest " + std::to_string(latest->build) : "latest none";
    if (found != std::exchange(found_, found)) tell(found);
  }

  void read() {
    char next = 0;
    const auto count = ::read(STDIN_FILENO, &next, 1);
    if (count <= 0) return QCoreApplication::quit();
    if (next != '\n') {
      line_ += next;
    } else {
      obey(std::exchange(line_, {}));
    }
  }

  void obey(const std::string& command) {
    if (command == "start") updater_.start();
    if (command == "check") tasks_.start(check());
    if (command == "install") updater_.install();
    if (command == "rename") {
      tell(renameIfNeeded(copy_, tools_, files_, [this] { terminate(); }) ? "renaming" : "stays");
    }
    if (command == "quit") QCoreApplication::quit();
  }

  Task<> check() {
    auto checking = updater_.check(false);
    co_await std::move(checking);
    tell("checked");
  }

  const RunningCopy copy_;
  QtMainLoop loop_;
  QtDefaults defaults_;
  QtHttp http_;
  OneToken tokens_;
  API api_{http_, tokens_, defaults_};
  QtTools tools_;
  QtUpdateFiles files_{textInXmlPropertyList};
  TellingOpener opener_;
  LogindWakes wakes_;
  Updater updater_;
  Changes::Subscription told_;
  QSocketNotifier input_{STDIN_FILENO, QSocketNotifier::Read};
  std::string phase_ = "idle";
  std::string found_ = "latest none";
  std::string line_;
  TaskScope tasks_;
};

int run(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() != 5) return 2;
  if (words[0] == "swap-script") {
    std::cout << swapScript({.process = std::stoll(words[1]),
                             .current = words[2],
                             .target = words[3],
                             .fresh = words[4]});
    return 0;
  }
  if (words[0] == "rename-script") {
    std::cout << renameScript({.process = std::stoll(words[1]),
                               .build = std::stoll(words[2]),
                               .old = words[3],
                               .renamed = words[4]});
    return 0;
  }
  RunningCopy copy{.identifier = words[1],
                   .bundle = words[2],
                   .process = ::getpid(),
                   .build = std::stoll(words[3])};
  if (words[1] == "-") copy.identifier.reset();
  const Program program(std::move(copy), Milliseconds{std::stod(words[4])});
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace vellix

int main(int argc, char** argv) { return vellix::run(argc, argv); }
