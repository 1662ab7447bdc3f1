#include "pictures/RemoteImage.hpp"

#include <QPainter>
#include <utility>

namespace vellix {

RemoteImage::RemoteImage(QQuickItem* parent) : PictureItem(parent) {
  connect(&picture_, &FollowedPicture::changed, this, &RemoteImage::lookAgain);
}

void RemoteImage::setPictures(PictureSource* pictures) {
  if (pictures_ == pictures) return;
  pictures_ = pictures;
  lookAgain();
  emit picturesChanged();
}

void RemoteImage::setKey(const QString& key) {
  if (key_ == key) return;
  key_ = key;
  lookAgain();
  emit keyChanged();
}

void RemoteImage::setStandIn(const QString& key) {
  if (standIn_ == key) return;
  standIn_ = key;
  lookAgain();
  emit standInChanged();
}

void RemoteImage::setFill(bool fill) {
  if (fill_ == fill) return;
  fill_ = fill;
  lookAgain();
  emit fillChanged();
}

void RemoteImage::setStretched(bool stretched) {
  if (stretched_ == stretched) return;
  stretched_ = stretched;
  lookAgain();
  emit stretchedChanged();
}

void RemoteImage::setRound(bool round) {
  if (round_ == round) return;
  round_ = round;
  lookAgain();
  emit roundChanged();
}

void RemoteImage::setPageRoom(QSizeF room) {
  if (pageRoom_ == room) return;
  pageRoom_ = room;
  lookAgain();
  emit pageRoomChanged();
}

void RemoteImage::setWaits(bool waits) {
  if (waits_ == waits) return;
  waits_ = waits;
  lookAgain();
  emit waitsChanged();
}

void RemoteImage::setPlaceholder(const QColor& colour) {
  if (placeholder_ == colour) return;
  placeholder_ = colour;
  lookAgain();
  emit placeholderChanged();
}

void RemoteImage::lookAgain() {
  if (isComponentComplete()) polish();
}

void RemoteImage::componentComplete() {
  QQuickItem::componentComplete();
  lookAgain();
}

void RemoteImage::resized() { lookAgain(); }

void RemoteImage::framed() {
  if (picture_.isWorthAnotherTry() && isInSight()) picture_.tryAgain();
}

PictureRoom RemoteImage::room() const {
  const auto fit = stretched_        ? PictureFit::exactly
                   : fill_ || round_ ? PictureFit::over
                                     : PictureFit::within;
  return {deviceSize(), fit, pageRoom_ * deviceScale()};
}

void RemoteImage::notePainted(const QRect& place) {
  // Over all the device's pixels of a side it is the item's own length, without roundings.
  const QSize whole = deviceSize();
  const qreal scale = deviceScale();
  const QRectF painted(
      QPointF(place.topLeft()) / scale,
      QSizeF(place.width() == whole.width() ? width() : place.width() / scale,
             place.height() == whole.height() ? height() : place.height() / scale));
  if (std::exchange(painted_, painted) != painted) emit paintedChanged();
}

// On the processor, since neither a mask nor a shader is to be had of every renderer.
QImage RemoteImage::cutRound(const QImage& image, const QRectF& part) const {
  QImage cut(deviceSize(), QImage::Format_ARGB32_Premultiplied);
  cut.fill(Qt::transparent);
  const QRectF whole(QPointF(), cut.size());
  QPainter painter(&cut);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawEllipse(whole);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.drawImage(whole, image, part);
  return cut;
}

Pixels RemoteImage::toPaint(const PictureRoom& room) const {
  const bool awaited = picture_.pixels().isNull() && !picture_.isMissing();
  const bool stoodIn = awaited && pictures_ && !key_.isEmpty() && !standIn_.isEmpty();
  return stoodIn ? pictures_->atHand(standIn_, room) : picture_.pixels();
}

// Runs once before the next frame, however much has changed.
void RemoteImage::updatePolish() {
  const PictureRoom room = this->room();
  if (!waits_ || !picture_.pixels().isNull()) picture_.follow(pictures_, key_, room);
  const Pixels pixels = toPaint(room);
  if (pixels.isNull() || room.size.isEmpty()) {
    showGround(placeholder_);
    notePainted({QPoint(), room.size});
  } else {
    const QRect fitted = fittedPlace(pixels.whole, room);
    const QRect seen = fitted & QRect(QPoint(), room.size);
    notePainted(seen);
    const qreal across = qreal(pixels.image.width()) / fitted.width();
    const qreal down = qreal(pixels.image.height()) / fitted.height();
    const QRectF part((seen.x() - fitted.x()) * across, (seen.y() - fitted.y()) * down,
                      seen.width() * across, seen.height() * down);
    if (!round_) {
      showImage(pixels.image, part, seen);
    } else {
      const qint64 from = pixels.image.cacheKey();
      if (from != cutFrom_ || cut_.size() != room.size) {
        cut_ = cutRound(pixels.image, part);
        cutFrom_ = from;
      }
      showImage(cut_, cut_.rect(), seen);
    }
  }
  const bool missing = !key_.isEmpty() && picture_.isMissing();
  if (std::exchange(missing_, missing) != missing) emit missingChanged();
  const bool ready = !picture_.pixels().isNull();
  if (std::exchange(ready_, ready) != ready) emit readyChanged();
  const QString shown = pixels.isNull() ? QString() : key_;
  if (std::exchange(shown_, shown) != shown) emit shownChanged();
}

}  // namespace vellix
