#include "records/trimmed.hpp"

#include <algorithm>
#include <array>

namespace vellix {
namespace {

using namespace std::string_view_literals;

// Tabs, line ends and every space separator, in UTF-8.
constexpr std::array kBlanks{"\t"sv,     "\n"sv,     "\v"sv,     "\f"sv,     "\r"sv,
                             " "sv,      "\u0085"sv, "\u00a0"sv, "\u1680"sv, "\u2000"sv,
                             "\u2001"sv, "\u2002"sv, "\u2003"sv, "\u2004"sv, "\u2005"sv,
                             "\u2006"sv, "\u2007"sv, "\u2008"sv, "\u2009"sv, "\u200a"sv,
                             "\u2028"sv, "\u2029"sv, "\u202f"sv, "\u205f"sv, "\u3000"sv};

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto leads = [&](std::string_view blank) { return text.starts_with(blank); };
  const auto ends = [&](std::string_view blank) { return text.ends_with(blank); };
  for (auto blank = kBlanks.end();
       (blank = std::ranges::find_if(kBlanks, leads)) != kBlanks.end();) {
    text.remove_prefix(blank->size());
  }
  for (auto blank = kBlanks.end();
       (blank = std::ranges::find_if(kBlanks, ends)) != kBlanks.end();) {
    text.remove_suffix(blank->size());
  }
  return text;
}

}  // namespace vellix
