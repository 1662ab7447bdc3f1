// The pictures for the views: handles from the cache of pictures, pixels from the cache of pixels.
// What could not be had is worth another try after each good poll, and at once when the person asks
// for everything anew.
#pragma once

#include <QPointer>

#include "pictures/PictureSource.hpp"
#include "pictures/PixelCache.hpp"
#include "pictures/images.hpp"
#include "store/store.hpp"

namespace vellix {

class CachedPictures : public PictureSource {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

 public:
  // All must outlive the source.
  CachedPictures(Images& images, PixelCache& pixels, Store& store);

  Pixels atHand(const QString& key, const PictureRoom& room) override;
  void bring(const QString& key, const PictureRoom& room, QObject* context,
             std::function<void(Pixels)> done) override;

 private:
  Task<> load(std::string key, PictureRoom room, QPointer<QObject> context,
              std::function<void(Pixels)> done);
  Task<Pixels> pixelsOf(PictureHandle picture, PictureRoom room, QPointer<QObject> reader);

  Images& images_;
  PixelCache& pixels_;
  TaskScope tasks_;
  Changes::Subscription onGoodPoll_;
  Changes::Subscription onRefresh_;
};

}  // namespace vellix
