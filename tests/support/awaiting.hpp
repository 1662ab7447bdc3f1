// Brings the value of a task out to the test.
#pragma once

#include <optional>

#include "platform/ports/pending.hpp"
#include "platform/ports/task.hpp"

namespace vellix {

// Both must outlive the task. The value stays none while the task has not ended.
template <class T>
Task<> deliver(Task<T> task, std::optional<T>* value) {
  *value = co_await std::move(task);
}
inline Task<> deliverEnd(Task<> task, bool* ended) {
  co_await std::move(task);
  *ended = true;
}

}  // namespace vellix
