// What fills the window, and the toast over it, for the root view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/value.hpp"
#include "shell/root_view.hpp"
#include "shell/toast_timer.hpp"

namespace vellix {

class RootModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantMap view READ view NOTIFY viewChanged)
  // `id` (empty when there is none), `text` and `undoLabel`.
  Q_PROPERTY(QVariantMap toast READ toast NOTIFY toastChanged)
  Q_PROPERTY(QString appearance READ appearance NOTIFY appearanceChanged)

 public:
  // What is passed must outlive the model.
  RootModel(Store& store, MainLoop& loop);

  QVariantMap view() const { return view_; }
  QVariantMap toast() const { return toast_; }
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
  void updateToast();

  Store& store_;
  ToastTimer timer_;
  QVariantMap view_;
  QVariantMap toast_;
  QString forcedAppearance_;
  Changes::Subscription onChange_;
  Changes::Subscription onToast_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
