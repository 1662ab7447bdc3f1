// The menu bar for its view, and what its entries do. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "shell/commands.hpp"

namespace vellix {

class CommandsModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<std::vector<MenuView>> menus READ menus NOTIFY menusChanged)
  Q_PROPERTY(Qml<std::vector<ShortcutView>> shortcuts READ shortcuts NOTIFY shortcutsChanged)
  // Something stands in front of everything: only the end of the program is to be had.
  Q_PROPERTY(bool covered READ covered WRITE setCovered NOTIFY coveredChanged)

 public:
  // The Store must outlive the model.
  explicit CommandsModel(Store& store);

  Qml<std::vector<MenuView>> menus() const { return menus_.qml(); }
  Qml<std::vector<ShortcutView>> shortcuts() const { return shortcuts_.qml(); }

  bool covered() const { return covered_; }
  void setCovered(bool covered);

  Q_INVOKABLE void run(const QString& key);
  // A shortcut as this platform writes it.
  Q_INVOKABLE static QString written(const QString& shortcut);

 signals:
  void menusChanged();
  void shortcutsChanged();
  void coveredChanged();
  void settingsWanted();
  // The keyboard is to go so many parts of the window on, or tickets of the list.
  void partWanted(int by);
  void ticketWanted(int by);
  void photoWanted();
  void endWanted();

 private:
  void update();

  Store& store_;
  bool covered_ = false;
  Shown<std::vector<MenuView>> menus_;
  Shown<std::vector<ShortcutView>> shortcuts_;
  Changes::Subscription onChange_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
