#include "compare/DifferenceImage.hpp"

#include <QPromise>
#include <QThreadPool>
#include <algorithm>
#include <memory>
#include <utility>

namespace vellix {
namespace {

// What is made within two milliseconds is made at once, and painted in the very next frame.
constexpr qint64 kSmall = 2'500'000;  // pixels

bool isPlain(const LaidPicture& picture) {
  return picture.image.isNull() || picture.image.size() == picture.place.size();
}

}  // namespace

bool DifferenceImage::Inputs::operator==(const Inputs& other) const {
  const auto same = [](const LaidPicture& one, const LaidPicture& two) {
    return one.image.cacheKey() == two.image.cacheKey() && one.place == two.place;
  };
  return ground == other.ground && same(pictures[0], other.pictures[0]) &&
         same(pictures[1], other.pictures[1]);
}

DifferenceImage::DifferenceImage(QQuickItem* parent) : PictureItem(parent) {
  for (Side& side : sides_) {
    connect(&side.picture, &FollowedPicture::changed, this, &QQuickItem::polish);
  }
  connect(&making_, &QFutureWatcherBase::finished, this, [this] {
    if (making_.isCanceled()) return;
    image_ = making_.result();
    polish();
  });
}

void DifferenceImage::setPictures(PictureSource* pictures) {
  if (pictures_ == pictures) return;
  pictures_ = pictures;
  polish();
  emit picturesChanged();
}

void DifferenceImage::setKey(const QString& key) {
  if (key == sides_[0].key) return;
  sides_[0].key = key;
  dropImage();
  emit keyChanged();
}

void DifferenceImage::setUnder(const QString& key) {
  if (key == sides_[1].key) return;
  sides_[1].key = key;
  dropImage();
  emit underChanged();
}

void DifferenceImage::resized() { polish(); }

// Of other pages than are named now, it would be taken for theirs.
void DifferenceImage::dropImage() {
  made_.reset();
  making_.setFuture({});  // one that is under way is nobody's any more
  image_ = {};
  polish();
}

void DifferenceImage::framed() {
  for (Side& side : sides_) {
    if (side.picture.isWorthAnotherTry() && isInSight()) side.picture.tryAgain();
  }
}

QRect DifferenceImage::place() const {
  const QSize size = deviceSize();
  return isHere(sides_[0]) ? fittedPlace(sides_[0].picture.pixels().whole, size)
                           : QRect(QPoint(), size);
}

bool DifferenceImage::isHere(const Side& side) const {
  return !side.key.isEmpty() && !side.picture.pixels().isNull();
}

bool DifferenceImage::isMissing(const Side& side) const {
  return side.key.isEmpty() || side.picture.isMissing();
}

std::optional<DifferenceImage::Inputs> DifferenceImage::inputs() const {
  const bool both = isHere(sides_[0]) && isHere(sides_[1]);
  const QSize room = deviceSize();
  Inputs inputs{.pictures = {}, .ground = room};
  bool any = false;
  for (std::size_t i = 0; i < inputs.pictures.size(); ++i) {
    if (!isHere(sides_[i])) continue;
    // Of two that are scaled by different ways even equal ones differ.
    if (both && !sides_[i].picture.isFinal()) return std::nullopt;
    inputs.pictures[i] = {sides_[i].picture.pixels().image, place()};
    any = true;
  }
  if (!any) return std::nullopt;
  // One page alone would flash between two differences.
  if (!both && !image_.isNull() && !isMissing(sides_[0]) && !isMissing(sides_[1])) {
    return std::nullopt;
  }
  // Pictures that are shown larger than they are differ in no more pixels than they have.
  double part = 0;
  for (const auto& picture : inputs.pictures) {
    if (picture.image.isNull() || picture.place.isEmpty()) continue;
    part = std::max({part, double(picture.image.width()) / picture.place.width(),
                     double(picture.image.height()) / picture.place.height()});
  }
  if (part < 1) {
    const auto less = [part](QPoint point) {
      return QPoint(qRound(point.x() * part), qRound(point.y() * part));
    };
    inputs.ground =
        QSize(std::max(1, qRound(room.width() * part)), std::max(1, qRound(room.height() * part)));
    for (auto& picture : inputs.pictures) {
      const QRect place = picture.place;
      const QPoint end(place.x() + place.width(), place.y() + place.height());
      picture.place = QRect(less(place.topLeft()), less(end) - QPoint(1, 1));
    }
  }
  return inputs;
}

void DifferenceImage::make(const Inputs& inputs) {
  if (made_ == inputs) return;
  made_ = inputs;
  making_.setFuture({});  // one that is under way is nobody's any more
  const auto& [one, other] = inputs.pictures;
  const qint64 pixels = qint64{inputs.ground.width()} * inputs.ground.height();
  if (pixels <= kSmall && isPlain(one) && isPlain(other)) {
    image_ = difference(one, other, inputs.ground);
    return;
  }
  const auto promise = std::make_shared<QPromise<QImage>>();
  making_.setFuture(promise->future());
  promise->start();
  QThreadPool::globalInstance()->start([promise, inputs] {
    promise->addResult(difference(inputs.pictures[0], inputs.pictures[1], inputs.ground));
    promise->finish();
  });
}

// Runs once before the next frame, however much has changed.
void DifferenceImage::updatePolish() {
  const QSize size = deviceSize();
  if (size.isEmpty()) return;
  sides_[0].picture.follow(pictures_, sides_[0].key, size);
  sides_[1].picture.follow(pictures_, sides_[1].key, {place().size(), PictureFit::exactly});
  const bool missing = !sides_[1].key.isEmpty() && sides_[1].picture.isMissing();
  if (std::exchange(missing_, missing) != missing) emit missingChanged();
  if (const auto now = inputs()) make(*now);
  if (isMissing(sides_[0]) && isMissing(sides_[1])) {
    if (made_ || !image_.isNull()) dropImage();
    return showGround(Qt::transparent);
  }
  if (!image_.isNull()) return showImage(image_, image_.rect(), QRect(QPoint(), size));
  // While it is made it is as dark as most of it will be: the page below would flash.
  const bool making = made_ && isHere(sides_[0]) && isHere(sides_[1]);
  showGround(making ? Qt::black : Qt::transparent);
}

}  // namespace vellix
