#include "platform/linux/LogindWakes.hpp"

#include <utility>

#include "platform/linux/LogindSleep.hpp"

namespace vellix {

void LogindWakes::observe(std::function<void()> woken) {
  woken_ = std::move(woken);
  if (thread_) return;
  auto* sleep = new LogindSleep;
  connect(sleep, &LogindSleep::ended, this, [this] {
    if (woken_) woken_();
  });
  thread_.emplace("wakes", sleep, [sleep, address = busAddress_] { sleep->start(address); });
}

}  // namespace vellix
