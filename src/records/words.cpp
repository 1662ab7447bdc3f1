#include "records/words.hpp"

#include "records/trimmed.hpp"

namespace vellix {

bool hasWords(std::string_view text) { return !trimmed(text).empty(); }

bool hasWords(const std::optional<std::string>& words) {
  return words && hasWords(std::string_view{*words});
}

std::string wordsOr(const std::optional<std::string>& words, std::string_view otherwise) {
  return hasWords(words) ? *words : std::string{otherwise};
}

}  // namespace vellix
