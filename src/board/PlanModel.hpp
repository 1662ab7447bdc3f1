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

 public:
  // What is passed must outlive the model.
  PlanModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  QVariantMap due() const { return due_; }
  QVariantMap reviewer() const { return reviewer_; }

  // A pick is a time in milliseconds since 1970. What is shown of it, and what it becomes, within
  // what `due` tells of the earliest and the latest.
  Q_INVOKABLE double firstPick() const;
  Q_INVOKABLE QVariantMap picker(double pick, double earliest, double latest) const;
  Q_INVOKABLE double stepped(double pick, const QString& part, int by) const;
  Q_INVOKABLE double typed(double pick, const QString& part, int number) const;

  Q_INVOKABLE void setDue(double pick);
  Q_INVOKABLE void setUrgent(bool urgent);
  Q_INVOKABLE void resetDue();
  Q_INVOKABLE void assign(const QString& email);
  Q_INVOKABLE void move();

 signals:
  void dueChanged();
  void reviewerChanged();

 private:
  void update();
  MomentRange range() const;

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  QVariantMap due_ = toQml(DueButtonView{}).toMap();
  QVariantMap reviewer_ = toQml(AssignButtonView{}).toMap();
  Changes::Subscription onChange_;
};

}  // namespace vellix
