#include "pictures/FollowedPicture.hpp"

#include <utility>

namespace vellix {
namespace {

// A size that has stood for this long is not one of an animation or a gesture.
constexpr int kRest = 80;  // ms

}  // namespace

FollowedPicture::FollowedPicture(QObject* parent) : QObject(parent) {
  resting_.setSingleShot(true);
  resting_.setInterval(kRest);
  connect(&resting_, &QTimer::timeout, this, [this] {
    if (!hasAll()) ask();
    emit changed();
  });
}

void FollowedPicture::follow(PictureSource* source, const QString& key, const PictureRoom& room) {
  if (!source || room.size.isEmpty()) return;
  const bool turns = source != source_ || key != key_;
  if (!turns && room == room_) return;
  if (source != source_) {
    if (source_) source_->disconnect(this);
    connect(source, &PictureSource::worthAnotherTry, this, [this] {
      if (!isLacking()) return;
      worthTrying_ = true;
      emit changed();
    });
  }
  source_ = source;
  key_ = key;
  room_ = room;
  resting_.stop();
  if (turns) {
    ++turn_;
    asking_ = std::make_unique<QObject>();
    awaited_ = 0;
    failed_ = false;
    settled_ = key.isEmpty();
    show({});  // what it was is seen under another name otherwise
  }
  if (key.isEmpty()) return;
  look();
  if (hasAll()) return;
  if (turns) return ask();
  resting_.start();
  if (awaited_ == 0 && isMuchTooSmall()) ask();
}

bool FollowedPicture::isFinal() const {
  return hasAll() || (settled_ && awaited_ == 0 && !resting_.isActive());
}

// What could not be had is not asked for again because the room is another.
bool FollowedPicture::hasAll() const {
  return settled_ && (pixels_.isNull() || isExact(pixels_, room_));
}

bool FollowedPicture::isLacking() const {
  return failed_ && awaited_ == 0 && !isExact(pixels_, room_);
}

void FollowedPicture::tryAgain() {
  if (isWorthAnotherTry()) ask();
}

void FollowedPicture::look() {
  Pixels best = source_->atHand(key_, room_);
  if (best.isNull() || (settled_ && !looksBetter(best, pixels_, room_))) return;
  settled_ = true;
  show(std::move(best));
}

void FollowedPicture::ask() {
  if (!source_ || key_.isEmpty()) return;
  ++awaited_;
  worthTrying_ = false;
  source_->bring(key_, room_, asking_.get(), [this, turn = turn_](Pixels pixels) {
    if (turn == turn_) answer(std::move(pixels));
  });
}

void FollowedPicture::answer(Pixels pixels) {
  --awaited_;
  failed_ = pixels.isNull();
  const bool better = !settled_ || looksBetter(pixels, pixels_, room_);
  settled_ = true;
  // When the exact pixels cannot be had, others are better than none.
  if (better) show(std::move(pixels));
  emit changed();
}

void FollowedPicture::show(Pixels pixels) {
  if (pixels.image.cacheKey() == pixels_.image.cacheKey() && pixels.whole == pixels_.whole) return;
  pixels_ = std::move(pixels);
}

bool FollowedPicture::isMuchTooSmall() const {
  return 2 * pixels_.image.width() < exactSize(pixels_.whole, room_).width();
}

}  // namespace vellix
