// Pages as a reader would tell them, set line by line with letters that are all as wide.
#pragma once

#include <string>
#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

inline constexpr double kPageWidth = 500;
inline constexpr double kPageHeight = 700;
inline constexpr double kLetter = 5;  // points
inline constexpr double kLine = 14;

// Words of one line; what it says may be in any script.
inline void setLine(PdfPage& page, const QString& text, double x, double y,
                    const QString& font = QStringLiteral("Salt Roman"), double size = 10) {
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    const double wide = kLetter * size / 10 * static_cast<double>(word.size());
    page.words.push_back({word,
                          {x / page.width, y / page.height, wide / page.width, size / page.height},
                          font,
                          size});
    x += wide + kLetter * size / 10;
  }
}

// Lines from the top margin on.
inline PdfPage setPage(const QStringList& lines, double y = 120) {
  PdfPage page{kPageWidth, kPageHeight, {}};
  for (const QString& line : lines) {
    setLine(page, line, 60, y);
    y += kLine;
  }
  return page;
}

// Running text over as many pages as it takes.
inline std::vector<PdfPage> setText(const QString& text, qsizetype lettersOfALine = 60,
                                    qsizetype linesOfAPage = 30) {
  QStringList lines;
  QString line;
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    if (!line.isEmpty() && line.size() + 1 + word.size() > lettersOfALine) {
      lines << line;
      line.clear();
    }
    line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
  }
  lines << line;
  std::vector<PdfPage> pages;
  for (qsizetype at = 0; at < lines.size(); at += linesOfAPage) {
    pages.push_back(setPage(lines.mid(at, linesOfAPage)));
  }
  return pages;
}

// So many words that each stand once: "w1000 w1001".
inline QString ownWords(int count, int from = 1000) {
  QStringList words;
  for (int i = 0; i < count; ++i) words << QStringLiteral("w%1").arg(from + i);
  return words.join(u' ');
}

// By number.
inline Partners asTheyStand(std::size_t proof, std::size_t reference) {
  Partners partners(proof);
  for (std::size_t i = 0; i < std::min(proof, reference); ++i) partners[i] = Partner{i, 1};
  return partners;
}

}  // namespace vellix::demo
