// Keeps the rows of a list in the order in which the eye and the Tab key go through them: a list
// makes its rows in the order in which they come into view.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vellix {

class TabOrder : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;

  // Stacks the children of `content` that have an `index` by it.
  Q_INVOKABLE static void sort(QQuickItem* content);
};

}  // namespace vellix
