// What stands for a finding, on the page or in the panel beside it: whether the pointer is on any
// of that. Of many, only those that change are told. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>

#include "compare/CompareModel.hpp"

namespace vellix {

class PointedFinding : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::CompareModel* compare READ compare WRITE setCompare NOTIFY compareChanged)
  Q_PROPERTY(QString finding READ finding WRITE setFinding NOTIFY findingChanged)  // its id
  // The pointer is here. It has left as well once this is gone.
  Q_PROPERTY(bool under READ under WRITE setUnder NOTIFY underChanged)
  // The pointer is here, or on what else stands for the finding.
  Q_PROPERTY(bool pointed READ pointed NOTIFY pointedChanged)

 public:
  using QObject::QObject;
  ~PointedFinding() override;

  CompareModel* compare() const { return compare_; }
  void setCompare(CompareModel* compare);
  const QString& finding() const { return finding_; }
  void setFinding(const QString& finding);
  bool under() const { return under_; }
  void setUnder(bool under);
  bool pointed() const { return pointed_; }

 signals:
  void compareChanged();
  void findingChanged();
  void underChanged();
  void pointedChanged();

 private:
  void look();
  void tell(bool on);

  QPointer<CompareModel> compare_;
  QString finding_;
  bool under_ = false;
  bool pointed_ = false;
};

}  // namespace vellix
