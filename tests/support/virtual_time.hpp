// A main loop whose clock stands still until the test moves it.
#pragma once

#include <deque>
#include <map>
#include <memory>

#include "platform/ports/main_loop.hpp"

namespace vellix {

class VirtualTime : public MainLoop {
 public:
  explicit VirtualTime(Moment start = momentOf(1'700'000'000'000));
  ~VirtualTime() override;

  void post(std::function<void()> work) override;
  Moment now() const override;
  Pending<> sleep(Milliseconds pause, std::stop_token stop) override;

  // Runs what is posted, and what that posts, at the present moment.
  void run();
  // Moves the clock on, waking each sleeper at its moment.
  void advance(Milliseconds span);

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

  void wake(std::shared_ptr<Sleeper> sleeper);

  Moment now_;
  std::deque<std::function<void()>> posted_;
  Sleepers sleepers_;
};

}  // namespace vellix
