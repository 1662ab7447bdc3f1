#include "platform/qt/PixelCache.hpp"

#include <QImageReader>
#include <algorithm>
#include <optional>

#include "platform/qt/PictureReading.hpp"

namespace vellix {
namespace {

constexpr int kThreads = 2;
constexpr int kMostMegabytes = 512;  // of one picture's pixels
// What is shown smaller than this is a thumbnail, and says nothing about how pages are shown.
constexpr int kSmallestPage = 400;

enum Priority { kAhead, kForAView };

}  // namespace

PixelCache::PixelCache(std::int64_t budgetBytes) : budget_(budgetBytes) {
  pool_.setMaxThreadCount(kThreads);
  QImageReader::setAllocationLimit(kMostMegabytes);
}

PixelCache::~PixelCache() {
  pool_.clear();
  pool_.waitForDone();
}

QImage PixelCache::cachedPixels(const Picture& picture, QSize shown) {
  const int most = needed(picture, shown);
  for (const int reduction : kReductions) {
    if (reduction > most) continue;
    const QImage image = find({picture.key, reduction});
    if (!image.isNull()) return image;
  }
  return {};
}

void PixelCache::requestPixels(const PictureHandle& picture, QSize shown, QObject* context,
                               Done done) {
  const QImage atHand = cachedPixels(*picture, shown);
  Waiter waiter{std::move(done), true, context};
  if (atHand.isNull()) {
    return request(*picture, needed(*picture, shown), kForAView, std::move(waiter));
  }
  later([waiter = std::move(waiter), atHand] {
    if (waiter.context) waiter.done(atHand);
  });
}

void PixelCache::warm(const PictureHandle& picture) {
  if (!find({picture->key, pageReduction_}).isNull()) return;
  request(*picture, pageReduction_, kAhead, {[](const QImage&) {}, false, nullptr});
}

void PixelCache::decodeWhole(Picture encoded, Done done) {
  const Key key{encoded.key, pageReduction_};
  // What lies in a file was decoded before it was written. Bytes from outside always are.
  if (!encoded.file.empty()) {
    const QImage atHand = find(key);
    if (!atHand.isNull()) return later([done = std::move(done), atHand] { done(atHand); });
    return request(encoded, key.second, kAhead, {std::move(done), false, nullptr});
  }
  decode(encoded, key.second, kAhead, [this, key, done = std::move(done)](const QImage& image) {
    keep(key, image);
    done(image);
  });
}

int PixelCache::needed(const Picture& picture, QSize shown) {
  const int reduction = reductionFor({picture.width, picture.height}, shown);
  if (std::max(shown.width(), shown.height()) >= kSmallestPage) pageReduction_ = reduction;
  return reduction;
}

QImage PixelCache::find(const Key& key) {
  const auto found = index_.find(key);
  if (found == index_.end()) return {};
  entries_.splice(entries_.begin(), entries_, found->second);
  return found->second->image;
}

void PixelCache::keep(const Key& key, const QImage& image) {
  const std::int64_t size = image.sizeInBytes();
  if (image.isNull() || key.first.empty() || size > budget_ || index_.contains(key)) return;
  while (held_ + size > budget_) {
    held_ -= entries_.back().image.sizeInBytes();
    index_.erase(entries_.back().key);
    entries_.pop_back();
  }
  entries_.push_front({key, image});
  index_[key] = entries_.begin();
  held_ += size;
}

void PixelCache::request(const Picture& picture, int reduction, int priority, Waiter waiter) {
  const Key key{picture.key, reduction};
  auto& waiters = wanted_[key];
  waiters.push_back(std::move(waiter));
  if (waiters.size() > 1) return;
  decode(picture, reduction, priority, [this, key](const QImage& image) {
    keep(key, image);
    const auto told = std::move(wanted_[key]);
    wanted_.erase(key);
    for (const auto& one : told) {
      if (!one.bound || one.context) one.done(image);
    }
  });
}

void PixelCache::decode(const Picture& picture, int reduction, int priority, Done done) {
  const auto id = ++started_;
  decoding_[id] = std::move(done);
  const auto work = [this, id, picture, reduction] {
    const auto bytes = encodedBytes(picture);
    const QImage image = bytes ? decodePicture(*bytes, reduction) : QImage();
    later([this, id, image] {
      const auto found = decoding_.find(id);
      const Done told = std::move(found->second);
      decoding_.erase(found);
      told(image);
    });
  };
  pool_.start(work, priority);
}

// Callable from any thread.
void PixelCache::later(std::function<void()> work) {
  QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

}  // namespace vellix
