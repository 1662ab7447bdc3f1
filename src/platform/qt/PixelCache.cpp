#include "platform/qt/PixelCache.hpp"

#include <QImageReader>

#include "platform/qt/PictureReading.hpp"

namespace vellix {
namespace {

constexpr int kThreads = 2;
constexpr int kMostMegabytes = 512;  // of one picture's pixels
// Until a page was shown nobody knows how large: enough for most windows.
constexpr int kFirstReduction = 2;

enum Priority { kAhead, kForAView };

QSize wholeOf(const Picture& picture) { return {picture.width, picture.height}; }

QImage scaled(const QImage& image, QSize size) {
  if (image.isNull() || image.size() == size) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

PixelCache::PixelCache(std::int64_t budgetBytes) : budget_(budgetBytes) {
  pool_.setMaxThreadCount(kThreads);
  QImageReader::setAllocationLimit(kMostMegabytes);
}

PixelCache::~PixelCache() {
  pool_.clear();
  pool_.waitForDone();
}

Pixels PixelCache::cachedPixels(const Picture& picture, const PictureRoom& room) {
  const QSize whole = wholeOf(picture);
  if (QImage exact = find(keyOf(picture, exactSize(whole, room))); !exact.isNull()) {
    return {std::move(exact), whole};
  }
  Pixels best;
  const Key* bestKey = nullptr;
  for (auto at = index_.lower_bound(keyOf(picture, {0, 0}));
       at != index_.end() && at->first.first == picture.key; ++at) {
    Pixels one{at->second->image, whole};
    if (!looksBetter(one, best, room)) continue;
    best = std::move(one);
    bestKey = &at->first;
  }
  if (bestKey) find(*bestKey);  // it is in use
  return best;
}

void PixelCache::requestPixels(const PictureHandle& picture, const PictureRoom& room,
                               QObject* context, Done done) {
  const QSize whole = wholeOf(*picture);
  const QSize exact = exactSize(whole, room);
  Waiter waiter{std::move(done), true, context};
  if (QImage atHand = find(keyOf(*picture, exact)); !atHand.isNull()) {
    return later([waiter = std::move(waiter), pixels = Pixels(std::move(atHand), whole)] {
      if (waiter.context) waiter.done(pixels);
    });
  }
  request({.picture = *picture, .exact = exact, .keepsReduced = true, .priority = kForAView},
          std::move(waiter));
}

void PixelCache::decodeWhole(Picture encoded, Done done) {
  const QSize whole = wholeOf(encoded);
  const QSize exact = page_.isEmpty() ? reducedSize(whole, kFirstReduction)
                                      : exactSize(whole, roomOnPage(whole, page_));
  Job job{.picture = std::move(encoded), .exact = exact, .priority = kAhead};
  const Key key = keyOf(job.picture, exact);
  // What lies in a file was decoded before it was written. Bytes from outside always are.
  if (!job.picture.file.empty()) {
    if (QImage atHand = find(key); !atHand.isNull()) {
      return later(
          [done = std::move(done), pixels = Pixels(std::move(atHand), whole)] { done(pixels); });
    }
    return request(job, {std::move(done), false, nullptr});
  }
  start(job, [this, key, whole, done = std::move(done)](const Made& made) {
    keep(key, made.exact);
    done({made.exact, whole});
  });
}

PixelCache::Key PixelCache::keyOf(const Picture& picture, QSize size) {
  return {picture.key, {size.width(), size.height()}};
}

void PixelCache::notePage(const PictureRoom& room) {
  if (!room.page.isEmpty()) page_ = room.page;
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

void PixelCache::request(const Job& job, Waiter waiter) {
  const Key key = keyOf(job.picture, job.exact);
  auto& waiters = wanted_[key];
  waiters.push_back(std::move(waiter));
  if (waiters.size() > 1) return;
  const QSize whole = wholeOf(job.picture);
  const Key reduced = keyOf(job.picture, reducedSize(whole, reductionFor(whole, job.exact)));
  Job found = job;
  found.reduced = find(reduced);
  start(found, [this, key, reduced, whole, keepsReduced = job.keepsReduced](const Made& made) {
    // The exact one was asked for, so it is the more recently used.
    if (keepsReduced) keep(reduced, made.reduced);
    keep(key, made.exact);
    const auto told = std::move(wanted_[key]);
    wanted_.erase(key);
    for (const auto& one : told) {
      if (!one.bound || one.context) one.done({made.exact, whole});
    }
  });
}

void PixelCache::start(const Job& job, std::function<void(Made)> done) {
  const auto id = ++started_;
  if (job.reduced.isNull()) ++decodes_;
  working_[id] = std::move(done);
  const auto work = [this, id, job] {
    Made made{.reduced = job.reduced, .exact = {}};
    if (made.reduced.isNull()) {
      const auto bytes = encodedBytes(job.picture);
      const int reduction = reductionFor(wholeOf(job.picture), job.exact);
      if (bytes) made.reduced = decodePicture(*bytes, reduction);
    }
    made.exact = scaled(made.reduced, job.exact);
    later([this, id, made] {
      const auto found = working_.find(id);
      const auto told = std::move(found->second);
      working_.erase(found);
      told(made);
    });
  };
  pool_.start(work, job.priority);
}

// Callable from any thread.
void PixelCache::later(std::function<void()> work) {
  QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

}  // namespace vellix
