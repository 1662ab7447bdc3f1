#include "running_heads.hpp"

#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace vellix::demo {
namespace {

// Fractions of the page's height that heads and feet keep to.
constexpr double kOuterPart = 0.14;
constexpr double kPointsAside = 3;
// Left and right pages have heads of their own, and a picture's page may have none.
constexpr std::size_t kPagesAround = 3;
constexpr std::size_t kFewestPages = 3;
// Of a line's height: further from the next one it stands apart.
constexpr double kApart = 0.9;
constexpr int kMostLines = 2;
constexpr std::size_t kMostWords = 40;
constexpr qsizetype kLongestNumber = 9;

struct Line {
  std::vector<std::uint32_t> words;
  double middle = 0;  // in points from the top
  bool apart = false;
  QString text;  // with # for its numbers
  std::optional<long> number;
};

std::optional<long> romanOf(const QString& text) {
  static const QString kLetters = QStringLiteral("ivxlcdm");
  constexpr std::array<long, 7> kValues = {1, 5, 10, 50, 100, 500, 1000};
  const QString low = text.toLower();
  if (text.isEmpty() || text.size() > kLongestNumber || (text != low && text != text.toUpper())) {
    return std::nullopt;
  }
  long sum = 0;
  long before = 0;
  for (qsizetype i = low.size(); i-- > 0;) {
    const auto at = kLetters.indexOf(low[i]);
    if (at < 0) return std::nullopt;
    const long value = kValues[static_cast<std::size_t>(at)];
    sum += value < before ? -value : value;
    before = std::max(before, value);
  }
  return sum;
}

std::optional<long> numberOf(const QString& text) {
  bool good = false;
  const long value = text.size() <= kLongestNumber ? text.toLong(&good) : 0;
  return good ? std::optional(value) : romanOf(text);
}

void putText(Line& line, const PdfPage& page) {
  std::ranges::stable_sort(line.words, {},
                           [&](std::uint32_t word) { return page.words[word].box.left(); });
  for (const std::uint32_t i : line.words) {
    const QString& text = page.words[i].text;
    const auto number = numberOf(text);
    if (number) line.number = number;
    QString part = number ? QStringLiteral("#") : text;
    for (QChar& letter : part) {
      if (letter.isDigit()) letter = u'#';
    }
    line.text += (line.text.isEmpty() ? QString() : QStringLiteral(" ")) + part;
  }
}

// The outermost lines of a page, at its head or else at its foot, from the edge inwards.
std::vector<Line> outerLines(const PdfPage& page, bool head) {
  std::vector<std::uint32_t> order;
  for (std::size_t i = 0; i < page.words.size(); ++i) {
    const QRectF& box = page.words[i].box;
    if (box.isValid() && std::isfinite(box.center().y()) && std::isfinite(box.height())) {
      order.push_back(static_cast<std::uint32_t>(i));
    }
  }
  const auto from = [&](std::uint32_t word) {
    const QRectF& box = page.words[word].box;
    return head ? box.center().y() : 1 - box.center().y();
  };
  const auto last = std::min(order.size(), kMostWords * (kMostLines + 1));
  std::ranges::partial_sort(order, order.begin() + static_cast<std::ptrdiff_t>(last), {}, from);
  order.resize(last);
  std::vector<Line> lines;
  QRectF line;
  for (const std::uint32_t word : order) {
    const QRectF& box = page.words[word].box;
    const double common = std::min(line.bottom(), box.bottom()) - std::max(line.top(), box.top());
    if (lines.empty() || common < std::min(line.height(), box.height()) / 2) {
      if (!lines.empty()) lines.back().apart = -common > kApart * line.height();
      if (lines.size() == kMostLines || from(word) > kOuterPart) break;
      lines.push_back({{}, box.center().y() * page.height, true, {}, {}});
      line = box;
    }
    lines.back().words.push_back(word);
  }
  std::erase_if(lines, [](const Line& one) { return one.words.size() > kMostWords; });
  for (Line& one : lines) putText(one, page);
  return lines;
}

bool repeats(const std::vector<std::vector<Line>>& pages, std::size_t page, const Line& line) {
  const std::size_t from = page < kPagesAround ? 0 : page - kPagesAround;
  for (std::size_t other = from; other < std::min(pages.size(), page + kPagesAround + 1); ++other) {
    if (other == page) continue;
    const long shift = static_cast<long>(other) - static_cast<long>(page);
    for (const Line& there : pages[other]) {
      if (std::abs(there.middle - line.middle) > kPointsAside || there.text != line.text) continue;
      const bool bare = line.words.size() == 1 && line.number;
      if (!bare || *there.number - *line.number == shift) return true;
    }
  }
  return false;
}

// At how many pages a line stands apart at that height.
std::size_t apartAt(const std::vector<std::vector<Line>>& pages, double middle, std::size_t depth) {
  return static_cast<std::size_t>(std::ranges::count_if(pages, [&](const auto& lines) {
    return depth < lines.size() && lines[depth].apart &&
           std::abs(lines[depth].middle - middle) <= kPointsAside;
  }));
}

void findAt(RunningHeads& found, const std::vector<PdfPage>& pages, bool head) {
  std::vector<std::vector<Line>> lines;
  lines.reserve(pages.size());
  for (const PdfPage& page : pages) lines.push_back(outerLines(page, head));
  for (std::size_t page = 0; page < pages.size(); ++page) {
    for (std::size_t depth = 0; depth < lines[page].size(); ++depth) {
      const Line& line = lines[page][depth];
      const auto stays = [&] {
        return pages.size() >= kFewestPages && line.apart &&
               apartAt(lines, line.middle, depth) * 2 >= std::max(pages.size(), 2 * kFewestPages);
      };
      if (!repeats(lines, page, line) && !stays()) break;
      found[page].insert(found[page].end(), line.words.begin(), line.words.end());
    }
  }
}

struct Split {
  QStringList rest;
  std::vector<long> numbers;
};

Split splitAtNumbers(const QString& text) {
  Split split;
  if (const auto roman = romanOf(text)) return {{QString(), QString()}, {*roman}};
  QString rest;
  for (qsizetype i = 0; i < text.size();) {
    if (!text[i].isDigit()) {
      rest += text[i++];
      continue;
    }
    qsizetype to = i;
    while (to < text.size() && text[to].isDigit()) ++to;
    split.rest << rest;
    split.numbers.push_back(text.mid(i, std::min(kLongestNumber, to - i)).toLong());
    rest.clear();
    i = to;
  }
  split.rest << rest;
  return split;
}

}  // namespace

