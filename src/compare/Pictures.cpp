#include "compare/Pictures.hpp"

namespace vellix {

QImage Pictures::atHand(const QString& key, QSize shown) {
  const PictureHandle picture = images_.cached(key.toStdString());
  return picture ? pixels_.cachedPixels(*picture, shown) : QImage{};
}

void Pictures::bring(const QString& key, QSize shown, QObject* context,
                     std::function<void(QImage)> done) {
  tasks_.start(load(key.toStdString(), shown, context, std::move(done)));
}

Task<> Pictures::load(std::string key, QSize shown, QPointer<QObject> context,
                      std::function<void(QImage)> done) {
  auto loading = images_.image(std::move(key));
  const PictureHandle picture = co_await std::move(loading);
  if (!context) co_return;
  if (picture) {
    pixels_.requestPixels(picture, shown, context, done);
  } else {
    done({});
  }
}

}  // namespace vellix
