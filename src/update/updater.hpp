// Keeps the program itself up to date: asks now and then what the newest build is, and puts it into
// this copy's place. One for the process. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#include "gateway/api.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/running_copy.hpp"
#include "platform/ports/tools.hpp"
#include "platform/ports/update_files.hpp"
#include "platform/ports/url_opener.hpp"
#include "platform/ports/wakes.hpp"
#include "store/published.hpp"
#include "update/running_tools.hpp"

namespace vellix {

// "Vellix 1.2 (34)".
std::string buildName(const VersionInfo& version);

class Updater {
 public:
  using Fail = UpdateFail;

  struct Phase {
    enum class Kind { working, failed, idle };
    Kind kind = Kind::idle;
    std::string text;  // what is being done, or why it failed
    bool operator==(const Phase&) const = default;
  };

  // All of them must outlive the Updater.
  struct Ports {
    API& api;    // for the feed
    Http& http;  // for the image, which the session's token has nothing to do with
    Defaults& defaults;
    MainLoop& loop;
    Tools& tools;
    UpdateFiles& files;
    UrlOpener& opener;
    Wakes& wakes;
    std::function<void()> terminate;  // ends the program, as if the person had
  };

  // What comes from outside is held to these.
  struct Limits {
    std::int64_t image = std::int64_t{256} << 20;  // bytes
    std::int64_t room = std::int64_t{1} << 30;     // bytes: the image, and what comes out of it
    Milliseconds download{10 * 60'000};
    Milliseconds tool{3 * 60'000};
  };

  static constexpr Milliseconds kInterval{900'000};
  static constexpr Milliseconds kSnooze{3'600'000};

  Updater(Ports ports, RunningCopy copy) : Updater(std::move(ports), std::move(copy), Limits{}) {}
  Updater(Ports ports, RunningCopy copy, Limits limits);

  Changes changes;
  static constexpr Changes::Fields kAny = 1;  // there is one observer, of all of it

  Published<std::optional<VersionInfo>> latest{changes, kAny};
  Published<Phase> phase{changes, kAny};
  Published<bool> snoozed{changes, kAny};

  // Checks at once, then every 15 minutes and whenever the machine wakes. Only the first of these
  // may install what it finds. A second call does nothing.
  void start();
  // Says nothing of what went wrong, and leaves then what is known.
  Task<> check(bool autoInstall);
  // Nothing while one is under way, or without something newer. Failures end up in `phase`.
  void install();
  // Opens the page of the newest build in the browser.
  void download();
  // The bar stays away for an hour, as long as this copy may go on.
  void snooze();

  bool isRequired() const;  // this copy is older than the service works with
  bool showsBar() const;

 private:
  Task<> checkAgainAndAgain();
  Task<> install(VersionInfo next);
  Task<UpdateResult<Done>> replaceWith(VersionInfo next);
  Task<UpdateResult<std::shared_ptr<ArrivingFile>>> fetch(std::string url);
  Task<> stopAfter(Milliseconds limit, std::stop_source work);
  UpdateResult<Done> handOver(const std::string& fresh);
  Task<> wakeTheBar();
  std::string image() const;
  bool isBundle() const;
  void work(std::string text) { phase.set({Phase::Kind::working, std::move(text)}); }

  Ports ports_;
  const RunningCopy copy_;
  const Limits limits_;
  bool started_ = false;
  std::optional<Moment> snoozeUntil_;
  TaskScope tasks_;
};

}  // namespace vellix
