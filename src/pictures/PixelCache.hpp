// The pixels of pictures, decoded and scaled off the main thread and held under a byte budget.
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

#include "pictures/DecodingBudget.hpp"
#include "pictures/PictureFitting.hpp"
#include "platform/ports/pictures.hpp"

namespace vellix {

// Main thread. A picture is decoded at the greatest reduction that is enough and then scaled to
// exactly what is shown, always in this way: equal pictures at equal sizes have equal pixels. One
// that would take more than decoding may gets fewer. Held by picture and size are the exact pixels,
// and the reduction too once a second size was wanted of it, for then others follow; the least
// recently used go first. Views that hold an image keep it alive beyond the budget. Its end waits
// for the work under way and drops what waits.
class PixelCache {
 public:
  using Done = std::function<void(Pixels)>;

  // The first is for what is held, the second for all that decodes at once.
  explicit PixelCache(std::int64_t budgetBytes = std::int64_t{256} << 20,
                      std::int64_t decodingBytes = kMostDecoding);
  ~PixelCache();
  PixelCache(const PixelCache&) = delete;
  PixelCache& operator=(const PixelCache&) = delete;

  // A page is to be shown in this room, also when nothing of its picture is here yet: those that
  // come are made for it. Says nothing of what is no page.
  void notePage(const PictureRoom& room);

  // The best there is at hand: the exact pixels, else the fewest that are enough, else the most;
  // null when there are none. Never decodes.
  Pixels cachedPixels(const Picture& picture, const PictureRoom& room);

  // Calls `done` with the exact pixels in a later turn, unless `context` is gone by then; with a
  // null image when the picture cannot be decoded, or when it was wanted for `reader` alone, who
  // has gone before its turn came. Equal requests share their work; the latest comes first.
  void requestPixels(const PictureHandle& picture, const PictureRoom& room, QObject* context,
                     Done done, QObject* reader = nullptr);

  // Decodes to the end and keeps what a page with this picture would show where pages were last
  // shown; null when it does not decode. `done` is called in a later turn. What lies in a file, and
  // is good therefore, waits until a page was shown: at a guess it would be made twice.
  void decodeWhole(const PictureHandle& encoded, Done done);

  std::int64_t bytesHeld() const { return held_; }
  std::int64_t decodesStarted() const { return decodes_; }

 private:
  using Key = std::pair<std::string, std::pair<int, int>>;
  struct Entry {
    Key key;
    QImage image;
  };
  struct Waiter {
    Done done;
    bool bound = false;  // to the context's life
    QPointer<QObject> context;
    bool forReader = false;  // and for nobody else
    QPointer<QObject> reader;
    bool isWanted() const { return (!bound || context) && (!forReader || reader); }
  };
  struct Job {
    PictureHandle picture;
    QSize exact;
    QImage reduced;  // where it is at hand
    bool keepsReduced = false;
    int priority = 0;
  };
  struct Made {
    QImage reduced;
    QImage exact;
  };

  struct Waiting {
    std::int64_t id = 0;
    Job job;
    Key key;
    bool shared = false;  // with all who wait for this key
    std::function<void(Made)> done;
  };

  static Key keyOf(const Picture& picture, QSize size);
  QImage find(const Key& key);
  // At any size.
  bool holds(const Picture& picture) const;
  void keep(const Picture& picture, const QImage& image);
  void request(Job job, Waiter waiter);
  void enqueue(Waiting next);
  bool isWanted(const Waiting& one) const;
  void pump();
  void start(Waiting next);
  void later(std::function<void()> work);

  const std::int64_t budget_;
  DecodingBudget decoding_;
  std::int64_t held_ = 0;
  std::int64_t decodes_ = 0;
  std::int64_t started_ = 0;
  QSizeF page_;                                        // the room that pages were last shown in
  std::vector<std::pair<PictureHandle, Done>> ahead_;  // until that is known
  std::list<Entry> entries_;                           // the most recently used first
  std::map<Key, std::list<Entry>::iterator> index_;
  std::map<Key, std::vector<Waiter>> wanted_;
  // Stays here: what it holds belongs to this thread.
  struct Work {
    std::function<void(Made)> done;
    bool forAView;
  };
  std::map<std::int64_t, Work> working_;
  std::vector<Waiting> queue_;  // until a thread is free
  QObject context_;
  QThreadPool pool_;
};

}  // namespace vellix
