// The main thread's loop and clock.
#pragma once

#include <functional>
#include <stop_token>

#include "platform/ports/moment.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

class MainLoop {
 public:
  virtual ~MainLoop() = default;

  // Runs the work on the main thread in a later turn, in the order posted.
  virtual void post(std::function<void()> work) = 0;

  virtual Moment now() const = 0;

  // Resolves after the pause, or in a later turn once a stop is asked for: look at the token.
  virtual Pending<> sleep(Milliseconds pause, std::stop_token stop) = 0;

  // Resolves in the next turn.
  Pending<> turn() {
    Resolver<> resolver;
    post([resolver] { resolver(); });
    return resolver.pending();
  }
};

}  // namespace vellix
