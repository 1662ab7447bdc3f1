// Keeps the rows of a list in the order in which the eye goes through them, for a screen reader and
// for Tab: a list makes its rows in the order in which they come into view.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class TabOrder : public QObject {
  Q_OBJECT
  QML_ELEMENT
  // What holds the rows. Not owned.
  Q_PROPERTY(QQuickItem* content MEMBER content_)

 public:
  using QObject::QObject;

  // Stacks those that have an `index` by it, once all that moves at the moment has moved.
  Q_INVOKABLE void sortSoon();

 private:
  void sort();

  QPointer<QQuickItem> content_;
  bool asked_ = false;
};

}  // namespace vellix
