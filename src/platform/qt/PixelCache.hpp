// The pixels of pictures, decoded off the main thread and held under a byte budget.
#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QThreadPool>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/ports/pictures.hpp"

namespace vellix {

// Main thread. Pixels are held by picture and reduction (1, 2, 4 or 8); the least recently used
// go first. Views that hold an image keep it alive beyond the budget. Its end waits for the
// decodes under way and drops those that wait.
class PixelCache {
 public:
  using Done = std::function<void(QImage)>;

  explicit PixelCache(std::int64_t budgetBytes = std::int64_t{256} << 20);
  ~PixelCache();
  PixelCache(const PixelCache&) = delete;
  PixelCache& operator=(const PixelCache&) = delete;

  // The pixels at hand that are enough for `shown` (device pixels), the fewest of them; null when
  // there are none. Never decodes.
  QImage cachedPixels(const Picture& picture, QSize shown);

  // Calls `done` in a later turn, unless `context` is gone by then; with a null image when the
  // picture cannot be decoded. Equal requests are decoded once.
  void requestPixels(const PictureHandle& picture, QSize shown, QObject* context, Done done);

  // Decodes ahead what a page step will ask for: at the reduction that pages were last shown at.
  void warm(const PictureHandle& picture);

  // Decodes to the end at that same reduction and keeps the pixels; null when it does not decode.
  // `done` is called in a later turn.
  void decodeWhole(Picture encoded, Done done);

  std::int64_t bytesHeld() const { return held_; }
  std::int64_t decodesStarted() const { return started_; }

 private:
  using Key = std::pair<std::string, int>;
  struct Entry {
    Key key;
    QImage image;
  };
  struct Waiter {
    Done done;
    bool bound = false;  // to the context's life
    QPointer<QObject> context;
  };

  QImage find(const Key& key);
  void keep(const Key& key, const QImage& image);
  int needed(const Picture& picture, QSize shown);
  void request(const Picture& picture, int reduction, int priority, Waiter waiter);
  void decode(const Picture& picture, int reduction, int priority, Done done);
  void later(std::function<void()> work);

  const std::int64_t budget_;
  std::int64_t held_ = 0;
  std::int64_t started_ = 0;
  int pageReduction_ = 2;
  std::list<Entry> entries_;  // the most recently used first
  std::map<Key, std::list<Entry>::iterator> index_;
  std::map<Key, std::vector<Waiter>> wanted_;
  std::map<std::int64_t, Done> decoding_;  // stays here: what it holds belongs to this thread
  QObject context_;
  QThreadPool pool_;
};

}  // namespace vellix
