// What a PDF holds, as its reader tells the service: the pages' sizes, and words at their places.
#pragma once

#include <QDataStream>
#include <QRectF>
#include <QString>
#include <vector>

namespace vellix::demo {

struct PdfWord {
  QString text;
  QRectF box;  // in fractions of the page as it is shown
};

struct PdfPage {
  double width = 0;  // in points, as shown: turned and cropped
  double height = 0;
  std::vector<PdfWord> words;  // in reading order
};

enum class PdfTrouble { none, damaged, locked, empty, tooLong };

// More than this is not read.
inline constexpr int kMostPdfPages = 600;

struct PdfReading {
  PdfTrouble trouble = PdfTrouble::damaged;
  int count = 0;  // of pages, also of a PDF that has too many
  std::vector<PdfPage> pages;
};

QDataStream& operator<<(QDataStream& stream, const PdfReading& reading);
// What is cut short or makes no sense reads as damaged.
QDataStream& operator>>(QDataStream& stream, PdfReading& reading);

}  // namespace vellix::demo
