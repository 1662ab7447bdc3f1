// The pictures for the views: handles from the cache of pictures, pixels from the cache of pixels.
#pragma once

#include <QPointer>

#include "compare/images.hpp"
#include "pieces/PictureSource.hpp"
#include "platform/qt/PixelCache.hpp"

namespace vellix {

class Pictures : public PictureSource {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

 public:
  // Both must outlive the source.
  Pictures(Images& images, PixelCache& pixels) : images_(images), pixels_(pixels) {}

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
};

}  // namespace vellix
