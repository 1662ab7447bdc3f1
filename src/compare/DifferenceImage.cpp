#include "compare/DifferenceImage.hpp"

#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

#include "compare/Difference.hpp"

namespace vellix {
namespace {

class RootNode : public QSGTransformNode {
 public:
  QSGImageNode* picture = nullptr;
};

LaidPicture fitted(const QImage& image, QSize room) {
  const QSize size = image.size().scaled(room, Qt::KeepAspectRatio);
  return {
      image,
      QRect(QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 2), size)};
}

}  // namespace

DifferenceImage::DifferenceImage(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

void DifferenceImage::setPictures(PictureSource* pictures) {
  if (pictures_ == pictures) return;
  pictures_ = pictures;
  asked_ = {};
  polish();
  emit picturesChanged();
}

void DifferenceImage::setKey(const QString& key) {
  if (key == sides_[0].key) return;
  sides_[0] = {key, {}, sides_[0].asking + 1};
  asked_ = {};
  polish();
  emit keyChanged();
}

void DifferenceImage::setUnder(const QString& key) {
  if (key == sides_[1].key) return;
  sides_[1] = {key, {}, sides_[1].asking + 1};
  asked_ = {};
  polish();
  emit underChanged();
}

void DifferenceImage::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() != before.size()) polish();
}

QSize DifferenceImage::shownPixels() const {
  const qreal ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
  return (size() * ratio).toSize();
}

void DifferenceImage::ask(Side& side, QSize size) {
  const quint64 asking = ++side.asking;
  if (side.key.isEmpty()) return;
  if (QImage image = pictures_->atHand(side.key, size); !image.isNull()) {
    side.image = std::move(image);
    return;
  }
  pictures_->bring(side.key, size, this, [this, &side, asking](QImage image) {
    if (asking != side.asking) return;
    side.image = std::move(image);
    polish();
  });
}

void DifferenceImage::updatePolish() {
  const QSize size = shownPixels();
  if (!pictures_ || size.isEmpty()) return;
  if (asked_ != size) {
    asked_ = size;
    for (Side& side : sides_) ask(side, size);
  }
  const auto& [one, other] = sides_;
  if (one.image.isNull() && other.image.isNull()) return;
  image_ = difference(fitted(one.image, size), fitted(other.image, size), size);
  fresh_ = true;
  update();
}

QSGNode* DifferenceImage::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* root = static_cast<RootNode*>(old);
  if (image_.isNull() || size().isEmpty()) {
    delete root;
    return nullptr;
  }
  const bool made = !root;
  if (made) {
    root = new RootNode;
    root->picture = window()->createImageNode();
    root->picture->setFlag(QSGNode::OwnedByParent);
    root->picture->setOwnsTexture(true);
    root->picture->setFiltering(QSGTexture::Linear);
  }
  if (made || fresh_) root->picture->setTexture(window()->createTextureFromImage(image_));
  fresh_ = false;
  root->picture->setRect(boundingRect());
  if (made) root->appendChildNode(root->picture);
  return root;
}

}  // namespace vellix
