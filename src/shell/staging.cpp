#include "shell/staging.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vellix {
namespace {

// The panels that can stand alone.
constexpr std::array<std::string_view, 6> kPanels{"lab",    "settings", "send",
                                                  "upload", "share",    "log"};

constexpr double kLongestSide = 32'767;

int side(double length) {
  return static_cast<int>(std::lround(std::clamp(length, 1.0, kLongestSide)));
}

}  // namespace

std::optional<std::string> argument(const Arguments& arguments, std::string_view name) {
  const auto found = std::ranges::find(arguments, name);
  if (found == arguments.end() || found + 1 == arguments.end()) return std::nullopt;
  return *(found + 1);
}

bool hasFlag(const Arguments& arguments, std::string_view name) {
  return std::ranges::find(arguments, name) != arguments.end();
}

std::string panelAlone(const Arguments& arguments) {
  if (hasFlag(arguments, "--lab")) return "lab";
  const auto panel = argument(arguments, "--panel").value_or("");
  return std::ranges::find(kPanels, panel) == kPanels.end() ? "" : panel;
}

std::optional<double> numberIn(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && std::isfinite(number) ? std::optional{number} : std::nullopt;
}

std::optional<ContentSize> contentSize(std::string_view text) {
  std::vector<double> numbers;
  for (std::size_t from = 0; from <= text.size();) {
    const auto to = std::min(text.find('x', from), text.size());
    if (const auto number = numberIn(text.substr(from, to - from))) numbers.push_back(*number);
    from = to + 1;
  }
  if (numbers.size() != 2) return std::nullopt;
  return ContentSize{side(numbers[0]), side(numbers[1])};
}

std::optional<std::string> sampleKey(std::string_view fileName) {
  if (!fileName.ends_with(".jpg") && !fileName.ends_with(".png")) return std::nullopt;
  std::string key{fileName};
  std::ranges::replace(key, '_', '/');
  return key;
}

}  // namespace vellix
