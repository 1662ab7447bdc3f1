#include "WatchedPictures.hpp"

namespace vellix::bench {
namespace {

bool isPage(const PictureRoom& room) { return !room.page.isEmpty(); }

}  // namespace

Pixels WatchedPictures::atHand(const QString& key, const PictureRoom& room) {
  Pixels pixels = pictures_.atHand(key, room);
  if (!pixels.isNull()) note(key, room, pixels);
  return pixels;
}

void WatchedPictures::bring(const QString& key, const PictureRoom& room, QObject* context,
                            std::function<void(Pixels)> done) {
  if (isPage(room)) ++waits_;
  pictures_.bring(key, room, context, [this, key, room, done = std::move(done)](Pixels pixels) {
    note(key, room, pixels);
    done(std::move(pixels));
  });
}

bool WatchedPictures::isAtHand(const QString& key) {
  const QSize whole = pictures_.atHand(key, PictureRoom()).whole;
  const PictureRoom room = roomOnPage(whole, room_);
  return isExact(pictures_.atHand(key, room), room);
}

void WatchedPictures::note(const QString& key, const PictureRoom& room, const Pixels& pixels) {
  if (!isPage(room) || !isExact(pixels, room)) return;
  given_ = key;
  pixels_ = pixels.image.size();
  shown_ = room.size;
  room_ = room.page;
}

}  // namespace vellix::bench
