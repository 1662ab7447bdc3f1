#include "shell/PhotoModel.hpp"

#include <QFile>
#include <utility>

#include "pictures/PictureReading.hpp"

namespace vellix {

PhotoModel::PhotoModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBusy | Store::kSignedIn, [this] { update(); })) {
  update();
}

void PhotoModel::update() {
  const bool changing = store_.busy().contains("photo");
  if (std::exchange(changing_, changing) != changing) emit changingChanged();
  const bool signedIn = store_.signedIn();
  if (std::exchange(signedIn_, signedIn) && !signedIn) emit ended();
}

QStringList PhotoModel::filters() {
  QString patterns;
  for (const char* ending : {"jpg", "jpeg", "png", "webp", "heic", "heif"}) {
    const QString name = QLatin1String(ending);
    if (name.startsWith(QLatin1String("hei")) && !readsHeic()) continue;
    patterns += QStringLiteral("*.%1 *.%2 ").arg(name, name.toUpper());
  }
  return {QStringLiteral("Photos (%1)").arg(patterns.trimmed())};
}

void PhotoModel::choose(const QUrl& file) {
  if (!store_.signedIn() || !file.isLocalFile()) return;
  // As the file system has the name, whatever the locale.
  store_.changePhoto(QFile::encodeName(file.toLocalFile()).toStdString());
}

}  // namespace vellix
