#include "reader/words.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace vellix::demo {
namespace {

constexpr std::size_t kSubsetMark = 6;

// Without what marks a subset, "ABCDEF+", which every program makes up anew.
QString fontName(std::string_view name) {
  const auto isCapital = [](char letter) { return letter >= 'A' && letter <= 'Z'; };
  if (name.size() > kSubsetMark && name[kSubsetMark] == '+' &&
      std::ranges::all_of(name.substr(0, kSubsetMark), isCapital)) {
    name.remove_prefix(kSubsetMark + 1);
  }
  const QString text = QString::fromUtf8(QByteArrayView(name));
  // Names may be written in anything; the same bytes read the same at least.
  return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(QByteArrayView(name))
                                                    : text;
}

}  // namespace

void tellWords(const poppler::page& page, PdfPage& entry) {
  const QRectF whole(0, 0, 1, 1);
  const auto rounded = [](double value) { return std::round(value * 1e5) / 1e5; };
  for (const auto& box : page.text_list(poppler::page::text_list_include_font)) {
    const auto utf8 = box.text().to_utf8();
    // Letters that were joined into one are letters again, so that a word reads the same however
    // it was set.
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))
                       .normalized(QString::NormalizationForm_KC)
                       .trimmed();
    // A soft hyphen shows where a line ends with it, and nowhere else.
    const bool broken = text.endsWith(QChar(0xAD));
    text.remove(QChar(0xAD));
    if (broken) text += u'-';
    const auto at = box.bbox();
    const QRectF place = QRectF(at.x() / entry.width, at.y() / entry.height,
                                at.width() / entry.width, at.height() / entry.height)
                             .normalized()
                             .intersected(whole);
    if (text.isEmpty() || place.isEmpty()) continue;  // what was cut off is not on the page
    if (entry.words.size() == kMostWordsOfAPage) {
      entry.moreWords = true;
      return;
    }
    PdfWord word{text, QRectF(QPointF(rounded(place.left()), rounded(place.top())),
                              QPointF(rounded(place.right()), rounded(place.bottom())))};
    if (box.has_font_info()) {
      word.font = fontName(box.get_font_name());
      word.size = std::round(std::abs(box.get_font_size()) * 100) / 100;
    }
    entry.words.push_back(std::move(word));
  }
}

}  // namespace vellix::demo
