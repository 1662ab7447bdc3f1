// Help over an item that is not pressed: what takes the pointer is there once there is any text.
#pragma once

#include <QtQml/qqml.h>
#include <QPointer>

#include "pieces/ToolTipArea.hpp"

namespace vellix {

class HelpOver : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("it is attached to an item")
  QML_ATTACHED(vellix::HelpOver)
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

 public:
  explicit HelpOver(QObject* item) : QObject(item) {}
  static HelpOver* qmlAttachedProperties(QObject* item) { return new HelpOver(item); }

  QString text() const { return area_ ? area_->text() : QString{}; }
  void setText(const QString& text);

 signals:
  void textChanged();

 private:
  void cover();

  QPointer<ToolTipArea> area_;
};

}  // namespace vellix
