#include "compare/blink.hpp"

namespace vellix {
namespace {

constexpr Milliseconds kTurn{700};

}  // namespace

void Blink::follow(bool blinking) {
  if (blinking == running_.has_value()) return;
  if (blinking) {
    running_.emplace();
    tasks_.start(run(running_->get_token()));
  } else {
    running_->request_stop();
    running_.reset();
  }
}

Task<> Blink::run(std::stop_token stop) {
  while (true) {
    const auto pause = loop_.sleep(kTurn, stop);
    co_await pause;
    if (stop.stop_requested()) co_return;
    swap_();
  }
}

}  // namespace vellix
