// Where the keyboard is, as an item around it sees it. It remembers that it was within the item
// last, also once what had it is gone: then nobody has it but what is around the item.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class KeyboardHold : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* around READ around WRITE setAround NOTIFY aroundChanged REQUIRED)
  // What has the keyboard in the item's window; none without a window.
  Q_PROPERTY(QQuickItem* keyed READ keyed NOTIFY keyedChanged)
  // That, if it is the item or lies within it.
  Q_PROPERTY(QQuickItem* inside READ inside NOTIFY keyedChanged)
  Q_PROPERTY(bool held READ held NOTIFY heldChanged)
  // It had come there by key, or somebody writes.
  Q_PROPERTY(bool ringed READ ringed NOTIFY ringedChanged)
  // It was within the item last, and is not any more.
  Q_PROPERTY(bool lost READ lost NOTIFY lostChanged)

 public:
  using QObject::QObject;

  QQuickItem* around() const { return around_; }
  void setAround(QQuickItem* around);
  QQuickItem* keyed() const { return keyed_; }
  QQuickItem* inside() const { return isIn(around_) ? keyed_.data() : nullptr; }
  bool held() const { return held_; }
  bool ringed() const { return ringed_; }
  bool lost() const { return lost_; }

  // Whether this item, or one within it, has the keyboard.
  Q_INVOKABLE bool isIn(QQuickItem* item) const;
  // What had the keyboard within the item begins anew the next time that the item has it.
  Q_INVOKABLE void letGo();

 signals:
  void aroundChanged();
  void keyedChanged();
  void heldChanged();
  void ringedChanged();
  void lostChanged();

 private:
  void follow();  // the item's window
  void look();

  QPointer<QQuickItem> around_;
  QPointer<QQuickWindow> window_;
  QPointer<QQuickItem> keyed_;
  bool held_ = false;
  bool ringed_ = false;
  bool lost_ = false;
};

}  // namespace vellix
