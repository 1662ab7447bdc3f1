// When it is asked, and what is made of the answer.
#include "update/updater.hpp"

#include <utility>

#include "gateway/url.hpp"
#include "records/whole_number.hpp"
#include "update/verification.hpp"

namespace vellix {
namespace {

constexpr const char* kTried = "UpdateTried";

}  // namespace

std::string buildName(const VersionInfo& version) {
  return "Vellix " + version.version + " (" + std::to_string(version.build) + ")";
}

Updater::Updater(Ports ports, RunningCopy copy, Limits limits)
    : changes(ports.loop), ports_(std::move(ports)), copy_(std::move(copy)), limits_(limits) {}

void Updater::start() {
  if (started_) return;
  started_ = true;
  tasks_.start(check(true));
  tasks_.start(checkAgainAndAgain());
  ports_.wakes.observe([this] { tasks_.start(check(false)); });
}

Task<> Updater::checkAgainAndAgain() {
  for (;;) {
    const auto pause = ports_.loop.sleep(kInterval, {});
    co_await pause;
    // A slow answer does not put the next question off.
    tasks_.start(check(false));
  }
}

Task<> Updater::check(bool autoInstall) {
  auto call = ports_.api.ask<VersionInfo>({.path = "version.json"});
  auto answer = co_await std::move(call);
  if (!answer || !answer->record) co_return;
  VersionInfo& found = *answer->record;
  if (copy_.build >= found.build) {
    latest.set(std::nullopt);
    // What failed is not there to be tried again.
    if (phase().kind == Phase::Kind::failed) phase.set({});
    co_return;
  }
  const Int build = found.build;
  latest.set(std::move(found));
  // An hour that somebody asked for may have passed meanwhile.
  changes.note(kAny);
  const auto tried = ports_.defaults.text(kTried);
  const auto triedBuild = tried ? wholeNumber(*tried).value_or(0) : 0;
  if (autoInstall && isBundle() && triedBuild < build) install();
}

void Updater::install() {
  if (!latest() || phase().kind == Phase::Kind::working) return;
  if (!isWebUrl(latest()->url)) return;
  if (!isBundle()) {
    // There is nothing here that could be replaced.
    phase.set({});
    download();
    return;
  }
  ports_.defaults.setText(kTried, std::to_string(latest()->build));
  // It counts as tried whatever becomes of this process from here on.
  ports_.defaults.writeDown();
  tasks_.start(install(*latest()));
}

void Updater::download() {
  if (!latest() || !isWebUrl(latest()->url)) return;
  if (!ports_.opener.open(latest()->url)) phase.set({Phase::Kind::failed, didNotFinish().message});
}

void Updater::snooze() {
  snoozeUntil_ = ports_.loop.now() + kSnooze;
  changes.note(kAny);
  tasks_.start(wakeTheBar());
}

Task<> Updater::wakeTheBar() {
  // It is back after that moment, not at it, and a pause may end somewhat early.
  while (snoozeUntil_ && ports_.loop.now() <= *snoozeUntil_) {
    const auto pause = ports_.loop.sleep(*snoozeUntil_ - ports_.loop.now() + Milliseconds{1}, {});
    co_await pause;
  }
  changes.note(kAny);
}

bool Updater::isRequired() const {
  return latest() && copy_.build < latest()->min_build.value_or(0);
}

bool Updater::showsBar() const {
  if (!latest()) return false;
  return isRequired() || !snoozeUntil_ || ports_.loop.now() > *snoozeUntil_;
}

bool Updater::isBundle() const { return copy_.identifier == kBundleIdentifier; }

}  // namespace vellix
