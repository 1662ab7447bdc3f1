// The plan for the ticket on show: when its review is due, who reviews it, in which queue it is.
// Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "board/assign_button.hpp"
#include "board/due_button.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class PlanModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<DueButtonView> due READ due NOTIFY dueChanged)
  Q_PROPERTY(Qml<AssignButtonView> reviewer READ reviewer NOTIFY reviewerChanged)
  Q_PROPERTY(Qml<DatePickerView> picker READ picker NOTIFY pickerChanged)

 public:
  // What is passed must outlive the model.
  PlanModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  Qml<DueButtonView> due() const { return due_.qml(); }
  Qml<AssignButtonView> reviewer() const { return reviewer_.qml(); }
  Qml<DatePickerView> picker() const { return picker_.qml(); }

  // What is picked holds until it begins anew, whatever a poll brings. It keeps within what `due`
  // tells of the earliest and the latest.
  Q_INVOKABLE void beginPick();
  Q_INVOKABLE void step(const QString& part, int by);
  Q_INVOKABLE void type(const QString& part, const QString& digit);
  Q_INVOKABLE void enter(const QString& part, int number);
  Q_INVOKABLE void leavePart();

  Q_INVOKABLE void setDue();  // to what is picked
  Q_INVOKABLE void setUrgent(bool urgent);
  Q_INVOKABLE void resetDue();
  Q_INVOKABLE void assign(const QString& email);
  Q_INVOKABLE void move();

 signals:
  void dueChanged();
  void reviewerChanged();
  void pickerChanged();

 private:
  void update();
  MomentRange range() const;
  void pick(DatePick pick);

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  Shown<DueButtonView> due_;
  DatePick pick_;
  Shown<AssignButtonView> reviewer_;
  Shown<DatePickerView> picker_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
