#include "pictures/JpegMarks.hpp"

#include <algorithm>
#include <cstring>
#include <span>

namespace vellix {
namespace {

using Bytes = std::span<const unsigned char>;

constexpr std::int64_t kCoefficient = 2;  // bytes

unsigned wordAt(Bytes bytes, std::size_t at) { return bytes[at] * 256U + bytes[at + 1]; }

bool standsAlone(unsigned char mark) {
  return mark == 0x00 || mark == 0x01 || (mark >= 0xD0 && mark <= 0xD8);
}
// The others of this range define tables.
bool isFrame(unsigned char mark) {
  return mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
}
bool isProgressive(unsigned char mark) { return mark == 0xC2 || mark == 0xC6 || mark == 0xCA; }

struct Frame {
  int components = 0;
  bool progressive = false;
  std::int64_t coefficients = 0;  // of all components, each with a share of the picture's pixels
};

// `segment` begins behind its length.
Frame frameOf(unsigned char mark, Bytes segment) {
  Frame frame{.progressive = isProgressive(mark)};
  if (segment.size() < 6) return frame;
  frame.components = segment[5];
  const std::int64_t high = wordAt(segment, 1);
  const std::int64_t wide = wordAt(segment, 3);
  int across = 1;
  int down = 1;
  int samples = 0;
  for (int i = 0; i < frame.components && segment.size() > 7 + 3 * std::size_t(i); ++i) {
    const int factors = segment[7 + 3 * std::size_t(i)];
    across = std::max(across, factors >> 4);
    down = std::max(down, factors & 15);
    samples += (factors >> 4) * (factors & 15);
  }
  frame.coefficients = wide * high * samples / across / down;
  return frame;
}

}  // namespace

JpegMarks jpegMarks(const QByteArray& bytes) {
  const Bytes all(reinterpret_cast<const unsigned char*>(bytes.constData()),
                  static_cast<std::size_t>(bytes.size()));
  JpegMarks marks;
  Frame frame;
  std::size_t at = 2;
  while (at + 1 < all.size()) {
    const auto* found =
        static_cast<const unsigned char*>(std::memchr(all.data() + at, 0xFF, all.size() - at - 1));
    if (!found) return marks;
    at = static_cast<std::size_t>(found - all.data()) + 1;
    const unsigned char mark = all[at];
    if (mark == 0xFF) continue;  // fill byte: the next one is looked at as a mark's start
    ++at;
    if (mark == 0xD9) {
      marks.whole = true;
      return marks;
    }
    if (standsAlone(mark)) continue;
    if (at + 1 >= all.size()) return marks;
    const std::size_t length = wordAt(all, at);
    const Bytes segment = all.subspan(std::min(at + 2, all.size()));
    if (isFrame(mark)) frame = frameOf(mark, segment);
    if (mark == 0xDA) {
      ++marks.scans;
      const bool some = !segment.empty() && segment[0] < frame.components;
      const std::int64_t held = frame.progressive || some ? frame.coefficients * kCoefficient : 0;
      // A later frame is false, but the decoder has begun with the first by then.
      marks.coefficientBytes = std::max(marks.coefficientBytes, held);
    }
    at += length;
  }
  return marks;
}

}  // namespace vellix
