// Where the approval of the ticket on show stands, and its versions, for their views. Main thread
// only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "approval/approval_card.hpp"
#include "approval/version_chips.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class ApprovalModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ApprovalCardView> card READ card NOTIFY cardChanged)
  Q_PROPERTY(Qml<std::vector<VersionChipView>> versions READ versions NOTIFY versionsChanged)

 public:
  // What is passed must outlive the model.
  ApprovalModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  Qml<ApprovalCardView> card() const { return card_.qml(); }
  Qml<std::vector<VersionChipView>> versions() const { return versions_.qml(); }

  Q_INVOKABLE void press(const QString& button);  // by its key
  Q_INVOKABLE void showVersion(qint64 n);

 signals:
  void cardChanged();
  void versionsChanged();

 private:
  void update();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  Shown<ApprovalCardView> card_;
  Shown<std::vector<VersionChipView>> versions_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
