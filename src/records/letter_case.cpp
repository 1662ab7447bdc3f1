#include "records/letter_case.hpp"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <array>

namespace vellix {
namespace {

std::string withFirst(std::string_view text, UChar32 (*inOtherCase)(UChar32)) {
  std::size_t rest = 0;
  UChar32 first = U_SENTINEL;
  if (!text.empty()) U8_NEXT(text.data(), rest, text.size(), first);
  if (first < 0) return std::string{text};
  std::array<char, U8_MAX_LENGTH> other{};
  std::size_t length = 0;
  U8_APPEND_UNSAFE(other.data(), length, inOtherCase(first));
  return std::string{other.data(), length} + std::string{text.substr(rest)};
}

}  // namespace

std::string capitalised(std::string_view text) { return withFirst(text, u_totitle); }
std::string lowered(std::string_view text) { return withFirst(text, u_tolower); }

}  // namespace vellix
