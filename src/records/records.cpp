#include "records/records.hpp"

#include <algorithm>

#include "records/words.hpp"

namespace vellix {
namespace {

// The shape assumed of a page whose size is not known.
constexpr double kUnknownAspect = 0.77;

std::string firstWord(const std::string& name) {
  const auto begin = name.find_first_not_of(' ');
  if (begin == std::string::npos) return name;
  return name.substr(begin, name.find(' ', begin) - begin);
}

}  // namespace

bool isArea(double w, double h) {
  constexpr double kLeast = 0.004;
  return w > kLeast && h > kLeast;
}

std::string Me::firstName() const { return firstWord(name); }
std::string Person::firstName() const { return firstWord(name); }

std::string Guest::shownName() const {
  return hasWords(name) ? *name : email.substr(0, email.find('@'));
}

std::string Page::name() const {
  if (hasWords(label)) return *label;
  // The greatest index has a successor only without the sign.
  return i < 0 ? std::to_string(i + 1) : std::to_string(static_cast<std::uint64_t>(i) + 1);
}

double Page::aspect() const {
  if (px && px->size() == 2 && (*px)[1] > 0) return (*px)[0] / (*px)[1];
  if (w && h && *h > 0) return *w / *h;
  return kUnknownAspect;
}

std::string FileItem::heading() const {
  if (hasWords(title) && hasWords(component)) {
    std::string both;
    both.reserve(title->size() + 1 + component->size());
    both += *title;
    both += ' ';
    both += *component;
    return both;
  }
  if (hasWords(title)) return *title;
  if (hasWords(component)) return *component;
  return wordsOr(filename, "Untitled file");
}

const Ref* FileItem::ref(std::string_view role) const {
  if (!refs) return nullptr;
  const auto found = std::ranges::find(*refs, role, &Ref::role);
  return found == refs->end() ? nullptr : &*found;
}

}  // namespace vellix
