// Pictures of one colour, or known ones, brought a turn later, as the picture cache would.
#pragma once

#include <QPointer>
#include <QTimer>
#include <functional>

#include "pieces/PictureSource.hpp"

namespace vellix {

class PlainPictures : public PictureSource {
 public:
  QImage atHand(const QString&, QSize) override { return {}; }
  void bring(const QString& key, QSize shown, QObject* context,
             std::function<void(QImage)> done) override {
    asked.append(key);
    QImage image = known.value(key);
    if (image.isNull()) {
      image = QImage{shown.expandedTo({1, 1}), QImage::Format_RGB32};
      image.fill(Qt::lightGray);
    }
    QTimer::singleShot(0, context, [image, done = std::move(done)] { done(image); });
  }

  QStringList asked;
  QHash<QString, QImage> known;  // other than plain gray
};

}  // namespace vellix
