// Waiting for what comes through the event loop.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <optional>
#include <utility>

#include "platform/ports/pending.hpp"
#include "platform/ports/task.hpp"

namespace vellix {

// Runs the event loop until the condition holds; false when it does not within `patience` ms.
inline bool waitUntil(const std::function<bool()>& condition, int patience = 20'000) {
  QElapsedTimer clock;
  clock.start();
  // Wakes the loop now and then: what is waited for may happen on another thread.
  QTimer waker;
  waker.start(5);
  while (!condition()) {
    if (clock.hasExpired(patience)) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

template <class T>
Task<> keep(Pending<T> pending, std::optional<T>* out) {
  *out = co_await pending;
}

// The value, or none when it does not come within `patience` ms.
template <class T>
std::optional<T> await(const Pending<T>& pending, int patience = 20'000) {
  std::optional<T> value;
  TaskScope scope;
  scope.start(keep(pending, &value));
  waitUntil([&value] { return value.has_value(); }, patience);
  return value;
}

}  // namespace vellix
