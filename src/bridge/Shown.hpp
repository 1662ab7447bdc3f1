// A view value as a model holds it for its view. QML's form of it is made when it becomes another
// one, and never read back. Main thread only.
#pragma once

#include "bridge/value.hpp"

namespace vellix {

template <class T>
class Shown {
 public:
  Shown() : Shown(T{}) {}
  explicit Shown(T value)
      : value_(std::move(value)), qml_(toQml(value_).template value<Qml<T>>()) {}

  // True when it was another value: the view has to be told then.
  bool show(T next) {
    if (next == value_) return false;
    *this = Shown{std::move(next)};
    return true;
  }
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }
  const Qml<T>& qml() const { return qml_; }

 private:
  T value_;
  Qml<T> qml_;
};

}  // namespace vellix
