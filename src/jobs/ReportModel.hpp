// The report on what is selected, for its views. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "jobs/report_area.hpp"

namespace vellix {

class ReportModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ReportAreaView> area READ area NOTIFY areaChanged)

 public:
  // What is passed must outlive the model.
  ReportModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  Qml<ReportAreaView> area() const { return area_.qml(); }

  Q_INVOKABLE void make();
  Q_INVOKABLE void open();
  Q_INVOKABLE void stop();
  Q_INVOKABLE void tick();  // the estimate moves with the time

 signals:
  void areaChanged();

 private:
  void update();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  Shown<ReportAreaView> area_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
