// Coroutines of the logic. A Task<T> is lazy, has one awaiter and belongs to the frame or the
// TaskScope that holds it. Main thread only; a Task suspends only at a port.
// Write coroutines as named functions or members, take parameters by value, and bind temporaries
// to a name before co_await: g++ 12 miscompiles the rest.
#pragma once

#include <coroutine>
#include <exception>
#include <list>
#include <optional>
#include <utility>

namespace vellix {

template <class T = void>
class Task;

namespace detail {

struct TaskPromiseBase {
  std::coroutine_handle<> continuation;

  struct Final {
    bool await_ready() const noexcept { return false; }
    template <class Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> ended) const noexcept {
      const auto next = ended.promise().continuation;
      return next ? next : std::noop_coroutine();
    }
    void await_resume() const noexcept {}
  };

  std::suspend_always initial_suspend() const noexcept { return {}; }
  Final final_suspend() const noexcept { return {}; }
  // Failures are values here; an exception is a broken program.
  [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }
};

template <class T>
struct TaskPromise : TaskPromiseBase {
  std::optional<T> value;
  Task<T> get_return_object();
  void return_value(T result) { value = std::move(result); }
  T take() { return std::move(*value); }
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
  Task<void> get_return_object();
  void return_void() const noexcept {}
  void take() const noexcept {}
};

}  // namespace detail

template <class T>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::TaskPromise<T>;
  using Handle = std::coroutine_handle<promise_type>;

  explicit Task(Handle handle) : handle_(handle) {}
  Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Task& operator=(Task&&) = delete;
  ~Task() {
    if (handle_) handle_.destroy();
  }

  bool await_ready() const noexcept { return false; }
  std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting) noexcept {
    handle_.promise().continuation = awaiting;
    return handle_;
  }
  T await_resume() { return handle_.promise().take(); }

 private:
  Handle handle_;
};

template <class T>
Task<T> detail::TaskPromise<T>::get_return_object() {
  return Task<T>{std::coroutine_handle<TaskPromise<T>>::from_promise(*this)};
}
inline Task<void> detail::TaskPromise<void>::get_return_object() {
  return Task<void>{std::coroutine_handle<TaskPromise<void>>::from_promise(*this)};
}

// Owns tasks that nobody awaits. Its end ends them where they are suspended.
class TaskScope {
 public:
  TaskScope() = default;
  TaskScope(const TaskScope&) = delete;
  TaskScope& operator=(const TaskScope&) = delete;
  ~TaskScope() {
    while (!running_.empty()) {
      const auto handle = running_.front();
      running_.pop_front();
      handle.destroy();
    }
  }

  // Runs the task up to its first suspension before returning.
  void start(Task<void> task) { run(this, std::move(task)); }
  bool idle() const { return running_.empty(); }

 private:
  struct Root {
    struct promise_type {
      promise_type(TaskScope* owner, Task<void>&) : scope(owner) {}
      Root get_return_object() {
        scope->running_.push_back(std::coroutine_handle<promise_type>::from_promise(*this));
        place = std::prev(scope->running_.end());
        return {};
      }
      std::suspend_never initial_suspend() const noexcept { return {}; }
      std::suspend_never final_suspend() const noexcept {
        scope->running_.erase(place);
        return {};
      }
      void return_void() const noexcept {}
      [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }

      TaskScope* scope;
      std::list<std::coroutine_handle<>>::iterator place;
    };
  };

  static Root run(TaskScope*, Task<void> task) { co_await std::move(task); }

  std::list<std::coroutine_handle<>> running_;
};

}  // namespace vellix
