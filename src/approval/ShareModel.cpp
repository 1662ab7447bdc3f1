#include "approval/ShareModel.hpp"

namespace vellix {

ShareModel::ShareModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kSelection | Store::kBusy,
                                      [this] { update(); })) {
  update();
}

std::string ShareModel::ticket() const {
  const FileItem* file = store_.currentFile();
  return file ? file->id : std::string{};
}

void ShareModel::update() {
  const FileItem* file = store_.currentFile();
  if (button_.show(file ? shareButton(*file) : ShareButtonView{})) emit buttonChanged();
  follow(renewal_, store_, ticket());
  if (popover_.show(sharePopover(store_, ticket(), renewal_))) emit popoverChanged();
}

void ShareModel::forget() {
  renewal_ = {};
  update();
}

void ShareModel::switchTo(bool on) { switchShare(store_, ticket(), on); }
void ShareModel::choose(const QString& level) {
  chooseAccess(store_, ticket(), level.toStdString());
}

void ShareModel::renew() {
  pressRenew(store_, ticket(), renewal_);
  update();
}

void ShareModel::copy() { copyShareLink(store_, ticket()); }
void ShareModel::copyForNotion() { copyShareForNotion(store_, ticket()); }
void ShareModel::openInBrowser() { openShareLink(store_, ticket()); }

}  // namespace vellix
