// Has a view that was taken out of the scene end once the frame that shows the next one is painted:
// its end takes a good part of what making one does. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class AfterFrame : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;
  ~AfterFrame() override;

  // `item` is about to be let go. While its window paints nothing, it waits for the next one.
  Q_INVOKABLE void end(QQuickItem* item);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void finish();

  QPointer<QQuickItem> waiting_;
};

}  // namespace vellix
