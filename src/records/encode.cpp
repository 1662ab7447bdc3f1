// The scalars of the encoder: numbers that read back to the same value, and escaped text.
#include <array>
#include <charconv>
#include <cmath>

#include "records/json.hpp"

namespace vellix {
namespace {

// Length of the UTF-8 sequence that begins at `at`; 0 when there is no valid one.
std::size_t sequenceAt(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xc2 ? 0
                             : lead < 0xe0 ? 2
                             : lead < 0xf0 ? 3
                             : lead < 0xf5 ? 4
                                           : 0;
  if (length == 0 || at + length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xc0) != 0x80) return 0;
  }
  if (length < 3) return length;
  const unsigned char second = byte(at + 1);
  const bool overlong = (lead == 0xe0 && second < 0xa0) || (lead == 0xf0 && second < 0x90);
  const bool surrogate = lead == 0xed && second >= 0xa0;
  const bool beyond = lead == 0xf4 && second >= 0x90;
  return overlong || surrogate || beyond ? 0 : length;
}

}  // namespace

const Json* Json::find(const std::string& key) const {
  const auto* members = object();
  if (!members) return nullptr;
  const auto found = members->find(key);
  return found == members->end() ? nullptr : &found->second;
}

void detail::Encoder::writeScalar(double value) {
  if (!std::isfinite(value)) {
    failure = "a number is not finite";
    return;
  }
  std::array<char, 32> digits;
  // A reader may take digits alone for a whole number, which beyond 64 bits it has no room for.
  const auto end = std::abs(value) < 0x1p63
                       ? std::to_chars(digits.data(), digits.data() + digits.size(), value)
                       : std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::scientific);
  out.append(digits.data(), end.ptr);
}

void detail::Encoder::writeScalar(std::string_view value) {
  static constexpr std::string_view hex = "0123456789abcdef";
  out += '"';
  for (std::size_t i = 0; i < value.size();) {
    const std::size_t length = sequenceAt(value, i);
    if (length == 0) {
      failure = "a text is not UTF-8";
      return;
    }
    const char c = value[i];
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c >= 0 && c < 0x20) {
      out += "\\u00";
      out += hex[static_cast<std::size_t>(c) >> 4];
      out += hex[static_cast<std::size_t>(c) & 15];
    } else {
      out.append(value, i, length);
    }
    i += length;
  }
  out += '"';
}

template std::expected<std::string, EncodeFailure> encode(const BoardState&);
template std::expected<std::string, EncodeFailure> encode(const FileDetail&);

}  // namespace vellix
