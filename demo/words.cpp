#include "words.hpp"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <random>
#include <utility>

namespace vellix::demo {
namespace {

std::string filled(std::string sentence, const Book& book, std::minstd_rand& dice) {
  const std::pair<std::string_view, const std::vector<std::string>*> slots[] = {
      {"{who}", &book.who},
      {"{where}", &book.where},
      {"{thing}", &book.thing},
      {"{when}", &book.when}};
  for (const auto& [slot, words] : slots) {
    for (auto at = sentence.find(slot); at != std::string::npos; at = sentence.find(slot)) {
      sentence.replace(at, slot.size(), (*words)[dice() % words->size()]);
    }
  }
  sentence[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(sentence[0])));
  return sentence;
}

std::size_t wordCount(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count(text, ' ')) + 1;
}

}  // namespace

const std::vector<Book>& books() {
  static const std::vector<Book> all = {theSaltRoads(), lanternsOverVale(), aSmallCartography(),
                                        winterBread(),  theLongLetter(),    fieldNotesForRain()};
  return all;
}

const Book& bookOf(std::string_view id) {
  const auto& all = books();
  const auto found = std::ranges::find(all, id, &Book::id);
  return found == all.end() ? all.front() : *found;
}

std::vector<std::string> paragraphsOf(const Book& book, std::size_t words, unsigned seed) {
  std::vector<std::string> paragraphs = book.opening;
  std::size_t written = 0;
  for (const auto& paragraph : paragraphs) written += wordCount(paragraph);

  std::minstd_rand dice(seed);
  std::vector<std::size_t> order(book.stock.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::size_t next = order.size();
  std::string open;
  std::size_t wanted = 3;
  std::size_t sentences = 0;
  while (written < words) {
    if (next == order.size()) {
      std::shuffle(order.begin(), order.end(), dice);
      next = 0;
    }
    std::string sentence = filled(book.stock[order[next++]], book, dice);
    written += wordCount(sentence);
    const bool speech = sentence.starts_with("“");
    if ((speech || sentences == wanted) && !open.empty()) {
      paragraphs.push_back(std::exchange(open, {}));
      sentences = 0;
      wanted = 3 + dice() % 4;
    }
    open += (open.empty() ? "" : " ") + sentence;
    if (speech) sentences = wanted - 1;  // one sentence may follow what was said
    ++sentences;
  }
  if (!open.empty()) paragraphs.push_back(open);
  return paragraphs;
}

}  // namespace vellix::demo
