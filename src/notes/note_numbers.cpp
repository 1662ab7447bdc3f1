#include "notes/note_numbers.hpp"

#include <map>

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

}  // namespace vellix
