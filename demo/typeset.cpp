#include "typeset.hpp"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>

namespace vellix::demo {
namespace {

constexpr double kLeading = 56;
constexpr double kTextSize = 42;
constexpr double kIndent = 52;
constexpr double kTop = 284;
constexpr double kLeft = 196;
constexpr double kRight = 176;
constexpr int kLinesOnAPage = 28;
constexpr int kLinesUnderATitle = 20;
constexpr int kDropLines = 3;

QString serifFamily() {
  static const QString family = [] {
    const QStringList families = QFontDatabase::families();
    for (const char* wanted : {"EB Garamond", "P052", "Nimbus Roman", "DejaVu Serif"}) {
      if (families.contains(QLatin1String(wanted))) return QString::fromLatin1(wanted);
    }
    return QStringLiteral("Serif");
  }();
  return family;
}

std::vector<Word> wordsOf(const std::string& paragraph, int& nextId) {
  std::vector<Word> words;
  for (const QString& text : QString::fromStdString(paragraph).split(u' ', Qt::SkipEmptyParts)) {
    words.push_back({nextId++, text, Face::roman});
  }
  return words;
}

// Lines beside a drop cap are shorter, so they are filled one after another.
std::vector<Line> openingLines(std::vector<Word> words, double dropIndent, double measure) {
  std::vector<Line> lines;
  std::size_t at = 0;
  while (at < words.size() && lines.size() < kDropLines) {
    Line line{.words = {}, .indent = dropIndent, .starts = lines.empty()};
    double used = 0;
    while (at < words.size()) {
      const double width = widthOf(words[at].face, words[at].text);
      if (!line.words.empty() && used + width + 9 > measure - dropIndent) break;
      used += width + 10;
      line.words.push_back(words[at++]);
    }
    lines.push_back(std::move(line));
  }
  const std::vector<Word> rest(words.begin() + static_cast<std::ptrdiff_t>(at), words.end());
  for (Line& line : brokenLines(rest, 0, measure)) {
    line.starts = false;
    lines.push_back(std::move(line));
  }
  if (!lines.empty()) lines.back().ends = true;
  return lines;
}

struct Flow {
  const std::vector<std::string>& paragraphs;
  std::size_t next = 0;
  int nextId = 0;
  std::vector<Line> waiting;  // lines set and not yet on a page

