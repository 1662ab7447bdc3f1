// The demo's books: every word in them was written for the demo.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellix::demo {

struct Book {
  std::string id;
  std::string title;
  std::vector<std::string> titleLines;  // as a cover breaks it
  std::string author;
  std::string tagline;
  std::string blurb;
  std::string quote;
  std::string isbn;  // 13 digits with a right check digit, in a group that nobody was given
  std::vector<std::string> chapters;
  std::vector<std::string> opening;  // paragraphs, as written
  std::vector<std::string> stock;    // sentences with the slots {who} {where} {thing} {when}
  std::vector<std::string> who;
  std::vector<std::string> where;
  std::vector<std::string> thing;
  std::vector<std::string> when;
};

const std::vector<Book>& books();
const Book& bookOf(std::string_view id);

// The book's paragraphs: the opening, then as many composed ones as make up `words` words.
// The same for the same book on every run.
std::vector<std::string> paragraphsOf(const Book& book, std::size_t words, unsigned seed);

// One book each, gathered by books().
Book theSaltRoads();
Book lanternsOverVale();
Book aSmallCartography();
Book winterBread();
Book theLongLetter();
Book fieldNotesForRain();

}  // namespace vellix::demo