RunningHeads runningHeadsOf(const std::vector<PdfPage>& pages) {
  RunningHeads found(pages.size());
  findAt(found, pages, true);
  findAt(found, pages, false);
  return found;
}

void keepShared(std::vector<std::uint32_t>& heads, const PdfPage& page,
                std::vector<std::uint32_t>& others, const PdfPage& partner) {
  const auto middle = [](const PdfPage& of, std::uint32_t word) {
    return of.words[word].box.center().y() * of.height;
  };
  const auto alone = [&](const PdfPage& here, const PdfPage& there,
                         const std::vector<std::uint32_t>& theirs) {
    return [&, middle](std::uint32_t word) {
      return std::ranges::none_of(theirs, [&](std::uint32_t other) {
        return std::abs(middle(here, word) - middle(there, other)) <= 2 * kPointsAside;
      });
    };
  };
  const auto all = heads;
  std::erase_if(heads, alone(page, partner, others));
  std::erase_if(others, alone(partner, page, all));
}

bool countsOn(const QString& before, const QString& now, long shift, long more) {
  if (before == now) return true;
  const Split old = splitAtNumbers(before);
  const Split fresh = splitAtNumbers(now);
  if (old.numbers.empty() || old.rest != fresh.rest) return false;
  for (std::size_t i = 0; i < old.numbers.size(); ++i) {
    const long by = fresh.numbers[i] - old.numbers[i];
    if (by != 0 && by != shift && by != more) return false;
  }
  return true;
}

std::optional<long> numberStep(const QString& before, const QString& now) {
  const Split old = splitAtNumbers(before);
  const Split fresh = splitAtNumbers(now);
  if (old.numbers.size() != 1 || old.rest != fresh.rest) return std::nullopt;
  return fresh.numbers.front() - old.numbers.front();
}

}  // namespace vellix::demo