  void refill(double measure) {
    if (next >= paragraphs.size()) return;
    waiting = brokenLines(wordsOf(paragraphs[next++], nextId), kIndent, measure);
  }
};

}  // namespace

QFont fontOf(Face face) {
  QFont font(face == Face::fallback ? QStringLiteral("DejaVu Sans") : serifFamily());
  font.setPixelSize(static_cast<int>(kTextSize));
  font.setHintingPreference(QFont::PreferNoHinting);
  switch (face) {
    case Face::roman:
      break;
    case Face::italic:
      font.setItalic(true);
      break;
    case Face::fallback:
      font.setPixelSize(34);
      break;
    case Face::smallCaps:
      font.setPixelSize(30);
      font.setLetterSpacing(QFont::AbsoluteSpacing, 5);
      break;
    case Face::dropCap:
      font.setPixelSize(212);
      break;
  }
  return font;
}

double widthOf(Face face, const QString& text) {
  static std::mutex mutex;
  static QHash<QString, double> known[5];
  const std::lock_guard lock(mutex);
  auto& widths = known[static_cast<int>(face)];
  if (const auto found = widths.constFind(text); found != widths.constEnd()) return *found;
  static const std::vector<QFontMetricsF> metrics = [] {
    std::vector<QFontMetricsF> all;
    for (int i = 0; i < 5; ++i) all.emplace_back(fontOf(static_cast<Face>(i)));
    return all;
  }();
  const double width = metrics[static_cast<std::size_t>(face)].horizontalAdvance(text);
  widths.insert(text, width);
  return width;
}

QRectF textBlock() { return {kLeft, kTop, kPageWidth - kLeft - kRight, kLeading * kLinesOnAPage}; }

QRectF plateBox(const TextPage& page) {
  return {kLeft + 40, kTop - 30, kPageWidth - kLeft - kRight - 80, page.plateHeight};
}

std::vector<PlacedWord> placed(const TextPage& page) {
  const QRectF block = textBlock();
  double baseline = block.top() + kTextSize;
  if (page.chapterNumber > 0) baseline += kLeading * (kLinesOnAPage - kLinesUnderATitle);
  if (page.plateHeight > 0) baseline += std::ceil(page.plateHeight / kLeading + 0.4) * kLeading;

  std::vector<PlacedWord> words;
  for (const Line& line : page.lines) {
    double natural = 0;
    for (const Word& word : line.words) natural += widthOf(word.face, word.text);
    const double room = block.width() - line.indent - natural;
    const auto gaps = static_cast<double>(line.words.size()) - 1;
    const bool spread = line.justified && !line.ends && gaps > 0;
    const double gap = spread ? std::max(4.0, room / gaps) : 10.5;
    double x = block.left() + line.indent;
    for (const Word& word : line.words) {
      const double width = widthOf(word.face, word.text);
      words.push_back({word.id, word.text, word.face, x, baseline, width});
      x += width + gap;
    }
    baseline += kLeading;
  }
  return words;
}

std::vector<Line> brokenLines(const std::vector<Word>& words, double firstIndent, double measure) {
  const std::size_t n = words.size();
  if (n == 0) return {};
  std::vector<double> ends(n + 1, 0);  // running widths, without gaps
  for (std::size_t i = 0; i < n; ++i) ends[i + 1] = ends[i] + widthOf(words[i].face, words[i].text);
  constexpr double kGap = 10.5;
  std::vector<double> cost(n + 1, std::numeric_limits<double>::infinity());
  std::vector<std::size_t> from(n + 1, 0);
  cost[0] = 0;
  for (std::size_t end = 1; end <= n; ++end) {
    for (std::size_t begin = end; begin-- > 0;) {
      const double gaps = static_cast<double>(end - begin - 1);
      const double room = measure - (begin == 0 ? firstIndent : 0) - (ends[end] - ends[begin]);
      if (room < gaps * 7.5 && end - begin > 1) break;
      const double stretch = gaps > 0 ? room / gaps - kGap : room;
      double penalty = end == n ? (room < gaps * kGap ? 400 : 0) : stretch * stretch * stretch;
      if (end == n && end - begin == 1) penalty = 4000;  // no single word on a last line
      const double total = cost[begin] + std::abs(penalty);
      if (total < cost[end]) {
        cost[end] = total;
        from[end] = begin;
      }
    }
  }
  std::vector<Line> lines;
  for (std::size_t end = n; end > 0; end = from[end]) {
    const auto begin = static_cast<std::ptrdiff_t>(from[end]);
    Line line;
    line.words.assign(words.begin() + begin, words.begin() + static_cast<std::ptrdiff_t>(end));
    line.starts = begin == 0;
    line.indent = line.starts ? firstIndent : 0;
    line.ends = end == n;
    lines.push_back(std::move(line));
  }
  std::ranges::reverse(lines);
  return lines;
}

std::vector<TextPage> pagesOf(const Book& book, int count, int firstNumber, int secondOpening,
                              const std::vector<int>& plates) {
  const double measure = textBlock().width();
  const auto paragraphs = paragraphsOf(book, static_cast<std::size_t>(count) * 280 + 400, 7);
  Flow flow{paragraphs, 0, 0, {}};
  std::vector<TextPage> pages;
  for (int i = 0; i < count; ++i) {
    TextPage page{.bookId = book.id,
                  .number = firstNumber + i,
                  .chapter = book.chapters[0],
                  .chapterNumber = 0,
                  .dropCap = {},
                  .plateHeight = 0,
                  .lines = {}};
    int room = kLinesOnAPage;
    if (i == secondOpening || i == 0) {
      page.chapterNumber = i == 0 ? 1 : 2;
      room = kLinesUnderATitle;
      flow.waiting.clear();
      // The chapter before ends where its last whole paragraph does.
      if (!pages.empty()) {
        auto& lines = pages.back().lines;
        while (!lines.empty() && !lines.back().ends) lines.pop_back();
      }
      if (flow.next < paragraphs.size()) {
        auto words = wordsOf(paragraphs[flow.next++], flow.nextId);
        if (words.front().text.startsWith(u'“')) words.front().text.remove(0, 1);
        page.dropCap = words.front().text.left(1).toUpper();
        words.front().text.remove(0, 1);
        if (words.front().text.isEmpty()) words.erase(words.begin());
        for (std::size_t w = 0; w < std::min<std::size_t>(words.size(), 3); ++w) {
          words[w].text = words[w].text.toUpper();
          words[w].face = Face::smallCaps;
        }
        flow.waiting =
            openingLines(std::move(words), widthOf(Face::dropCap, page.dropCap) + 10, measure);
      }
    }
    if (secondOpening > 0 && i >= secondOpening) page.chapter = book.chapters[1];
    if (std::ranges::find(plates, i) != plates.end()) {
      page.plateHeight = 760;
      room -= static_cast<int>(std::ceil(page.plateHeight / kLeading + 0.4));
    }
    while (room > 0) {
      if (flow.waiting.empty()) flow.refill(measure);
      if (flow.waiting.empty()) break;
      page.lines.push_back(std::move(flow.waiting.front()));
      flow.waiting.erase(flow.waiting.begin());
      --room;
    }
    pages.push_back(std::move(page));
  }
  return pages;
}

}  // namespace vellix::demo
