// What the worker does and did, for its button and its panel. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <set>

#include "bridge/Shown.hpp"
#include "jobs/claude_log.hpp"
#include "jobs/technical_log_fetch.hpp"

namespace vellix {

class ClaudeLogModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)
  // Of the board while it is read.
  Q_PROPERTY(Qml<ClaudeLogView> log READ log NOTIFY logChanged)

 public:
  // What is passed must outlive the model.
  ClaudeLogModel(Store& store, API& api, const MainLoop& clock, const Calendar& calendar);

  bool busy() const { return busy_; }
  Qml<ClaudeLogView> log() const { return log_.qml(); }

  // Nobody pays for a log that is not read. With its last reader the technical log goes.
  Q_INVOKABLE void reads(QObject* reader, bool reading);
  Q_INVOKABLE void stop(const QString& job);
  Q_INVOKABLE void open(const QString& report);
  Q_INVOKABLE void pressTechnical();

 signals:
  void busyChanged();
  void logChanged();

 private:
  void update();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  bool busy_ = false;
  std::set<const QObject*> readers_;  // only told apart
  Shown<ClaudeLogView> log_;
  TechnicalLogFetch technical_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
