#include "shell/CommandsModel.hpp"

#include <QKeySequence>

namespace vellix {

CommandsModel::CommandsModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(
          Store::kSignedIn | Store::kBoard | Store::kSelection | Store::kPanels | Store::kBusy,
          [this] { update(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  update();
}

void CommandsModel::setCovered(bool covered) {
  if (covered == covered_) return;
  covered_ = covered;
  emit coveredChanged();
  update();
}

void CommandsModel::run(const QString& key) {
  if (!isEnabled(store_, key.toStdString(), covered_)) return;
  if (key == QLatin1String{"settings"}) {
    emit settingsWanted();
  } else if (key == QLatin1String{"changePhoto"}) {
    emit photoWanted();
  } else if (key == QLatin1String{"quit"}) {
    emit endWanted();
  } else if (key == QLatin1String{"nextPart"}) {
    emit partWanted(1);
  } else if (key == QLatin1String{"previousPart"}) {
    emit partWanted(-1);
  } else if (key == QLatin1String{"nextTicket"}) {
    emit ticketWanted(1);
  } else if (key == QLatin1String{"previousTicket"}) {
    emit ticketWanted(-1);
  } else {
    runCommand(store_, key.toStdString());
  }
}

void CommandsModel::update() {
  if (menus_.show(menuBar(store_, covered_))) emit menusChanged();
  if (shortcuts_.show(vellix::shortcuts(store_, covered_))) emit shortcutsChanged();
}

QString CommandsModel::written(const QString& shortcut) {
  return QKeySequence::fromString(shortcut, QKeySequence::PortableText)
      .toString(QKeySequence::NativeText);
}

}  // namespace vellix
