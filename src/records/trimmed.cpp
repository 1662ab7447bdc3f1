#include "records/trimmed.hpp"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace vellix {

std::string_view trimmed(std::string_view text) {
  const auto size = static_cast<std::int32_t>(text.size());
  std::int32_t begin = 0;
  for (std::int32_t next = 0; next < size; begin = next) {
    UChar32 letter = U_SENTINEL;
    U8_NEXT(text.data(), next, size, letter);
    if (!u_isUWhiteSpace(letter)) break;
  }
  std::int32_t end = size;
  for (std::int32_t next = end; next > begin; end = next) {
    UChar32 letter = U_SENTINEL;
    U8_PREV(text.data(), begin, next, letter);
    if (!u_isUWhiteSpace(letter)) break;
  }
  return {text.data() + begin, text.data() + end};
}

}  // namespace vellix
