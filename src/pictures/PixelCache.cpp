#include "pictures/PixelCache.hpp"

#include <QImageReader>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "pictures/PictureReading.hpp"

namespace vellix {
namespace {

constexpr int kThreads = 2;
// Of what comes before a page was shown, when nobody knows how large: enough for most windows.
constexpr int kFirstReduction = 2;

// What is more urgent has the higher one. Who asked for a picture that comes from outside is not
// known here: it may be a view.
enum Priority { kAhead, kArrived, kForAView };

// A larger one would leave no room for what is shown.
constexpr std::int64_t kShareOfReduced = 4;

QSize wholeOf(const Picture& picture) { return {picture.width, picture.height}; }

QImage scaled(const QImage& image, QSize size) {
  if (image.isNull() || image.size() == size) return image;
  // Never up.
  if (image.width() < size.width() || image.height() < size.height()) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

PixelCache::PixelCache(std::int64_t budgetBytes, std::int64_t decodingBytes)
    : budget_(budgetBytes), decoding_(decodingBytes) {
  pool_.setMaxThreadCount(kThreads);
  // The library's own limit, of each image, is the whole process's: no more than all together.
  QImageReader::setAllocationLimit(kMostDecoding >> 20);
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
                               QObject* context, Done done, QObject* reader) {
  const QSize whole = wholeOf(*picture);
  const QSize exact = exactSize(whole, room);
  Waiter waiter{std::move(done), true, context, reader != nullptr, reader};
  if (QImage atHand = find(keyOf(*picture, exact)); !atHand.isNull()) {
    return later([waiter = std::move(waiter), pixels = Pixels(std::move(atHand), whole)] {
      if (waiter.context) waiter.done(pixels);
    });
  }
  const bool resized = holds(*picture);
  request({.picture = picture, .exact = exact, .keepsReduced = resized, .priority = kForAView},
          std::move(waiter));
}

void PixelCache::decodeWhole(const PictureHandle& encoded, Done done) {
  if (page_.isEmpty() && !encoded->file.empty()) {
    ahead_.emplace_back(encoded, std::move(done));
    return;
  }
  const QSize whole = wholeOf(*encoded);
  const QSize exact = page_.isEmpty() ? reducedSize(whole, kFirstReduction)
                                      : exactSize(whole, roomOnPage(whole, page_));
  Job job{.picture = encoded, .exact = exact, .priority = kAhead};
  const Key key = keyOf(*encoded, exact);
  // What lies in a file was decoded before it was written. Bytes from outside always are.
  if (!encoded->file.empty()) {
    if (QImage atHand = find(key); !atHand.isNull()) {
      return later(
          [done = std::move(done), pixels = Pixels(std::move(atHand), whole)] { done(pixels); });
    }
    return request(std::move(job), {std::move(done), false, nullptr, false, nullptr});
  }
  job.priority = kArrived;
  enqueue({.job = std::move(job),
           .key = key,
           .done = [this, encoded, whole, done = std::move(done)](const Made& made) {
             keep(*encoded, made.exact);
             done({made.exact, whole});
           }});
}

PixelCache::Key PixelCache::keyOf(const Picture& picture, QSize size) {
  return {picture.key, {size.width(), size.height()}};
}

void PixelCache::notePage(const PictureRoom& room) {
  if (room.page.isEmpty()) return;
  page_ = room.page;
  if (ahead_.empty()) return;
  // By then what is being laid out has its size.
  later([this] {
    for (auto& [encoded, done] : std::exchange(ahead_, {})) decodeWhole(encoded, std::move(done));
  });
}

QImage PixelCache::find(const Key& key) {
  const auto found = index_.find(key);
  if (found == index_.end()) return {};
  entries_.splice(entries_.begin(), entries_, found->second);
  return found->second->image;
}

bool PixelCache::holds(const Picture& picture) const {
  const auto at = index_.lower_bound(keyOf(picture, {0, 0}));
  return at != index_.end() && at->first.first == picture.key;
}

void PixelCache::keep(const Picture& picture, const QImage& image) {
  const Key key = keyOf(picture, image.size());
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

void PixelCache::request(Job job, Waiter waiter) {
  const Key key = keyOf(*job.picture, job.exact);
  auto& waiters = wanted_[key];
  waiters.push_back(std::move(waiter));
  if (waiters.size() > 1) {
    // It may be more urgent than it was.
    const auto same = std::ranges::find_if(
        queue_, [&](const Waiting& one) { return one.shared && one.key == key; });
    if (same != queue_.end()) {
      same->job.priority = std::max(same->job.priority, job.priority);
      same->job.keepsReduced |= job.keepsReduced;
      same->id = ++started_;
      pump();
    }
    return;
  }
  const PictureHandle picture = job.picture;
  enqueue({.job = std::move(job),
           .key = key,
           .shared = true,
           .done = [this, key, picture](const Made& made) {
             // The exact one was asked for, so it is the more recently used.
             if (made.reduced.sizeInBytes() <= budget_ / kShareOfReduced)
               keep(*picture, made.reduced);
             keep(*picture, made.exact);
             const auto told = std::move(wanted_[key]);
             wanted_.erase(key);
             for (const auto& one : told) {
               if (!one.bound || one.context) one.done({made.exact, wholeOf(*picture)});
             }
           }});
}

void PixelCache::enqueue(Waiting next) {
  next.id = ++started_;
  queue_.push_back(std::move(next));
  pump();
}

// Who waits for a picture may have gone on to another.
bool PixelCache::isWanted(const Waiting& one) const {
  return !one.shared || std::ranges::any_of(wanted_.at(one.key), &Waiter::isWanted);
}

// Views first, the latest before those that came before it; then what is fetched ahead, in order,
// and not beside what a view waits for.
void PixelCache::pump() {
  const auto rank = [](const Waiting& one) {
    return std::pair{one.job.priority, one.job.priority == kForAView ? one.id : -one.id};
  };
  const auto viewsWait = [this] {
    return std::ranges::any_of(working_, [](const auto& one) { return one.second.forAView; });
  };
  while (std::ssize(working_) < kThreads && !queue_.empty()) {
    const auto next = std::ranges::max_element(queue_, {}, rank);
    if (next->job.priority == kAhead && viewsWait()) return;
    Waiting one = std::move(*next);
    queue_.erase(next);
    if (isWanted(one)) {
      start(std::move(one));
      continue;
    }
    // Taken out at once: who asks from now on begins anew.
    later([told = std::move(wanted_[one.key])] {
      for (const auto& waiter : told) {
        if (!waiter.bound || waiter.context) waiter.done({});
      }
    });
    wanted_.erase(one.key);
  }
}

void PixelCache::start(Waiting next) {
  const auto id = next.id;
  const QSize whole = wholeOf(*next.job.picture);
  next.job.reduced =
      find(keyOf(*next.job.picture, reducedSize(whole, reductionFor(whole, next.job.exact))));
  if (next.job.reduced.isNull()) ++decodes_;
  working_[id] = {std::move(next.done), next.job.priority == kForAView};
  auto work = [this, id, job = std::move(next.job)] {
    std::optional<DecodingBudget::Share> share;
    Made made{.reduced = job.reduced, .exact = {}};
    if (made.reduced.isNull()) {
      const auto bytes = encodedBytes(*job.picture);
      const int reduction = reductionFor(wholeOf(*job.picture), job.exact);
      if (bytes) made.reduced = decodePicture(*bytes, reduction, decoding_, share);
    }
    made.exact = scaled(made.reduced, job.exact);
    if (!job.keepsReduced) made.reduced = {};
    later([this, id, made = std::move(made)] {
      const auto found = working_.find(id);
      const auto told = std::move(found->second.done);
      working_.erase(found);
      pump();
      told(made);
    });
  };
  pool_.start(std::move(work));
}

// Callable from any thread.
void PixelCache::later(std::function<void()> work) {
  QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

}  // namespace vellix
