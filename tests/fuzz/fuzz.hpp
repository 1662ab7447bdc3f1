// What the targets share. A broken promise ends the process, which the fuzzer takes for a find.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);

namespace vellix {

inline std::string_view textOf(const std::uint8_t* bytes, std::size_t count) {
  return {reinterpret_cast<const char*>(bytes), count};
}

inline void require(bool holds, std::string_view what) {
  if (holds) return;
  std::fprintf(stderr, "Not so: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

}  // namespace vellix
