#include "pdf_turns.hpp"

#include <algorithm>

namespace vellix::demo {

bool Turns::free(Urgency urgency) const {
  if (taken_ >= places_ + (urgency == Urgency::looked ? 1 : 0)) return false;
  const auto moreUrgent = waiting_.begin() + static_cast<int>(urgency);
  return std::all_of(waiting_.begin(), moreUrgent, [](int count) { return count == 0; });
}

bool Turns::take(const Demand& demand) {
  std::unique_lock lock(mutex_);
  int& waiting = waiting_.at(static_cast<std::size_t>(demand.urgency));
  ++waiting;
  const bool mine = given_.wait(lock, demand.stop, [&] { return free(demand.urgency); }) &&
                    !demand.stop.stop_requested();
  --waiting;
  if (mine) ++taken_;
  // Who waited behind this one may be next.
  given_.notify_all();
  return mine;
}

void Turns::give() {
  const std::lock_guard lock(mutex_);
  --taken_;
  given_.notify_all();
}

int Turns::waiting(Urgency urgency) const {
  const std::lock_guard lock(mutex_);
  return waiting_.at(static_cast<std::size_t>(urgency));
}

}  // namespace vellix::demo
