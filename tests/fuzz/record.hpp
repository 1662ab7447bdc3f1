// The target of a record: what decodes must encode, and decode again to the same.
#pragma once

#include "fuzz/fuzz.hpp"
#include "records/json.hpp"

namespace vellix {

template <class T>
void decodeAndBack(std::string_view json) {
  const auto value = decode<T>(json);
  if (!value) {
    require(!value.error().why.empty(), "a refusal says why");
    return;
  }
  const auto encoded = encode(*value);
  require(encoded.has_value(), "what was decoded can be encoded");
  const auto again = decode<T>(*encoded);
  require(again.has_value(), "what was encoded can be decoded");
  require(*again == *value, "it is the same again");
  require(hashOf(*again) == hashOf(*value), "it has the same hash");
}

}  // namespace vellix
