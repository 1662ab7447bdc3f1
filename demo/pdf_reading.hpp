// What a PDF holds, as its reader tells the service: the pages' sizes, and words at their places.
#pragma once

#include <QDataStream>
#include <QImage>
#include <QRectF>
#include <QString>
#include <vector>

namespace vellix::demo {

struct PdfWord {
  QString text;
  QRectF box;         // in fractions of the page as it is shown
  QString font = {};  // its name without the mark of a subset; empty where the PDF tells none
  double size = 0;    // of its letters, in points; 0 where the PDF tells none
};

struct PdfPage {
  double width = 0;  // in points, as shown: turned and cropped
  double height = 0;
  std::vector<PdfWord> words;  // in reading order, no more than kMostWordsOfAPage
  // The same, of what is left when it is cut, and of what is printed beyond that; empty where the
  // PDF tells neither.
  QSizeF trim = {};
  QSizeF bleed = {};
  std::vector<QString> inks = {};  // the spot colours that it prints with, sorted
  bool moreWords = false;          // there are more of them than were read
};
inline constexpr std::size_t kMostWordsOfAPage = 40'000;
// Of a whole PDF no more are held: what compares them takes half a kilobyte for each.
inline constexpr std::size_t kMostWords = 600'000;

struct PdfBarcode {
  QString kind;  // "EAN-13" and the like
  QString digits;
  QRectF box;  // in fractions of the page as it is shown
};

// A page as it looks.
struct PdfSight {
  QImage picture;  // RGB888, kSightDots an inch, fewer for a page that would be too large
  std::vector<PdfBarcode> barcodes;
};
inline constexpr int kSightDots = 100;
inline constexpr int kMostSightPixels = 3'000'000;

// Pixels of the shorter side of a page's sketch: enough to tell one page from another.
inline constexpr int kSketchSide = 128;

// Unread: its reader was ended from without, which says nothing of the PDF. No reader tells that.
enum class PdfTrouble { none, damaged, locked, empty, tooLong, unread };

// More than this is not read.
inline constexpr int kMostPdfPages = 600;

struct PdfReading {
  PdfTrouble trouble = PdfTrouble::damaged;
  int count = 0;  // of pages, also of a PDF that has too many
  std::vector<PdfPage> pages;
};

// Keeps that there are some.
inline void forgetWords(PdfPage& page) {
  page.moreWords = page.moreWords || !page.words.empty();
  page.words = {};
}

// What is cut short or makes no sense reads as nothing, a reading as damaged, and leaves the stream
// broken.
QDataStream& operator<<(QDataStream& stream, const PdfPage& page);
QDataStream& operator>>(QDataStream& stream, PdfPage& page);
QDataStream& operator<<(QDataStream& stream, const PdfReading& reading);
QDataStream& operator>>(QDataStream& stream, PdfReading& reading);
QDataStream& operator<<(QDataStream& stream, const PdfSight& sight);
QDataStream& operator>>(QDataStream& stream, PdfSight& sight);

}  // namespace vellix::demo
