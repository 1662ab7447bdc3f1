// The program's main loop with a clock that can be put ahead: whoever sleeps until then wakes at
// once.
#pragma once

#include <optional>

#include "platform/qt/QtMainLoop.hpp"

namespace vellix::bench {

class SteppedLoop : public QtMainLoop {
 public:
  Moment now() const override { return QtMainLoop::now() + ahead_; }

  Pending<> sleep(Milliseconds pause, std::stop_token stop) override {
    Sleep& sleep = sleeps_.emplace_back(now() + pause);
    sleep.byCaller.emplace(std::move(stop), [wake = sleep.wake]() mutable { wake.request_stop(); });
    return QtMainLoop::sleep(pause, sleep.wake.get_token());
  }

  void putAhead(Milliseconds time) {
    ahead_ += time;
    sleeps_.remove_if([now = now()](Sleep& sleep) {
      if (sleep.end > now) return false;
      sleep.wake.request_stop();
      return true;
    });
  }

 private:
  struct Sleep {
    explicit Sleep(Moment until) : end(until) {}
    Moment end;
    std::stop_source wake;
    std::optional<std::stop_callback<std::function<void()>>> byCaller;
  };

  Milliseconds ahead_{0};
  std::list<Sleep> sleeps_;
};

}  // namespace vellix::bench
