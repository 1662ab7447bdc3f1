// Pictures of one colour each, brought a turn later, as the picture cache would.
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
    QTimer::singleShot(0, context, [shown, done = std::move(done)] {
      QImage image{shown.expandedTo({1, 1}), QImage::Format_RGB32};
      image.fill(Qt::lightGray);
      done(image);
    });
  }

  QStringList asked;
};

}  // namespace vellix
