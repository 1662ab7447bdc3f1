// Where views take pictures from, by blob key. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QImage>
#include <QObject>
#include <functional>

namespace vellix {

class PictureSource : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

 public:
  using QObject::QObject;

  // What can be painted at once at this size in device pixels; null when nothing can.
  virtual QImage atHand(const QString& key, QSize shown) = 0;
  // Brings the picture in, fetched and decoded as needed. Calls back once, later, with a null
  // image when it cannot be had; never after the context has gone.
  virtual void bring(const QString& key, QSize shown, QObject* context,
                     std::function<void(QImage)> done) = 0;
};

}  // namespace vellix
