// The menu bar for its view, and what its entries do. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariantList>

#include "shell/commands.hpp"

namespace vellix {

class CommandsModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // Maps of `title` and `entries`; of these each has `key`, `text`, `shortcut`, `enabled`.
  Q_PROPERTY(QVariantList menus READ menus NOTIFY menusChanged)

 public:
  // The Store must outlive the model.
  explicit CommandsModel(Store& store);

  QVariantList menus() const { return menus_; }

  Q_INVOKABLE void run(const QString& key);
  // A shortcut as this platform writes it.
  Q_INVOKABLE static QString written(const QString& shortcut);

 signals:
  void menusChanged();
  void settingsWanted();
  void endWanted();

 private:
  void update();

  Store& store_;
  QVariantList menus_;
  Changes::Subscription onChange_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
