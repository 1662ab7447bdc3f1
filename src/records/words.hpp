// Words that the service may leave out. Empty ones, and blanks alone, are absent as well.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vellix {

bool hasWords(std::string_view text);
inline bool hasWords(const std::string& text) { return hasWords(std::string_view{text}); }
bool hasWords(const std::optional<std::string>& words);
// The words as they are, or what stands for them.
std::string wordsOr(const std::optional<std::string>& words, std::string_view otherwise);
inline std::string wordsOf(const std::optional<std::string>& words) { return wordsOr(words, {}); }

// Of UTF-8.
inline bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }

}  // namespace vellix
