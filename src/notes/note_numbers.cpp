#include "notes/note_numbers.hpp"

#include <algorithm>
#include <map>
#include <optional>

namespace vellix {

std::vector<Int> noteNumbers(const FileDetail& detail) {
  std::vector<Int> numbers;
  numbers.reserve(detail.comments.size());
  std::map<Int, Int> open;
  for (const Note& note : detail.comments) {
    numbers.push_back(note.page && !note.isResolved() ? ++open[*note.page] : 0);
  }
  return numbers;
}

std::string numberRoom(const FileDetail& detail, Int page) {
  const auto most = std::ranges::count(detail.comments, std::optional{page}, &Note::page);
  return std::string(std::to_string(most).size(), '0');
}

}  // namespace vellix
