// The program's main loop with a clock of its own that runs ahead: a pause of an hour is over after
// a few seconds.
#pragma once

#include "platform/qt/QtMainLoop.hpp"

namespace vellix::bench {

class PacedLoop : public QtMainLoop {
 public:
  explicit PacedLoop(double pace) : pace_(pace) {}

  Moment now() const override { return start_ + (QtMainLoop::now() - start_) * pace_; }
  Pending<> sleep(Milliseconds pause, std::stop_token stop) override {
    return QtMainLoop::sleep(pause / pace_, std::move(stop));
  }

 private:
  const double pace_;
  const Moment start_ = QtMainLoop::now();
};

}  // namespace vellix::bench
