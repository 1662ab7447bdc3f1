// Work that may wait, away from the main thread.
#pragma once

#include <functional>
#include <utility>

#include "platform/ports/pending.hpp"
#include "platform/qt/HandOver.hpp"

namespace vellix {

// Made, used and ended on the main thread, while the QCoreApplication lives. Each errand has a
// thread of its own, since a disk that has gone to sleep or away keeps whoever asks it waiting. Its
// end waits for none: what is still under way never resolves.
class Errands {
 public:
  // Resolves with what the work gives; with `otherwise` where there is no thread to be had. What
  // the work holds is let go before that.
  template <class T>
  Pending<T> run(std::function<T()> work, T otherwise) {
    const Resolver<T> resolver;
    const auto answer = [resolver, door = over_.door()](const T& value) {
      door([resolver, value] { resolver(value); });
    };
    const bool begun = begin([work = std::move(work), answer]() mutable {
      const T value = std::exchange(work, nullptr)();
      answer(value);
    });
    if (!begun) answer(otherwise);
    return resolver.pending();
  }

 private:
  static bool begin(std::function<void()> work);

  HandOver over_;
};

}  // namespace vellix
