// The two steps of deleting a note, for its row. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QTimer>

#include "notes/deletion.hpp"

namespace vellix {

class NoteDeletion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool asked READ asked NOTIFY askedChanged)

 public:
  explicit NoteDeletion(QObject* parent = nullptr);

  bool asked() const { return deletion_.asked(); }

  // Presses the entry; `pointed` tells whether the pointer is on it. True when the note is to go.
  Q_INVOKABLE bool press(bool pointed);

 signals:
  void askedChanged();

 private:
  Deletion deletion_;
  QTimer hurry_;
};

}  // namespace vellix
