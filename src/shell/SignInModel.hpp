// The sign-in screen's view and operations, for QML. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "shell/sign_in_screen.hpp"

namespace vellix {

class SignInModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<SignInView> view READ view NOTIFY viewChanged)

 public:
  // What is passed must outlive the model.
  SignInModel(Store& store, const API& api, WaitingBrowser& browser, MainLoop& loop);

  Qml<SignInView> view() const { return view_.qml(); }

  Q_INVOKABLE void signIn() { screen_.press(); }
  Q_INVOKABLE void cancel() { screen_.cancel(); }
  Q_INVOKABLE void openAgain() { screen_.openAgain(); }
  Q_INVOKABLE void touch() { screen_.touch(); }

 signals:
  void viewChanged();

 private:
  void update();

  SignInScreen screen_;
  Shown<SignInView> view_;
  Changes::Subscription onChange_;
  Changes::Subscription onSignedIn_;
};

}  // namespace vellix
