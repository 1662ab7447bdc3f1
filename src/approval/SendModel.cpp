#include "approval/SendModel.hpp"

namespace vellix {

SendModel::SendModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kBusy | Store::kSignedIn,
                                      [this] { followStore(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {}

void SendModel::followStore() {
  if (!draft_) return;
  if (!store_.signedIn() || !store_.board()) return end();
  follow(*draft_, store_);
  update();
}

void SendModel::update() {
  if (draft_ && sheet_.show(sendSheet(*draft_, store_))) emit sheetChanged();
}

QString SendModel::typed(std::string SendDraft::* field) const {
  return draft_ ? QString::fromStdString(*draft_.*field) : QString{};
}

void SendModel::type(std::string SendDraft::* field, const QString& text) {
  if (!draft_ || *draft_.*field == text.toStdString()) return;
  *draft_.*field = text.toStdString();
  emit typedChanged();
  update();
}

void SendModel::begin() {
  const FileItem* file = store_.currentFile();
  if (draft_ || !file) return;
  draft_ = beginSend(store_, *file);
  update();
  emit typedChanged();
  emit openChanged();
}

void SendModel::end() {
  if (!draft_) return;
  draft_.reset();
  emit openChanged();
  emit typedChanged();
}

void SendModel::pick(const QString& email, bool picked) {
  if (!draft_) return;
  vellix::pick(*draft_, email.toStdString(), picked);
  update();
}

void SendModel::add() {
  if (!draft_) return;
  addTyped(*draft_, store_);
  emit typedChanged();
  update();
}

void SendModel::setAfter(const QString& key) { setAfterSending(store_, key.toStdString()); }

void SendModel::send() {
  if (draft_ && sendOut(*draft_, store_)) end();
}

}  // namespace vellix
