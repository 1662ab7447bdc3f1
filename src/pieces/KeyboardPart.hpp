// A part of the window that F6 goes to. It stands where its part comes in the way of the eye, at
// the part's beginning. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class KeyboardPart : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  // All of the part. Not owned.
  Q_PROPERTY(QQuickItem* around MEMBER around_ REQUIRED)
  // What belongs to the part though it lies elsewhere, if anything does.
  Q_PROPERTY(QQuickItem* also MEMBER also_)
  // What has the keyboard when the part is gone to. None: the first that Tab comes to in the part.
  Q_PROPERTY(QQuickItem* at MEMBER at_)

 public:
  using QQuickItem::QQuickItem;

  bool has(const QQuickItem* item) const;
  // False where there is nothing to take the keyboard.
  bool take();

  // From the part that has the keyboard, or from what has it between two parts, to the one that
  // follows among those that can be seen within `root`, or with -1 to the one before; round and
  // round.
  static void step(QQuickItem& root, int by);

 private:
  QPointer<QQuickItem> around_;
  QPointer<QQuickItem> also_;
  QPointer<QQuickItem> at_;
};

// How a window goes from part to part.
class KeyboardParts : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* within MEMBER within_ REQUIRED)

 public:
  using QObject::QObject;

  Q_INVOKABLE void step(int by);

 private:
  QPointer<QQuickItem> within_;
};

}  // namespace vellix
