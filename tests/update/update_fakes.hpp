// An Updater between ports that keep, in one order, what was asked of them.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/fakes.hpp"
#include "support/scripted_http.hpp"
#include "support/virtual_time.hpp"
#include "update/updater.hpp"

namespace vellix {

using Asked = std::vector<std::string>;

// Every tool succeeds without a word unless the test says otherwise.
class FakeTools : public Tools {
 public:
  FakeTools(MainLoop& loop, Asked& asked) : loop_(loop), asked_(asked) {}

  Pending<ToolResult> run(std::string path, std::vector<std::string> arguments,
                          Milliseconds longest) override;
  bool letGo(const std::string& path, const std::vector<std::string>& arguments) override;

  // By the beginning of the call as it is kept.
  void answer(const std::string& call, ToolResult result) { answers_[call] = std::move(result); }
  void forget() { answers_.clear(); }
  std::set<std::string> hanging;  // by the beginning too: not answered before end()
  void end(ToolResult result) {
    for (const auto& resolver : std::exchange(open_, {})) resolver(result);
  }
  bool startable = false;
  std::vector<Milliseconds> deadlines;

 private:
  MainLoop& loop_;
  Asked& asked_;
  std::map<std::string, ToolResult> answers_;
  std::vector<Resolver<ToolResult>> open_;
};

class FakeUpdateFiles : public UpdateFiles {
 public:
  class File : public ArrivingFile {
   public:
    bool write(std::string_view bytes) override {
      text += bytes;
      return true;
    }
    std::string text;
  };

  FakeUpdateFiles(MainLoop& loop, Asked& asked) : loop_(loop), asked_(asked) {}

  std::string stage() const override { return stageFolder; }
  std::string temporaryFolder() const override { return "/tmp/of me"; }
  Pending<bool> hasRoomFor(std::int64_t bytes) override;
  std::shared_ptr<ArrivingFile> begin() override;
  Pending<bool> renewStage() override;
  Pending<bool> putIntoStage(std::shared_ptr<ArrivingFile> file, std::string name) override;
  Pending<bool> exists(std::string path) override;
  Pending<std::optional<std::string>> textIn(std::string propertyList, std::string key) override;
  bool isWritable(const std::string& path) const override { return !readOnly.contains(path); }
  bool write(const std::string& path, const std::string& text) override;

  std::string stageFolder = "/caches/SorelUpdate";
  std::int64_t room = 0;
  std::shared_ptr<File> arrived;  // the last one that was begun
  bool renewable = false;
  bool movable = false;
  bool takesScripts = false;
  bool leftAttached = false;                    // an image, by a program that was ended
  std::set<std::string> standing;               // paths that exist
  std::map<std::string, std::string> versions;  // by the path of the property list
  std::set<std::string> readOnly;
  std::map<std::string, std::string> written;

 private:
  bool attached() const;
  template <class T>
  Pending<T> later(T value) {
    const Resolver<T> resolver;
    loop_.post([resolver, value] { resolver(value); });
    return resolver.pending();
  }

  MainLoop& loop_;
  Asked& asked_;
};

class FakeWakes : public Wakes {
 public:
  void observe(std::function<void()> woken) override { wake = std::move(woken); }
  std::function<void()> wake;
};

// A copy of build 41 that is a bundle, and a service whose feed the test writes.
struct UpdateDesk {
  explicit UpdateDesk(RunningCopy running = copyAt("/Applications/Vellix.app"));

  static RunningCopy copyAt(std::string bundle) {
    return {.identifier = "com.rennyvale.Sorel",
            .bundle = std::move(bundle),
            .process = 4242,
            .build = 41};
  }
  static VersionInfo build42() {
    return {.version = "1.3",
            .build = 42,
            .url = "https://pages.tessarine.example/Vellix.dmg",
            .notes = "Faster pages.",
            .min_build = std::nullopt};
  }
  // All of it works, as at the start.
  void mend();
  // The feed tells of this build, and is asked once.
  void learn(const VersionInfo& version, bool autoInstall = false);
  void check(bool autoInstall = false);
  // Goes through with what it has begun.
  void settle() { time.run(); }

  VirtualTime time;
  Asked asked;
  ScriptedHttp http{time};
  FakeDefaults defaults;
  FakeTokenStore tokens;
  API api{http, tokens, defaults};
  FakeTools tools{time, asked};
  FakeUpdateFiles files{time, asked};
  FakeOpener opener;
  FakeWakes wakes;
  std::optional<VersionInfo> feed;  // none: the service fails
  HttpResult image;
  std::optional<Updater> updater;
  TaskScope tasks;
};

}  // namespace vellix
