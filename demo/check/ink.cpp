#include "check/ink.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <vector>

namespace vellix::demo {
namespace {

constexpr int kAside = 3;  // pixels; edges are smoothed
constexpr int kEvery = 7;  // of the pixels of a page are enough to tell its ground

double brightness(const uchar* pixel) { return (pixel[0] + 2 * pixel[1] + pixel[2]) / 4.0; }

QRgb medianOf(std::array<std::vector<uchar>, 3>& channels) {
  if (channels[0].empty()) return qRgb(255, 255, 255);
  std::array<int, 3> middle{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto at = channels[i].begin() + std::ssize(channels[i]) / 2;
    std::ranges::nth_element(channels[i], at);
    middle[i] = *at;
  }
  return qRgb(middle[0], middle[1], middle[2]);
}

}  // namespace

int away(const uchar* pixel, QRgb from) {
  return std::max({std::abs(pixel[0] - qRed(from)), std::abs(pixel[1] - qGreen(from)),
                   std::abs(pixel[2] - qBlue(from))});
}

QRgb groundOf(const QImage& picture) {
  struct Shades {
    int count = 0;
    std::array<int, 3> sum{};
  };
  std::map<int, Shades> coarse;
  for (int y = kEvery / 2; y < picture.height(); y += kEvery) {
    for (int x = kEvery / 2; x < picture.width(); x += kEvery) {
      const uchar* pixel = pixelAt(picture, x, y);
      Shades& like = coarse[(pixel[0] >> 4) << 8 | (pixel[1] >> 4) << 4 | pixel[2] >> 4];
      ++like.count;
      for (std::size_t i = 0; i < 3; ++i) like.sum[i] += pixel[i];
    }
  }
  const auto most =
      std::ranges::max_element(coarse, {}, [](const auto& entry) { return entry.second.count; });
  if (most == coarse.end()) return qRgb(255, 255, 255);
  const auto& [count, sum] = most->second;
  return qRgb(sum[0] / count, sum[1] / count, sum[2] / count);
}

QRgb groundAround(const QImage& picture, const QRect& place) {
  std::array<std::vector<uchar>, 3> channels;
  const auto take = [&](int x, int y) {
    if (!picture.rect().contains(x, y)) return;
    const uchar* pixel = pixelAt(picture, x, y);
    for (std::size_t i = 0; i < 3; ++i) channels[i].push_back(pixel[i]);
  };
  const auto walk = [&](const QRect& frame) {
    for (int x = frame.left(); x <= frame.right(); ++x) {
      take(x, frame.top());
      take(x, frame.bottom());
    }
    for (int y = frame.top() + 1; y < frame.bottom(); ++y) {
      take(frame.left(), y);
      take(frame.right(), y);
    }
  };
  walk(place.adjusted(-kAside, -kAside, kAside, kAside));
  if (channels[0].empty()) walk(picture.rect());
  return medianOf(channels);
}

double edgesIn(const QImage& picture, const QRect& place) {
  const QRect inside = place & picture.rect().adjusted(0, 0, -1, -1);
  if (inside.isEmpty()) return 0;
  double sum = 0;
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    for (int x = inside.left(); x <= inside.right(); ++x) {
      const double here = brightness(pixelAt(picture, x, y));
      sum += std::abs(here - brightness(pixelAt(picture, x + 1, y)));
      sum += std::abs(here - brightness(pixelAt(picture, x, y + 1)));
    }
  }
  return sum / (static_cast<double>(inside.width()) * inside.height());
}

double likenessIn(const QImage& one, const QImage& other, const QRect& place) {
  const QRect inside = place & one.rect() & other.rect();
  double a = 0;
  double b = 0;
  double aa = 0;
  double bb = 0;
  double ab = 0;
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    for (int x = inside.left(); x <= inside.right(); ++x) {
      const double first = brightness(pixelAt(one, x, y));
      const double second = brightness(pixelAt(other, x, y));
      a += first;
      b += second;
      aa += first * first;
      bb += second * second;
      ab += first * second;
    }
  }
  const double n = static_cast<double>(inside.width()) * inside.height();
  if (n <= 0) return 0;
  const double spread = (aa - a * a / n) * (bb - b * b / n);
  return spread > 1 ? (ab - a * b / n) / std::sqrt(spread) : 0;
}

}  // namespace vellix::demo
