// The settings for their view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "shell/settings.hpp"

namespace vellix {

class SettingsModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<SettingsViewValue> view READ view NOTIFY viewChanged)

 public:
  // The preferences must outlive the model.
  explicit SettingsModel(Prefs& prefs);

  Qml<SettingsViewValue> view() const { return view_.qml(); }

  // Looks again whether what is set can be kept.
  Q_INVOKABLE void update();
  Q_INVOKABLE void set(const QString& key, bool on);
  Q_INVOKABLE void setAppearance(const QString& value);

 signals:
  void viewChanged();

 private:
  Prefs& prefs_;
  Shown<SettingsViewValue> view_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
