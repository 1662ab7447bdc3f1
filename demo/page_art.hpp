// One printable page as a description: what is on it, where, and what was done to it. Painting it
// and telling the true place of anything on it both start from here.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "typeset.hpp"

namespace vellix::demo {

enum class PageKind { text, front, back, jacket, flaps };
enum class Element { title, tagline, author, picture, medal, barcode, credit, blurb };

struct PageArt {
  PageKind kind = PageKind::text;
  std::string bookId;
  TextPage text;               // of a text page
  std::vector<Word> blurb;     // of a cover's back
  std::string barcode;         // 13 digits, of a cover's back
  QPointF pictureShift;        // the picture's offset, as fractions of its page
  bool strayColour = false;    // the medal is in a colour that is not the book's
  bool creditCovered = false;  // the credit line lies under the art
  double trim = 0;             // pixels cut off at the right
  bool earlierPrinting = false;
};

// What stands under the title in an earlier printing.
inline constexpr const char* kEarlierTagline = "The celebrated first book";

PageArt textArt(TextPage page);
PageArt coverArt(const Book& book, PageKind kind);

// In pixels.
QSize sizeOf(const PageArt& page);

// Width of a jacket's spine in its pixels, and how much smaller its panels are than covers.
inline constexpr double kSpine = 162;
inline constexpr double kJacketScale = 1515.0 / kPageHeight;

// The place of an element in the pixels of the panel it stands on.
QRectF panelBox(PageKind panel, const std::string& bookId, Element element);

// The size of a front's title, in the panel's pixels; its lines stand 0.94 of it apart.
int titlePixels(const Book& book);

// The words of the back's blurb as set, in the panel's pixels.
std::vector<PlacedWord> blurbWords(const PageArt& page);
QFont blurbFont();

// Boxes as x, y, w, h in fractions of the page. The second has one box for each line that the
// words stand on, in reading order; empty when none of them is on the page.
std::vector<double> fractionBox(const PageArt& page, Element element);
std::vector<std::vector<double>> fractionBoxes(const PageArt& page, std::span<const int> wordIds);

}  // namespace vellix::demo
