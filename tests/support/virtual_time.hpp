// A main loop whose clock stands still until the test moves it.
#pragma once

#include <deque>
#include <map>
#include <memory>

#include "platform/ports/main_loop.hpp"

namespace vellix {

class VirtualTime : public MainLoop {
 public:
  explicit VirtualTime(Moment start = momentOf(1'700'000'000'000)) : now_(start) {}

  void post(std::function<void()> work) override { posted_.push_back(std::move(work)); }
  Moment now() const override { return now_; }

  Pending<> sleep(Milliseconds pause, std::stop_token stop) override {
    auto sleeper = std::make_shared<Sleeper>();
    sleeper->entry = sleepers_.emplace(now_ + pause, sleeper);
    pauses.push_back(pause);
    sleeper->onStop.emplace(stop, [this, weak = std::weak_ptr{sleeper}] {
      if (const auto held = weak.lock()) post([this, held] { wake(held); });
    });
    return sleeper->resolver.pending();
  }

  // Runs what is posted, and what that posts, at the present moment.
  void run() {
    while (!posted_.empty()) {
      const auto work = std::move(posted_.front());
      posted_.pop_front();
      work();
    }
  }

  // Moves the clock on, waking each sleeper at its moment.
  void advance(Milliseconds span) {
    const Moment end = now_ + span;
    run();
    while (!sleepers_.empty() && sleepers_.begin()->first <= end) {
      now_ = sleepers_.begin()->first;
      wake(sleepers_.begin()->second);
      run();
    }
    now_ = end;
    run();
  }

  std::size_t sleeping() const { return sleepers_.size(); }
  std::vector<Milliseconds> pauses;  // every sleep asked for, in order

 private:
  struct Sleeper;
  using Sleepers = std::multimap<Moment, std::shared_ptr<Sleeper>>;
  struct Sleeper {
    Resolver<> resolver;
    Sleepers::iterator entry;
    std::optional<std::stop_callback<std::function<void()>>> onStop;
  };

  void wake(std::shared_ptr<Sleeper> sleeper) {
    if (sleeper->resolver.resolved()) return;
    sleepers_.erase(sleeper->entry);
    sleeper->resolver();
  }

  Moment now_;
  std::deque<std::function<void()>> posted_;
  Sleepers sleepers_;
};

}  // namespace vellix
