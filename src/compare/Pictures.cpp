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
  auto loading = images_.image(key);
  const PictureHandle picture = co_await std::move(loading);
  if (!context) co_return;
  auto decoding = pixelsOf(picture, shown);
  QImage image = co_await std::move(decoding);
  if (image.isNull() && picture && !picture->file.empty()) {
    // The disk lost or tore what it once took. The service still has it: one more try, no more.
    images_.forget(picture);
    if (!context) co_return;
    auto loadingAnew = images_.image(std::move(key));
    const PictureHandle anew = co_await std::move(loadingAnew);
    auto decodingAnew = pixelsOf(anew, shown);
    image = co_await std::move(decodingAnew);
  }
  if (context) done(image);
}

Task<QImage> Pictures::pixelsOf(PictureHandle picture, QSize shown) {
  if (!picture) co_return QImage{};
  const Resolver<QImage> resolver;
  pixels_.requestPixels(picture, shown, this, resolver);
  const auto pending = resolver.pending();
  co_return co_await pending;
}

}  // namespace vellix
