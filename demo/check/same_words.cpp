#include "check/same_words.hpp"

#include <QMultiHash>
#include <cmath>

namespace vellix::demo {
namespace {

constexpr double kPointsAside = 0.5;

bool sameFace(const PdfWord& a, const PdfWord& b) {
  const bool font = a.font.isEmpty() || b.font.isEmpty() || a.font == b.font;
  const bool size = a.size <= 0 || b.size <= 0 || std::abs(a.size - b.size) <= kPointsAside;
  return font && size;
}

bool near(const QRectF& a, const QRectF& b, double most) {
  return std::abs(a.left() - b.left()) <= most && std::abs(a.right() - b.right()) <= most &&
         std::abs(a.top() - b.top()) <= most && std::abs(a.bottom() - b.bottom()) <= most;
}

}  // namespace

WordsInPlace wordsInPlace(const PdfPage& proof, const PdfPage& reference, const Overlay& overlay) {
  WordsInPlace found;
  if (proof.words.empty() || reference.words.empty()) return found;
  const double width = overlay.proof.width();
  const double height = overlay.proof.height();
  // Where a page lies aside is known to half a pixel at the best.
  const double most = kPointsAside * width / std::max(1.0, reference.width) + 0.5;
  QMultiHash<QString, std::size_t> left;
  std::vector<QRectF> places;
  for (std::size_t i = 0; i < proof.words.size(); ++i) {
    left.insert(proof.words[i].text, i);
    places.push_back(overlay.placed(proof.words[i].box));
  }
  for (const PdfWord& word : reference.words) {
    const QRectF place(word.box.x() * width, word.box.y() * height, word.box.width() * width,
                       word.box.height() * height);
    auto [at, end] = left.equal_range(word.text);
    while (at != end && !(near(place, places[*at], most) && sameFace(word, proof.words[*at]))) {
      ++at;
    }
    if (at == end) {
      found.other.push_back(place);
    } else {
      found.same.push_back({word.text, place});
      left.erase(at);
    }
  }
  for (const std::size_t i : left) found.other.push_back(places[i]);
  return found;
}

}  // namespace vellix::demo
