#include "pieces/avatar.hpp"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t lengthOfCharacter(std::string_view text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && isContinuation(text[end])) ++end;
  return end - at;
}

// U+0300 to U+036F: accents that stand on the character before them.
bool isAccent(std::string_view character) {
  return character >= "\u0300" && character <= "\u036F" && character.size() == 2;
}

std::string firstCharacter(std::string_view text) {
  if (text.empty()) return {};
  std::size_t end = lengthOfCharacter(text, 0);
  while (end < text.size()) {
    const std::size_t next = lengthOfCharacter(text, end);
    if (!isAccent(text.substr(end, next))) break;
    end += next;
  }
  return std::string{text.substr(0, end)};
}

// Six hexadecimal digits behind one character of any kind.
std::string colorOf(const std::optional<std::string>& text) {
  constexpr std::size_t digits = 6;
  if (!text || text->size() <= digits) return {};
  const std::string_view mark{text->data(), text->size() - digits};
  const std::string_view value{text->data() + mark.size(), digits};
  const bool hexadecimal =
      value.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
  if (!hexadecimal || lengthOfCharacter(mark, 0) != mark.size()) return {};
  return "#" + std::string{value};
}

const Person* personOf(const std::string& email, const BoardState& board) {
  const auto found = std::ranges::find(board.users, email, &Person::email);
  return found == board.users.end() ? nullptr : &*found;
}

// By what the approvers and guests call the address; by the address itself when they do not.
std::string nameOutside(const std::string& email, const BoardState& board) {
  for (const auto* list : {&board.approvers, &board.guests}) {
    if (!*list) continue;
    const auto found = std::ranges::find(**list, email, &Guest::email);
    if (found != (*list)->end()) return wordsOr(found->name, email);
  }
  return email;
}

std::string firstFilled(std::initializer_list<std::string_view> texts) {
  for (const std::string_view text : texts) {
    if (hasWords(text)) return std::string{text};
  }
  return {};
}

}  // namespace

AvatarView avatarOf(const std::optional<std::string>& email, const Store& store) {
  const std::string address = email.value_or("");
  const auto& board = store.board();
  const Person* person = board ? personOf(address, *board) : nullptr;
  if (!person) {
    const std::string name = board ? nameOutside(address, *board) : address;
    return {.letter = firstCharacter(firstFilled({name, address, "?"})),
            .help = firstFilled({address, kWorker})};
  }
  return {.letter = firstCharacter(firstFilled({person->firstName(), address, "?"})),
          .color = colorOf(person->color),
          .photo = person->photo.value_or(""),
          .help = firstFilled({person->name, address, kWorker})};
}

}  // namespace vellix
