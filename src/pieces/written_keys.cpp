#include "pieces/written_keys.hpp"

#include <algorithm>
#include <array>

namespace vellix {
namespace {

struct Sign {
  std::string_view sign;
  std::string_view name;
};

// In the order in which they are written out.
constexpr std::array kModifiers{Sign{"⌘", "Ctrl+"}, Sign{"⌥", "Alt+"}, Sign{"⇧", "Shift+"}};
constexpr std::array kNamed{Sign{"↩", "Return"}, Sign{"−", "-"}, Sign{"↑", "Up"},
                            Sign{"↓", "Down"}};

// The sign of a list that the words begin with; the list's end for none.
template <std::size_t N>
auto beginning(const std::array<Sign, N>& signs, std::string_view words) {
  return std::ranges::find_if(signs,
                              [&](const Sign& each) { return words.starts_with(each.sign); });
}

}  // namespace

std::string writtenKeys(std::string_view words, bool commandIsControl) {
  if (!commandIsControl) return std::string{words};
  std::string written;
  while (!words.empty()) {
    std::array<bool, kModifiers.size()> held{};
    for (auto each = beginning(kModifiers, words); each != kModifiers.end();
         each = beginning(kModifiers, words)) {
      held.at(static_cast<std::size_t>(each - kModifiers.begin())) = true;
      words.remove_prefix(each->sign.size());
    }
    for (std::size_t i = 0; i < held.size(); ++i) {
      if (held.at(i)) written += kModifiers.at(i).name;
    }
    const bool pressed = std::ranges::find(held, true) != held.end();
    if (const auto* named = beginning(kNamed, words); pressed && named != kNamed.end()) {
      written += named->name;
      words.remove_prefix(named->sign.size());
    } else if (!words.empty()) {
      written += words.front();
      words.remove_prefix(1);
    }
  }
  return written;
}

}  // namespace vellix
