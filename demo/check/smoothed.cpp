#include "check/smoothed.hpp"

#include <algorithm>

// The loops here are over plain bytes that do not overlap, so that the compiler takes sixteen at
// once; half of the time that a page takes is theirs.
namespace vellix::demo {
namespace {

constexpr std::size_t kPixel = 3;  // bytes

struct Mean {
  static uchar of(uchar a, uchar b, uchar middle) {
    const auto sides = static_cast<uchar>((a + b + 1U) >> 1U);
    return static_cast<uchar>((sides + middle + 1U) >> 1U);
  }
};
struct Least {
  static uchar of(uchar a, uchar b, uchar middle) { return std::min(std::min(a, b), middle); }
};
struct Most {
  static uchar of(uchar a, uchar b, uchar middle) { return std::max(std::max(a, b), middle); }
};

template <class How>
void downwards(const uchar* __restrict up, const uchar* __restrict middle,
               const uchar* __restrict down, uchar* __restrict out, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) out[i] = How::of(up[i], down[i], middle[i]);
}

template <class How>
void sideways(const uchar* __restrict row, uchar* __restrict out, std::size_t bytes) {
  if (bytes < 2 * kPixel) {
    std::copy_n(row, bytes, out);
    return;
  }
  for (std::size_t i = 0; i < kPixel; ++i) {
    const std::size_t end = bytes - 1 - i;
    out[i] = How::of(row[i], row[i + kPixel], row[i]);
    out[end] = How::of(row[end], row[end - kPixel], row[end]);
  }
  for (std::size_t i = kPixel; i < bytes - kPixel; ++i) {
    out[i] = How::of(row[i - kPixel], row[i + kPixel], row[i]);
  }
}

uchar less(uchar a, uchar b) { return static_cast<uchar>(std::max(a, b) - b); }

void widen(uchar* __restrict least, uchar* __restrict most, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) {
    const auto spread = static_cast<uchar>(most[i] - least[i]);
    const auto more = static_cast<uchar>((spread >> 2U) + (spread >> 3U));
    least[i] = less(least[i], more);
    most[i] = static_cast<uchar>(255 - less(static_cast<uchar>(255 - most[i]), more));
  }
}

void distance(const uchar* __restrict value, const uchar* __restrict least,
              const uchar* __restrict most, uchar* __restrict out, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) {
    out[i] = std::max(out[i], std::max(less(value[i], most[i]), less(least[i], value[i])));
  }
}

}  // namespace

Smoothed::Smoothed(const QImage& picture)
    : picture_(picture), bytes_(static_cast<std::size_t>(picture.width()) * kPixel) {
  for (Row& row : rows_) row.resize(bytes_);
  least_.resize(bytes_);
  most_.resize(bytes_);
  work_.resize(bytes_);
  made_.fill(-1);
}

const Smoothed::Row& Smoothed::row(int y) {
  y = std::clamp(y, 0, picture_.height() - 1);
  const auto slot = static_cast<std::size_t>(y) % rows_.size();
  if (made_[slot] != y) {
    smooth(y, rows_[slot]);
    made_[slot] = y;
  }
  return rows_[slot];
}

void Smoothed::range(int y) {
  const uchar* up = row(y - 1).data();
  const uchar* middle = row(y).data();
  const uchar* down = row(y + 1).data();
  downwards<Least>(up, middle, down, work_.data(), bytes_);
  sideways<Least>(work_.data(), least_.data(), bytes_);
  downwards<Most>(up, middle, down, work_.data(), bytes_);
  sideways<Most>(work_.data(), most_.data(), bytes_);
  widen(least_.data(), most_.data(), bytes_);
}

void Smoothed::smooth(int y, Row& to) {
  downwards<Mean>(picture_.constScanLine(std::max(0, y - 1)), picture_.constScanLine(y),
                  picture_.constScanLine(std::min(picture_.height() - 1, y + 1)), work_.data(),
                  bytes_);
  sideways<Mean>(work_.data(), to.data(), bytes_);
}

uchar beyond(const Smoothed::Row& one, const Smoothed& oneRange, const Smoothed::Row& other,
             const Smoothed& otherRange, Smoothed::Row& out) {
  std::ranges::fill(out, uchar{0});
  distance(one.data(), otherRange.least().data(), otherRange.most().data(), out.data(), out.size());
  distance(other.data(), oneRange.least().data(), oneRange.most().data(), out.data(), out.size());
  uchar most = 0;
  for (const uchar byte : out) most = std::max(most, byte);
  return most;
}

}  // namespace vellix::demo
