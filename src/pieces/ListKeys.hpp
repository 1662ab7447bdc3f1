// The keys that go through a list, or scroll what is higher than its room.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace vellix {

class ListKeys : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;

  // How far a Qt.Key goes, up or back below 0: the arrows a line, the page keys a page, Home and
  // End all the way. 0 for any other key.
  Q_INVOKABLE static qreal by(int key, qreal line, qreal page, qreal whole);
};

}  // namespace vellix
