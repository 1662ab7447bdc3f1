#include "shell/PhotoModel.hpp"

#include <QFile>
#include <utility>

#include "pictures/PictureReading.hpp"

namespace vellix {

PhotoModel::PhotoModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBusy | Store::kBoard | Store::kSignedIn,
                                      [this] { update(); })) {
  update();
}

void PhotoModel::update() {
  const bool changing = store_.busy().contains("photo");
  if (std::exchange(changing_, changing) != changing) emit changingChanged();
  // One session may follow another without a sign-out; the board goes with each.
  const bool here = store_.signedIn() && store_.board();
  if (std::exchange(here_, here) && !here) emit ended();
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
