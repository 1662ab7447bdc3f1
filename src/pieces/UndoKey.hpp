// Passes the key that undoes on where a text has nothing to undo: a TextEdit keeps it from the
// shortcuts whether or not it has.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class UndoKey : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* text READ text WRITE setText NOTIFY textChanged REQUIRED)

 public:
  using QObject::QObject;

  QQuickItem* text() const { return text_; }
  void setText(QQuickItem* text);

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  void textChanged();

 private:
  QPointer<QQuickItem> text_;
};

}  // namespace vellix
