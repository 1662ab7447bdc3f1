// Tells views the lines that a long wait is passed with.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "jobs/job_block.hpp"

namespace vellix {

class WorkingWords : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;

  Q_INVOKABLE static QString line(const QString& who, int n) {
    return QString::fromStdString(workingLine(who.toStdString(), n));
  }
};

}  // namespace vellix
