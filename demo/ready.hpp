// Whether what is worked out beside is there.
#pragma once

#include <chrono>
#include <future>

namespace vellix::demo {

template <class Future>
bool ready(const Future& future) {
  return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

}  // namespace vellix::demo
