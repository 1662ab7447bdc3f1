// The photo that the signed-in person is seen by, as far as they change it. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QStringList>
#include <QUrl>

#include "store/store.hpp"

namespace vellix {

class PhotoModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // A photo is being made or sent: another one is not taken.
  Q_PROPERTY(bool changing READ changing NOTIFY changingChanged)
  // The kinds of pictures there may be, with their patterns.
  Q_PROPERTY(QStringList filters READ filters CONSTANT)

 public:
  // The store must outlive the model.
  explicit PhotoModel(Store& store);

  bool changing() const { return changing_; }
  static QStringList filters();

  // A local file; anything else changes nothing.
  Q_INVOKABLE void choose(const QUrl& file);

 signals:
  void changingChanged();
  void ended();  // the session, and with it whatever was asked for it

 private:
  void update();

  Store& store_;
  bool changing_ = false;
  bool here_ = false;
  Changes::Subscription onChange_;
};

}  // namespace vellix
