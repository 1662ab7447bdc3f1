// How the strip of small pages moves, for its view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QQuickItem>
#include <QTimer>

#include "ticket/strip_motion.hpp"

namespace vellix {

class PageStripMotion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool placing READ placing WRITE setPlacing NOTIFY placingChanged)
  Q_PROPERTY(bool rushing READ rushing NOTIFY rushingChanged)

 public:
  explicit PageStripMotion(QObject* parent = nullptr);

  bool placing() const { return motion_.placing(); }
  void setPlacing(bool placing);
  bool rushing() const { return motion_.rushing(); }

  Q_INVOKABLE void scroll(double y, double height);
  // `current` may be null. True when it has to be brought back into sight.
  Q_INVOKABLE bool resize(double height, double y, QQuickItem* current, bool gliding);
  Q_INVOKABLE static bool glides(double from, double to, double height, bool wanted);

 signals:
  void placingChanged();
  void rushingChanged();

 private:
  StripMotion motion_;
  QTimer resting_;
};

}  // namespace vellix
