// The link of the ticket on show, for its button and its popover. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "approval/share_link.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class ShareModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ShareButtonView> button READ button NOTIFY buttonChanged)
  Q_PROPERTY(Qml<SharePopoverView> popover READ popover NOTIFY popoverChanged)

 public:
  // The store must outlive the model.
  explicit ShareModel(Store& store);

  Qml<ShareButtonView> button() const { return button_.qml(); }
  Qml<SharePopoverView> popover() const { return popover_.qml(); }

  // The popover opens, or has closed: a renewal begins anew.
  Q_INVOKABLE void forget();
  Q_INVOKABLE void switchTo(bool on);
  Q_INVOKABLE void choose(const QString& level);
  Q_INVOKABLE void renew();
  Q_INVOKABLE void copy();
  Q_INVOKABLE void copyForNotion();
  Q_INVOKABLE void openInBrowser();

 signals:
  void buttonChanged();
  void popoverChanged();

 private:
  void update();
  std::string ticket() const;

  Store& store_;
  ShareRenewal renewal_;
  Shown<ShareButtonView> button_;
  Shown<SharePopoverView> popover_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
