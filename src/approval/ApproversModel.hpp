// The list of the key approvers, for its view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "approval/approvers.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class ApproversModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ApproversSectionView> section READ section NOTIFY sectionChanged)

 public:
  // The store must outlive the model.
  explicit ApproversModel(Store& store);

  Qml<ApproversSectionView> section() const { return section_.qml(); }

  // Whether it is an address that can be added. `saving` of the section counts beside it.
  Q_INVOKABLE static bool valid(const QString& typed);
  // False when nothing is done.
  Q_INVOKABLE bool add(const QString& typed, const QString& name);
  Q_INVOKABLE void remove(const QString& email);

 signals:
  void sectionChanged();

 private:
  void update();

  Store& store_;
  Shown<ApproversSectionView> section_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
