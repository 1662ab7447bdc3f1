// What is shown ahead of the service's answer, by id. What was asked of the service before it took
// a change knows nothing of that change, whenever its answer comes: the change is laid over it.
// Orders count what is sent and what is answered, across everything that is compared.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace vellix {

using Order = std::uint64_t;

template <class Shown>
class Ahead {
 public:
  // A later change of the same id takes the place of an earlier one.
  void show(const std::string& id, Shown shown, Order order) {
    held_.insert_or_assign(id, Held{std::move(shown), order, std::nullopt});
  }
  // `shown` is the order given to show(); what has been replaced since is left alone.
  void taken(const std::string& id, Order shown, Order order) {
    if (const auto held = find(id, shown); held != held_.end()) held->second.taken = order;
  }
  void refused(const std::string& id, Order shown) {
    if (const auto held = find(id, shown); held != held_.end()) held_.erase(held);
  }
  // What to lay over the answer to what was asked then; none when that answer knows of it. Kept
  // also after such an answer, since an older one may come behind it. Valid until the next change.
  const Shown* over(const std::string& id, Order asked) const {
    const auto held = held_.find(id);
    if (held == held_.end()) return nullptr;
    const auto& [shown, since, taken] = held->second;
    return !taken || asked < *taken ? &shown : nullptr;
  }
  bool empty() const { return held_.empty(); }
  void clear() { held_.clear(); }

 private:
  struct Held {
    Shown shown;
    Order since = 0;
    std::optional<Order> taken;
  };

  auto find(const std::string& id, Order shown) {
    const auto held = held_.find(id);
    return held != held_.end() && held->second.since == shown ? held : held_.end();
  }

  std::map<std::string, Held> held_;
};

// What the service has been told of a finding, or of a ticket that is reviewed.
struct Told {
  std::string state;
  std::optional<std::string> by;
  double at = 0;  // milliseconds since 1970
};

// The ticket that shows a decision ahead, and since when.
struct DecidedAhead {
  std::string ticket;
  Order since = 0;
};

}  // namespace vellix
