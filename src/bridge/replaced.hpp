// How a model takes a new view value over: it tells its view only when the value differs.
#pragma once

#include "bridge/value.hpp"

namespace vellix {

// True when `held` was another value.
template <Described T>
bool replaced(QVariantMap& held, const T& value) {
  QVariantMap next = toQml(value).toMap();
  if (next == held) return false;
  held = std::move(next);
  return true;
}

}  // namespace vellix
