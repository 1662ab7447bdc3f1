#include "records/letter_case.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vellix {
namespace {

// Letters that follow one another, and how far their small ones are behind them. A step of 2:
// capital and small letter take turns.
struct Run {
  char32_t first;
  char32_t last;
  std::int32_t apart;
  std::uint32_t step;
};
constexpr std::array kCapitals{
    Run{U'A', U'Z', 32, 1},        // Latin
    Run{0x00C0, 0x00D6, 32, 1},    // with accents
    Run{0x00D8, 0x00DE, 32, 1},    //
    Run{0x0100, 0x012E, 1, 2},     // of Central Europe and the Baltic
    Run{0x0132, 0x0136, 1, 2},     //
    Run{0x0139, 0x0147, 1, 2},     //
    Run{0x014A, 0x0176, 1, 2},     //
    Run{0x0178, 0x0178, -121, 1},  //
    Run{0x0179, 0x017D, 1, 2},     //
    Run{0x0218, 0x021A, 1, 2},     // Romanian
    Run{0x0386, 0x0386, 38, 1},    // Greek
    Run{0x0388, 0x038A, 37, 1},    //
    Run{0x038C, 0x038C, 64, 1},    //
    Run{0x038E, 0x038F, 63, 1},    //
    Run{0x0391, 0x03A1, 32, 1},    //
    Run{0x03A3, 0x03AB, 32, 1},    //
    Run{0x0400, 0x040F, 80, 1},    // Cyrillic
    Run{0x0410, 0x042F, 32, 1},    //
    Run{0x0490, 0x0490, 1, 1},     // Ukrainian
    Run{0x1E00, 0x1E94, 1, 2},     // Latin with more accents
    Run{0x1EA0, 0x1EFE, 1, 2},     //
};

bool holds(const Run& run, char32_t letter) {
  return letter >= run.first && letter <= run.last && (letter - run.first) % run.step == 0;
}
char32_t shifted(char32_t letter, std::int32_t by) {
  return static_cast<char32_t>(static_cast<std::int32_t>(letter) + by);
}

char32_t smallOf(char32_t letter) {
  const auto run =
      std::ranges::find_if(kCapitals, [&](const Run& each) { return holds(each, letter); });
  return run == kCapitals.end() ? letter : shifted(letter, run->apart);
}
char32_t capitalOf(char32_t letter) {
  const auto run = std::ranges::find_if(
      kCapitals, [&](const Run& each) { return holds(each, shifted(letter, -each.apart)); });
  return run == kCapitals.end() ? letter : shifted(letter, -run->apart);
}

// All the letters told here take one byte or two, or three from U+0800.
struct Letter {
  char32_t code = 0;
  std::size_t bytes = 0;  // 0 when the text begins with none of them
};

Letter firstLetter(std::string_view text) {
  const auto byte = [&](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const auto follows = [&](std::size_t at) { return (byte(at) & 0xC0U) == 0x80U; };
  if (text.empty()) return {};
  if (byte(0) < 0x80U) return {byte(0), 1};
  if ((byte(0) & 0xE0U) == 0xC0U && follows(1)) {
    return {((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU), 2};
  }
  if ((byte(0) & 0xF0U) == 0xE0U && follows(1) && follows(2)) {
    return {((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU), 3};
  }
  return {};
}

std::string written(char32_t code) {
  const auto byte = [](char32_t value) { return static_cast<char>(value); };
  if (code < 0x80) return {byte(code)};
  if (code < 0x800) return {byte(0xC0U | (code >> 6U)), byte(0x80U | (code & 0x3FU))};
  return {byte(0xE0U | (code >> 12U)), byte(0x80U | ((code >> 6U) & 0x3FU)),
          byte(0x80U | (code & 0x3FU))};
}

std::string withFirst(std::string_view text, char32_t (*inOtherCase)(char32_t)) {
  const Letter first = firstLetter(text);
  const char32_t other = inOtherCase(first.code);
  if (first.bytes == 0 || other == first.code) return std::string{text};
  return written(other) + std::string{text.substr(first.bytes)};
}

}  // namespace

std::string capitalised(std::string_view text) { return withFirst(text, capitalOf); }
std::string lowered(std::string_view text) { return withFirst(text, smallOf); }

}  // namespace vellix
