// The prompts of an update for their views, and what their buttons do. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "update/update_prompts.hpp"

namespace vellix {

class UpdateModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<UpdateBarView> bar READ bar NOTIFY barChanged)
  Q_PROPERTY(Qml<RequiredUpdateView> required READ required NOTIFY requiredChanged)

 public:
  // The Updater must outlive the model.
  explicit UpdateModel(Updater& updater);

  Qml<UpdateBarView> bar() const { return bar_.qml(); }
  Qml<RequiredUpdateView> required() const { return required_.qml(); }

  Q_INVOKABLE void install();
  Q_INVOKABLE void snooze();
  Q_INVOKABLE void download();

 signals:
  void barChanged();
  void requiredChanged();

 private:
  void update();

  Updater& updater_;
  Shown<UpdateBarView> bar_;
  Shown<RequiredUpdateView> required_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
