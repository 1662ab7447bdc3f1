// The main loop over Qt's event loop.
#pragma once

#include <QObject>
#include <list>
#include <memory>

#include "platform/ports/main_loop.hpp"

namespace vellix {

// Made and ended on the main thread, while the QCoreApplication lives. `post` alone may be called
// from any thread. Its end drops what was posted and not yet run, and leaves sleepers suspended.
class QtMainLoop : public MainLoop {
 public:
  QtMainLoop();
  ~QtMainLoop() override;
  QtMainLoop(const QtMainLoop&) = delete;
  QtMainLoop& operator=(const QtMainLoop&) = delete;

  void post(std::function<void()> work) override;
  Moment now() const override;
  Pending<> sleep(Milliseconds pause, std::stop_token stop) override;

 private:
  struct Sleep;
  using Place = std::list<std::unique_ptr<Sleep>>::iterator;

  void arm(Place place, double remaining);
  void end(Place place);

  QObject context_;
  std::list<std::unique_ptr<Sleep>> sleeps_;
};

}  // namespace vellix
