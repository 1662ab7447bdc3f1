#include "notes/NoteDeletion.hpp"

#include <QGuiApplication>
#include <QStyleHints>

namespace vellix {

NoteDeletion::NoteDeletion(QObject* parent) : QObject(parent) {
  hurry_.setSingleShot(true);
  connect(&hurry_, &QTimer::timeout, this, [this] { deletion_.rest(); });
}

bool NoteDeletion::press(bool pointed) {
  const bool was = asked();
  const bool goes = deletion_.press(pointed);
  if (asked() != was) {
    hurry_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    emit askedChanged();
  }
  return goes;
}

}  // namespace vellix
