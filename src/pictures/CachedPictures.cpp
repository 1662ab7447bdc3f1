#include "pictures/CachedPictures.hpp"

namespace vellix {
namespace {

// What is shown larger is wanted more. It is wanted until the object goes.
PictureWant wantOf(const PictureRoom& room, const QObject* context) {
  std::stop_source stop;
  QObject::connect(context, &QObject::destroyed, [stop]() mutable { stop.request_stop(); });
  return {.urgency = double(room.size.width()) * room.size.height(), .stop = stop.get_token()};
}

}  // namespace

CachedPictures::CachedPictures(Images& images, PixelCache& pixels, Store& store)
    : images_(images),
      pixels_(pixels),
      onGoodPoll_(store.changes.observe(Store::kLastOK, [this] { emit worthAnotherTry(); })),
      onRefresh_(store.changes.observe(Store::kRefreshing, [this, &store] {
        if (store.refreshing()) emit worthAnotherTry();
      })) {}

Pixels CachedPictures::atHand(const QString& key, const PictureRoom& room) {
  pixels_.notePage(room);
  const PictureHandle picture = images_.cached(key.toStdString());
  return picture ? pixels_.cachedPixels(*picture, room) : Pixels{};
}

void CachedPictures::bring(const QString& key, const PictureRoom& room, QObject* context,
                           std::function<void(Pixels)> done) {
  pixels_.notePage(room);
  tasks_.start(load(key.toStdString(), room, context, std::move(done)));
}

Task<> CachedPictures::load(std::string key, PictureRoom room, QPointer<QObject> context,
                            std::function<void(Pixels)> done) {
  const PictureWant want = wantOf(room, context);
  auto loading = images_.image(key, want);
  const PictureHandle picture = co_await std::move(loading);
  if (!context) co_return;
  auto decoding = pixelsOf(picture, room, context);
  Pixels pixels = co_await std::move(decoding);
  if (pixels.isNull() && context && picture && !picture->file.empty()) {
    // The disk lost or tore what it once took. The service still has it: one more try, no more.
    images_.forget(picture);
    if (!context) co_return;
    auto loadingAnew = images_.image(std::move(key), want);
    const PictureHandle anew = co_await std::move(loadingAnew);
    auto decodingAnew = pixelsOf(anew, room, context);
    pixels = co_await std::move(decodingAnew);
  }
  if (context) done(pixels);
}

Task<Pixels> CachedPictures::pixelsOf(PictureHandle picture, PictureRoom room,
                                      QPointer<QObject> reader) {
  if (!picture || !reader) co_return Pixels{};
  const Resolver<Pixels> resolver;
  pixels_.requestPixels(picture, room, this, resolver, reader);
  const auto pending = resolver.pending();
  co_return co_await pending;
}

}  // namespace vellix
