#include "WatchedPictures.hpp"

#include "Desk.hpp"

namespace vellix::bench {
namespace {

bool isPage(QSize shown) { return shown.height() >= kShortestPage; }

}  // namespace

QImage WatchedPictures::atHand(const QString& key, QSize shown) {
  QImage image = pictures_.atHand(key, shown);
  if (!image.isNull()) note(key, shown, image);
  return image;
}

void WatchedPictures::bring(const QString& key, QSize shown, QObject* context,
                            std::function<void(QImage)> done) {
  if (isPage(shown)) ++waits_;
  pictures_.bring(key, shown, context, [this, key, shown, done = std::move(done)](QImage image) {
    note(key, shown, image);
    done(std::move(image));
  });
}

void WatchedPictures::note(const QString& key, QSize shown, const QImage& image) {
  if (!isPage(shown) || image.isNull()) return;
  given_ = key;
  pixels_ = image.size();
  shown_ = shown;
}

}  // namespace vellix::bench
