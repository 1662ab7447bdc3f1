// The pace at which the panes take turns. Main thread only.
#pragma once

#include <functional>
#include <optional>

#include "platform/ports/main_loop.hpp"
#include "platform/ports/task.hpp"

namespace vellix {

class Blink {
 public:
  // The loop must outlive the blink. `swap` is called at each turn.
  Blink(MainLoop& loop, std::function<void()> swap) : loop_(loop), swap_(std::move(swap)) {}

  // Begins with a whole pause, or ends without another swap. Told the same again, it goes on.
  void follow(bool blinking);

 private:
  Task<> run(std::stop_token stop);

  MainLoop& loop_;
  std::function<void()> swap_;
  std::optional<std::stop_source> running_;
  TaskScope tasks_;
};

}  // namespace vellix
