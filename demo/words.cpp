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

// Sentences at home in any of the books.
const std::vector<std::string>& sharedStock() {
  static const std::vector<std::string> stock = {
      "{when} it was so still that {who} could hear {where}.",
      "Nothing was said about {thing} for the rest of that week.",
      "It had been mended twice, and both menders were proud of it.",
      "{who} had an answer ready, and kept it ready, and in the end took it home again.",
      "The way to {where} is longer in company.",
      "“That is one way to look at it,” said {who}, in the voice that meant there was another.",
      "{when} there was a little sun on {where}, of the kind that is only for looking at.",
      "Somebody had left {thing} out all night, and it was none the worse.",
      "You could have set a watch by {who}, if you had not minded the watch being slow.",
      "There was a gap where {thing} had stood, and everyone walked round it.",
      "{who} laughed, not unkindly, and pulled the door to.",
      "It was the third time that month, and the first time that anyone remarked on it.",
      "“I was told,” said {who}, “but I was not listening.”",
      "A thing well put away is a thing half lost.",
      "{when} {who} sat down by {where} and did nothing at all, with great attention.",
      "What was left of the afternoon went quietly into the hedges.",
      "In the end it was {who} who thought of {thing}.",
      "Most of what is known about {where} is known by people who were lost at the time.",
      "The door stood open a hand’s breadth, which was how it had always been shut.",
      "{when} there came a knock, and then, as nobody moved, a more thoughtful knock.",
      "By then the light had gone from {where}, and the talk went on without it.",
      "“Keep {thing},” {who} said. “You will be asked for it when you have forgotten why.”",
      "Some things are only ever found by people who are looking for their glasses.",
      "It rained, and then it had rained, and between the two {who} made up her mind."};
  return stock;
}

// A new order in which nothing comes again sooner than half a round after it was used.
void reshuffle(std::vector<std::size_t>& order, std::minstd_rand& dice) {
  const auto middle = order.begin() + static_cast<std::ptrdiff_t>(order.size() / 2);
  std::shuffle(order.begin(), middle, dice);
  std::shuffle(middle, order.end(), dice);
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
  std::vector<std::string> stock = book.stock;
  stock.insert(stock.end(), sharedStock().begin(), sharedStock().end());
  std::vector<std::size_t> order(stock.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), dice);
  std::size_t next = order.size();
  std::string open;
  std::size_t wanted = 3;
  std::size_t sentences = 0;
  while (written < words) {
    if (next == order.size()) {
      reshuffle(order, dice);
      next = 0;
    }
    std::string sentence = filled(stock[order[next++]], book, dice);
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
