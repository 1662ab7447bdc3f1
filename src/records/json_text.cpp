#include "records/json_text.hpp"

#include <algorithm>
#include <cstdint>

namespace vellix {

std::size_t mostValues(std::string_view json) {
  const auto counts = [](char c) -> std::uint8_t { return c == ',' || c == '[' || c == '{'; };
  std::size_t count = 1;
  // The compiler makes a few instructions of a run of known length.
  constexpr std::size_t kRun = 64;
  for (; json.size() >= kRun; json.remove_prefix(kRun)) {
    std::uint8_t few = 0;
    for (std::size_t i = 0; i < kRun; ++i) few += counts(json[i]);
    count += few;
  }
  return count + static_cast<std::size_t>(std::ranges::count_if(json, counts));
}

std::optional<std::string> withExponents(std::string_view json) {
  constexpr std::size_t kDigits = 20;  // of 2^64
  constexpr std::string_view kNumber = "+-.0123456789eE";
  std::string out;
  std::size_t copied = 0;
  for (std::size_t at = 0; at < json.size();) {
    if (json[at] == '"') {
      for (++at; at < json.size() && json[at] != '"'; ++at) at += json[at] == '\\' ? 1 : 0;
      ++at;
      continue;
    }
    const std::size_t end = std::min(json.find_first_not_of(kNumber, at), json.size());
    const std::string_view number = json.substr(at, end - at);
    if (number.size() >= kDigits + (number.starts_with('-') ? 1 : 0) &&
        number.find_first_of(".eE") == std::string_view::npos) {
      out.append(json.substr(copied, end - copied)).append("e0");
      copied = end;
    }
    at = std::max(end, at + 1);
  }
  if (copied == 0) return std::nullopt;
  return out.append(json.substr(copied));
}

}  // namespace vellix
