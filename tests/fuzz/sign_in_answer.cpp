#include "fuzz/record.hpp"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  vellix::decodeAndBack<vellix::SignInAnswer>(vellix::textOf(bytes, count));
  return 0;
}
