// The story of the ticket on show, for its view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <set>

#include "approval/history.hpp"
#include "approval/origin.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class HistoryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<OriginView> origin READ origin NOTIFY originChanged)
  Q_PROPERTY(Qml<HistoryView> history READ history NOTIFY historyChanged)

 public:
  // What is passed must outlive the model.
  HistoryModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  // Nobody pays for a story that is not read. While one view follows another both may read it.
  bool read() const { return !readers_.empty(); }
  Q_INVOKABLE void reads(QObject* reader, bool reading);
  Qml<OriginView> origin() const { return origin_.qml(); }
  Qml<HistoryView> history() const { return history_.qml(); }

 signals:
  void originChanged();
  void historyChanged();

 private:
  void update();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  std::set<const QObject*> readers_;  // only told apart
  Shown<OriginView> origin_;
  Shown<HistoryView> history_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
