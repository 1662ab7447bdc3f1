// Where views take pictures from, by blob key. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <functional>

#include "pictures/PictureFitting.hpp"

namespace vellix {

class PictureSource : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

 public:
  using QObject::QObject;

  // The best that can be painted at once: exactly the pixels shown in this room, else enough, else
  // fewer; null when there are none.
  virtual Pixels atHand(const QString& key, const PictureRoom& room) = 0;
  // Brings exactly the pixels shown there, fetched, decoded and scaled as needed. Calls back once,
  // later, with a null image when the picture cannot be had; never after the context has gone.
  virtual void bring(const QString& key, const PictureRoom& room, QObject* context,
                     std::function<void(Pixels)> done) = 0;

 signals:
  // What could not be had may be had now. Asking again is for those that are in sight.
  void worthAnotherTry();
};

}  // namespace vellix
