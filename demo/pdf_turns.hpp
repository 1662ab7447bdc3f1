// Who may read a PDF next: few readers at once, and what somebody waits for first.
#pragma once

#include <array>
#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace vellix::demo {

// The most urgent first.
enum class Urgency { looked, checked, ahead };

// For whom something is read, and until when it is wanted.
struct Demand {
  Urgency urgency = Urgency::looked;
  std::stop_token stop = {};
};

// Any thread.
class Turns {
 public:
  // `places` at once for everybody, and one more for what somebody looks at.
  explicit Turns(int places) : places_(places) {}

  // Waits until there is a place and nobody more urgent waits; false when it is no longer wanted.
  bool take(const Demand& demand);
  void give();
  int waiting(Urgency urgency) const;

 private:
  bool free(Urgency urgency) const;

  int places_;
  mutable std::mutex mutex_;
  std::condition_variable_any given_;
  std::array<int, 3> waiting_{};
  int taken_ = 0;
};

}  // namespace vellix::demo
