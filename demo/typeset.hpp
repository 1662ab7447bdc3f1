// Text pages: prose broken into justified lines and lines into pages, in page pixels.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <string>
#include <vector>

#include "words.hpp"

namespace vellix::demo {

// A text page is 6 by 8.5 inches at 240 pixels an inch.
inline constexpr int kPageWidth = 1440;
inline constexpr int kPageHeight = 2040;

enum class Face { roman, italic, fallback, smallCaps, dropCap };

// The font of a face at its size on a text page.
QFont fontOf(Face face);
// Width of text in a face, remembered. Any thread.
double widthOf(Face face, const QString& text);

struct Word {
  int id = 0;  // counts through the book, and stays the same whatever becomes of the word
  QString text;
  Face face = Face::roman;
};

struct Line {
  std::vector<Word> words;
  double indent = 0;
  bool justified = true;
  bool ends = false;    // the paragraph's last line
  bool starts = false;  // the paragraph's first line
};

struct TextPage {
  std::string bookId;
  int number = 0;  // as printed
  std::string chapter;
  int chapterNumber = 0;  // above 0 on the page that opens a chapter
  QString dropCap;
  double plateHeight = 0;  // a drawing at the head of the page, 0 for none
  std::vector<Line> lines;
};

struct PlacedWord {
  int id = 0;
  QString text;
  Face face = Face::roman;
  double x = 0;
  double baseline = 0;
  double width = 0;
};

// The area that the text may fill, and the place of a plate on a page that has one.
QRectF textBlock();
QRectF plateBox(const TextPage& page);

std::vector<PlacedWord> placed(const TextPage& page);

// Breaks the words into lines of a paragraph so that the gaps come out even.
std::vector<Line> brokenLines(const std::vector<Word>& words, double firstIndent, double measure);

// The first `count` pages of a book, numbered from `firstNumber`. A chapter opens on the first
// page and again where `secondOpening` says (counted from 0; negative for none); pages of `plates`
// carry a drawing.
std::vector<TextPage> pagesOf(const Book& book, int count, int firstNumber, int secondOpening,
                              const std::vector<int>& plates);

}  // namespace vellix::demo
