// A value that a port delivers later. A port hands out the Pending and keeps the Resolver.
// Any number of coroutines may await one Pending; each gets a copy, in the order they came.
// Main thread only. Resolving resumes the waiters at once, so a port resolves from the main
// loop and never inside the call that made the Pending. A Resolver that is dropped unused leaves
// its waiters suspended until their TaskScope ends them; a waiter that is gone is skipped.
#pragma once

#include <coroutine>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace vellix {

using Done = std::monostate;

namespace detail {

struct PendingWaiter {
  std::coroutine_handle<> handle;
};

template <class T>
struct PendingState {
  std::optional<T> value;
  std::vector<PendingWaiter*> waiters;

  void drop(PendingWaiter* waiter) {
    for (auto& entry : waiters) {
      if (entry == waiter) entry = nullptr;
    }
  }
};

}  // namespace detail

template <class T = Done>
class Pending {
 public:
  using State = detail::PendingState<T>;

  class Awaiter : detail::PendingWaiter {
   public:
    explicit Awaiter(std::shared_ptr<State> state) : state_(std::move(state)) {}
    Awaiter(const Awaiter&) = delete;
    Awaiter& operator=(const Awaiter&) = delete;
    ~Awaiter() { state_->drop(this); }
    bool await_ready() const { return state_->value.has_value(); }
    void await_suspend(std::coroutine_handle<> handle) {
      this->handle = handle;
      state_->waiters.push_back(this);
    }
    T await_resume() const { return *state_->value; }

   private:
    std::shared_ptr<State> state_;
  };

  explicit Pending(std::shared_ptr<State> state) : state_(std::move(state)) {}
  Awaiter operator co_await() const { return Awaiter{state_}; }
  bool resolved() const { return state_->value.has_value(); }

 private:
  std::shared_ptr<State> state_;
};

template <class T = Done>
class Resolver {
 public:
  Resolver() : state_(std::make_shared<detail::PendingState<T>>()) {}
  Pending<T> pending() const { return Pending<T>{state_}; }
  bool resolved() const { return state_->value.has_value(); }

  // The first call counts; later ones do nothing.
  void operator()(T value = {}) const {
    if (state_->value) return;
    const auto state = state_;
    state->value = std::move(value);
    // A resumed waiter may end others: they are nulled in place, so walk by index.
    for (std::size_t i = 0; i < state->waiters.size(); ++i) {
      if (auto* waiter = std::exchange(state->waiters[i], nullptr)) waiter->handle.resume();
    }
    state->waiters.clear();
  }

 private:
  std::shared_ptr<detail::PendingState<T>> state_;
};

}  // namespace vellix
