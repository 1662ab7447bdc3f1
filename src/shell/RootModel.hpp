// What fills the window, and the toast over it, for the root view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "shell/root_view.hpp"
#include "shell/toast_timer.hpp"

namespace vellix {

class RootModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<RootViewValue> view READ view NOTIFY viewChanged)
  Q_PROPERTY(Qml<ToastShown> toast READ toast NOTIFY toastChanged)
  Q_PROPERTY(QString appearance READ appearance NOTIFY appearanceChanged)

 public:
  // What is passed must outlive the model.
  RootModel(Store& store, MainLoop& loop);

  Qml<RootViewValue> view() const { return view_.qml(); }
  Qml<ToastShown> toast() const { return toast_.qml(); }
  QString appearance() const;
  // Shows this one whatever the preferences say.
  void forceAppearance(const QString& appearance);

  void start();  // polls for a session that is there
  Q_INVOKABLE void undo();
  Q_INVOKABLE static double sidebarWidth(double windowWidth);

 signals:
  void viewChanged();
  void toastChanged();
  void appearanceChanged();

 private:
  void update();

  Store& store_;
  ToastTimer timer_;
  Shown<RootViewValue> view_;
  Shown<ToastShown> toast_;
  QString forcedAppearance_;
  Changes::Subscription onChange_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
