// The way from other threads to the main one.
#pragma once

#include <functional>
#include <memory>

namespace vellix {

// Made and ended on the main thread, while the QCoreApplication lives. What has not been done by
// its end never is.
class HandOver {
 public:
  // Does the work in a later turn of the main loop. Any thread, also one that is left behind when
  // the HandOver has gone: it finds nobody.
  using Door = std::function<void(std::function<void()> work)>;

  HandOver();
  ~HandOver();
  HandOver(const HandOver&) = delete;
  HandOver& operator=(const HandOver&) = delete;

  Door door() const;

 private:
  struct Desk;

  std::shared_ptr<Desk> desk_;
};

}  // namespace vellix
