#include "approval/UploadModel.hpp"

#include <QFile>

namespace vellix {

UploadModel::UploadModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kBusy | Store::kSignedIn,
                                      [this] { followStore(); })) {}

void UploadModel::followStore() {
  if (!draft_) return;
  if (!store_.signedIn() || !store_.board()) return end();
  follow(*draft_, store_);
  update();
}

void UploadModel::update() {
  if (draft_ && sheet_.show(uploadSheet(*draft_, store_))) emit sheetChanged();
}

void UploadModel::setNote(const QString& text) {
  if (!draft_ || text == note()) return;
  draft_->note = text.toStdString();
  emit noteChanged();
}

void UploadModel::begin() {
  const FileItem* file = store_.currentFile();
  if (draft_ || !file) return;
  draft_ = beginUpload(*file);
  update();
  emit noteChanged();
  emit openChanged();
}

void UploadModel::end() {
  if (!draft_) return;
  draft_.reset();
  emit openChanged();
  emit noteChanged();
}

void UploadModel::choose(const QUrl& file) {
  if (!draft_ || !file.isLocalFile()) return;
  // As the file system has the name, whatever the locale.
  choosePdf(*draft_, QFile::encodeName(file.toLocalFile()).toStdString());
  update();
}

void UploadModel::upload() {
  if (draft_ && vellix::upload(*draft_, store_)) end();
}

}  // namespace vellix
