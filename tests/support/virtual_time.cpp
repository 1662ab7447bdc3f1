#include "support/virtual_time.hpp"

namespace vellix {

VirtualTime::VirtualTime(Moment start) : now_(start) {}

VirtualTime::~VirtualTime() = default;

void VirtualTime::post(std::function<void()> work) { posted_.push_back(std::move(work)); }

Moment VirtualTime::now() const { return now_; }

Pending<> VirtualTime::sleep(Milliseconds pause, std::stop_token stop) {
  auto sleeper = std::make_shared<Sleeper>();
  sleeper->entry = sleepers_.emplace(now_ + pause, sleeper);
  pauses.push_back(pause);
  sleeper->onStop.emplace(stop, [this, weak = std::weak_ptr{sleeper}] {
    if (const auto held = weak.lock()) post([this, held] { wake(held); });
  });
  return sleeper->resolver.pending();
}

void VirtualTime::run() {
  while (!posted_.empty()) {
    const auto work = std::move(posted_.front());
    posted_.pop_front();
    work();
  }
}

void VirtualTime::advance(Milliseconds span) {
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

void VirtualTime::wake(std::shared_ptr<Sleeper> sleeper) {
  if (sleeper->resolver.resolved()) return;
  sleepers_.erase(sleeper->entry);
  sleeper->resolver();
}

}  // namespace vellix
