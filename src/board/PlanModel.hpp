// The plan for the ticket on show: when its review is due, who reviews it, in which queue it is.
// Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "board/assign_button.hpp"
#include "board/due_button.hpp"
#include "bridge/value.hpp"

namespace vellix {

class PlanModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantMap due READ due NOTIFY dueChanged)                 // a DueButtonView
  Q_PROPERTY(QVariantMap reviewer READ reviewer NOTIFY reviewerChanged)  // an AssignButtonView
  Q_PROPERTY(QVariantMap picker READ picker NOTIFY pickerChanged)        // a DatePickerView

 public:
  // What is passed must outlive the model.
  PlanModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  QVariantMap due() const { return due_; }
  QVariantMap reviewer() const { return reviewer_; }
  QVariantMap picker() const { return picker_; }

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
  QVariantMap due_ = toQml(DueButtonView{}).toMap();
  DatePick pick_;
  QVariantMap reviewer_ = toQml(AssignButtonView{}).toMap();
  QVariantMap picker_ = toQml(DatePickerView{}).toMap();
  Changes::Subscription onChange_;
};

}  // namespace vellix
