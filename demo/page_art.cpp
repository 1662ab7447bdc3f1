#include "page_art.hpp"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace vellix::demo {
namespace {

constexpr double kFlapTextTop = 360;

std::vector<double> asFractions(const PageArt& page, const QRectF& box) {
  const QSize size = sizeOf(page);
  const auto rounded = [](double value) { return std::round(value * 1e5) / 1e5; };
  const double x = std::clamp(box.left() / size.width(), 0.0, 1.0);
  const double y = std::clamp(box.top() / size.height(), 0.0, 1.0);
  return {rounded(x), rounded(y), rounded(std::min(box.width() / size.width(), 1 - x)),
          rounded(std::min(box.height() / size.height(), 1 - y))};
}

// From a panel's pixels to its page's: a jacket holds the back on the left, the front on the right.
QRectF onPage(const PageArt& page, Element element, QRectF box) {
  if (page.kind != PageKind::jacket) return box;
  const bool onFront = element == Element::title || element == Element::tagline ||
                       element == Element::author || element == Element::picture;
  const double left = onFront || element == Element::medal ? kPageWidth * kJacketScale + kSpine : 0;
  return {left + box.left() * kJacketScale, box.top() * kJacketScale, box.width() * kJacketScale,
          box.height() * kJacketScale};
}

}  // namespace

PageArt textArt(TextPage page) {
  PageArt art;
  art.bookId = page.bookId;
  art.text = std::move(page);
  return art;
}

PageArt coverArt(const Book& book, PageKind kind) {
  PageArt art;
  art.kind = kind;
  art.bookId = book.id;
  art.barcode = book.isbn;
  int id = 0;
  for (const QString& word : QString::fromStdString(book.blurb).split(u' ', Qt::SkipEmptyParts)) {
    art.blurb.push_back({id++, word, Face::roman});
  }
  return art;
}

QSize sizeOf(const PageArt& page) {
  const int cut = static_cast<int>(page.trim);
  if (page.kind != PageKind::jacket) return {kPageWidth - cut, kPageHeight};
  return {static_cast<int>(2 * kPageWidth * kJacketScale + kSpine) - cut, 1515};
}

QRectF panelBox(PageKind panel, const std::string& bookId, Element element) {
  switch (element) {
    case Element::title:
      return {120, 150, 1200, bookId == "carto" ? 420.0 : bookId == "letter" ? 500.0 : 620.0};
    case Element::tagline: {
      const Book& book = bookOf(bookId);
      const auto lines = static_cast<double>(book.titleLines.size());
      return {320, 150 + lines * titlePixels(book) * 0.94 + 40, 800, 78};
    }
    case Element::author:
      return {120, 1800, 1200, 110};
    case Element::medal:
      return {1130, 1470, 190, 190};
    case Element::barcode:
      return {900, 1640, 410, 262};
    case Element::credit:
      return {130, 1836, 560, 44};
    case Element::blurb:
      return {150, 590, 1140, 760};
    case Element::picture:
      break;
  }
  if (panel == PageKind::text) return {};
  if (bookId == "salt") return {860, 800, 320, 320};
  if (bookId == "lanterns") return {440, 800, 560, 700};
  if (bookId == "carto") return {800, 1190, 280, 280};
  if (bookId == "bread") return {330, 890, 780, 640};
  if (bookId == "letter") return {240, 1080, 840, 540};
  return {340, 900, 760, 640};
}

int titlePixels(const Book& book) {
  const QRectF title = panelBox(PageKind::front, book.id, Element::title);
  const auto lines = static_cast<double>(book.titleLines.size());
  double pixels = title.height() / lines / 0.98;
  QFont font = fontOf(Face::roman);
  font.setPixelSize(100);
  const QFontMetricsF metrics(font);
  for (const std::string& line : book.titleLines) {
    const double width = metrics.horizontalAdvance(QString::fromStdString(line));
    pixels = std::min(pixels, title.width() / width * 100);
  }
  return static_cast<int>(pixels);
}

QFont blurbFont() {
  QFont font = fontOf(Face::roman);
  font.setPixelSize(47);
  return font;
}

std::vector<PlacedWord> blurbWords(const PageArt& page) {
  const QFontMetricsF metrics(blurbFont());
  const QRectF box = page.kind == PageKind::flaps
                         ? QRectF(110, kFlapTextTop, 540, 1400)
                         : panelBox(PageKind::back, page.bookId, Element::blurb);
  std::vector<PlacedWord> words;
  double x = box.left();
  double baseline = box.top() + 47;
  for (const Word& word : page.blurb) {
    const double width = metrics.horizontalAdvance(word.text);
    if (x > box.left() && x + width > box.right()) {
      x = box.left();
      baseline += 66;
    }
    words.push_back({word.id, word.text, word.face, x, baseline, width});
    x += width + 12;
  }
  return words;
}

std::vector<double> fractionBox(const PageArt& page, Element element) {
  if (page.kind == PageKind::text) {
    QRectF box = plateBox(page.text);
    box.translate(page.pictureShift.x() * kPageWidth, page.pictureShift.y() * kPageHeight);
    return asFractions(page, box);
  }
  QRectF box = panelBox(page.kind, page.bookId, element);
  if (element == Element::picture) {
    box.translate(page.pictureShift.x() * kPageWidth, page.pictureShift.y() * kPageHeight);
  }
  return asFractions(page, onPage(page, element, box));
}

std::vector<std::vector<double>> fractionBoxes(const PageArt& page, std::span<const int> wordIds) {
  const bool text = page.kind == PageKind::text;
  std::vector<std::vector<double>> boxes;
  QRectF open;
  double openLine = -1;
  const auto close = [&] {
    if (openLine >= 0) boxes.push_back(asFractions(page, onPage(page, Element::blurb, open)));
  };
  for (const PlacedWord& word : text ? placed(page.text) : blurbWords(page)) {
    if (std::ranges::find(wordIds, word.id) == wordIds.end()) continue;
    const QRectF box(word.x - 7, word.baseline - 36, word.width + 14, 50);
    if (word.baseline != openLine) {
      close();
      open = box;
      openLine = word.baseline;
    } else {
      open = open.united(box);
    }
  }
  close();
  return boxes;
}

}  // namespace vellix::demo
