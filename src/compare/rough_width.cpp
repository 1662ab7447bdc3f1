#include "compare/rough_width.hpp"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace vellix {
namespace {

constexpr int kEnough = 1'000;  // a hundred digits

int widthOf(UChar32 letter) {
  if (letter < 0) return 10;
  if (letter > 0x7f) {
    if (u_charType(letter) == U_NON_SPACING_MARK) return 0;
    const int width = u_getIntPropertyValue(letter, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 17 : 10;
  }
  const auto sign = static_cast<char>(letter);
  const auto isOneOf = [sign](std::string_view signs) { return signs.contains(sign); };
  if (isOneOf("ijlI |.,:;'!")) return 4;
  if (isOneOf("frt()[]{}-/\\\"`")) return 6;
  if (isOneOf("mwMW@%")) return 14;
  if (u_isdigit(letter)) return 10;
  return u_isupper(letter) ? 11 : 9;
}

}  // namespace

int roughWidth(std::string_view text) {
  const auto size = static_cast<std::int32_t>(text.size());
  int width = 0;
  for (std::int32_t next = 0; next < size && width < kEnough;) {
    UChar32 letter = U_SENTINEL;
    U8_NEXT(text.data(), next, size, letter);
    width += widthOf(letter);
  }
  return width < kEnough ? width : kEnough;
}

}  // namespace vellix
