// State that is watched. Observers are told once per turn of the main loop, however many fields
// changed in it. Main thread only.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <list>
#include <memory>
#include <utility>

#include "platform/ports/main_loop.hpp"

namespace vellix {

// Notes which fields changed and tells the observers of those fields in the next turn.
class Changes {
 public:
  using Fields = std::uint64_t;  // one bit a field

  explicit Changes(MainLoop& loop) : loop_(loop), state_(std::make_shared<State>()) {}

  // Ends the observation at its own end. May outlive the Changes.
  class Subscription {
   public:
    Subscription() = default;
    Subscription(Subscription&& other) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept {
      end();
      end_ = std::move(other.end_);
      return *this;
    }
    ~Subscription() { end(); }

   private:
    friend class Changes;
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    void end() {
      if (const auto ending = std::exchange(end_, nullptr)) ending();
    }
    std::function<void()> end_;
  };

  [[nodiscard]] Subscription observe(Fields fields, std::function<void()> told);
  void note(Fields field);

 private:
  struct Observer {
    Fields fields;
    std::function<void()> told;
    bool ended = false;
  };
  struct State {
    std::list<std::shared_ptr<Observer>> observers;
    Fields changed = 0;
  };
  static void tell(const std::shared_ptr<State>& state);

  MainLoop& loop_;
  std::shared_ptr<State> state_;
};

// Read by calling it; written through one operation that notes the change.
template <class T>
class Published {
 public:
  Published(Changes& changes, Changes::Fields field, T initial = {})
      : changes_(changes), field_(field), value_(std::move(initial)) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;

  const T& operator()() const { return value_; }

  // An equal value is no change.
  void set(T value) {
    if constexpr (std::equality_comparable<T>) {
      if (value_ == value) return;
    }
    value_ = std::move(value);
    changes_.note(field_);
  }

  template <class F>
  void edit(F&& change) {
    std::forward<F>(change)(value_);
    changes_.note(field_);
  }

 private:
  Changes& changes_;
  const Changes::Fields field_;
  T value_;
};

}  // namespace vellix
