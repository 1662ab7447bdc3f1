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

  QImage atHand(const QString& key, QSize shown) override;
  void bring(const QString& key, QSize shown, QObject* context,
             std::function<void(QImage)> done) override;

 private:
  Task<> load(std::string key, QSize shown, QPointer<QObject> context,
              std::function<void(QImage)> done);
  Task<QImage> pixelsOf(PictureHandle picture, QSize shown);

  Images& images_;
  PixelCache& pixels_;
  TaskScope tasks_;
};

}  // namespace vellix
