// Takes a toast away when its time is up. A toast that replaced it has a time of its own.
#pragma once

#include "store/store.hpp"

namespace vellix {

class ToastTimer {
 public:
  // Both must outlive the timer.
  ToastTimer(Store& store, MainLoop& loop);

 private:
  void watch();
  Task<> expire(std::uint64_t id);

  Store& store_;
  MainLoop& loop_;
  std::uint64_t watched_ = 0;
  TaskScope tasks_;
  Changes::Subscription subscription_;
};

}  // namespace vellix
