#include "pieces/RemoteImage.hpp"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <QtMath>

namespace vellix {
namespace {

// The part of the picture that is drawn, and where: whole and centred, or cropped to fill.
struct Placing {
  QRectF source;
  QRectF target;
};

Placing place(QSizeF picture, QRectF room, bool fill) {
  if (fill) {
    const QSizeF part = room.size().scaled(picture, Qt::KeepAspectRatio);
    const QPointF corner((picture.width() - part.width()) / 2,
                         (picture.height() - part.height()) / 2);
    return {QRectF(corner, part), room};
  }
  const QSizeF size = picture.scaled(room.size(), Qt::KeepAspectRatio);
  const QPointF corner(room.x() + (room.width() - size.width()) / 2,
                       room.y() + (room.height() - size.height()) / 2);
  return {QRectF(QPointF(), picture), QRectF(corner, size)};
}

// One child: a plain ground, or the picture with its texture. The software renderer places a child
// that joins later only by a parent that has a place itself, which a bare node has not.
class RootNode : public QSGTransformNode {
 public:
  ~RootNode() override { clear(); }

  void clear() {
    while (QSGNode* child = firstChild()) {
      removeChildNode(child);
      delete child;
    }
    ground = nullptr;
    picture = nullptr;
  }

  QSGRectangleNode* ground = nullptr;
  QSGImageNode* picture = nullptr;
};

}  // namespace

RemoteImage::RemoteImage(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemHasContents); }

void RemoteImage::setPictures(PictureSource* pictures) {
  if (pictures_ == pictures) return;
  pictures_ = pictures;
  askedKey_.clear();
  askedSize_ = {};
  ask();
  emit picturesChanged();
}

void RemoteImage::setKey(const QString& key) {
  if (key_ == key) return;
  key_ = key;
  ask();
  emit keyChanged();
}

void RemoteImage::setFill(bool fill) {
  if (fill_ == fill) return;
  fill_ = fill;
  update();
  emit fillChanged();
}

void RemoteImage::setRound(bool round) {
  if (round_ == round) return;
  round_ = round;
  fresh_ = true;
  update();
  emit roundChanged();
}

void RemoteImage::setPlaceholder(const QColor& colour) {
  if (placeholder_ == colour) return;
  placeholder_ = colour;
  update();
  emit placeholderChanged();
}

void RemoteImage::ask() {
  if (isComponentComplete()) polish();
}

void RemoteImage::componentComplete() {
  QQuickItem::componentComplete();
  ask();
}

void RemoteImage::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() == before.size()) return;
  if (round_) fresh_ = true;
  ask();
  update();
}

void RemoteImage::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change != ItemDevicePixelRatioHasChanged && change != ItemSceneChange) return;
  if (round_) fresh_ = true;
  ask();
}

QSize RemoteImage::shownPixels() const {
  const qreal ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
  return {qCeil(width() * ratio), qCeil(height() * ratio)};
}

// On the processor, since neither a mask nor a shader is to be had of every renderer.
QImage RemoteImage::cutRound() const {
  QImage cut(shownPixels(), QImage::Format_ARGB32_Premultiplied);
  cut.fill(Qt::transparent);
  const QRectF whole(QPointF(), cut.size());
  const Placing placing = place(image_.size(), whole, true);
  QPainter painter(&cut);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawEllipse(whole);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.drawImage(placing.target, image_, placing.source);
  return cut;
}

// Runs once before the next frame, however much has changed.
void RemoteImage::updatePolish() {
  const QSize size = shownPixels();
  if (!pictures_ || size.isEmpty() || (key_ == askedKey_ && size == askedSize_)) return;
  if (key_ != askedKey_) settled_ = false;
  askedKey_ = key_;
  askedSize_ = size;
  const quint64 request = ++asking_;
  if (key_.isEmpty()) return;
  if (QImage image = pictures_->atHand(key_, size); !image.isNull()) {
    answer(std::move(image));
    return;
  }
  const bool enough = image_.width() >= size.width() && image_.height() >= size.height();
  if (settled_ && (image_.isNull() || enough)) return;
  pictures_->bring(key_, size, this, [this, request](QImage image) {
    if (request == asking_) answer(std::move(image));
  });
}

void RemoteImage::answer(QImage image) {
  // When more pixels of the same picture cannot be had, the fewer are better than none.
  if (settled_ && image.isNull()) return;
  settled_ = true;
  show(std::move(image));
}

void RemoteImage::show(QImage image) {
  if (image.cacheKey() == image_.cacheKey()) return;
  const bool wasReady = ready();
  image_ = std::move(image);
  fresh_ = true;
  update();
  if (wasReady != ready()) emit readyChanged();
}

QSGNode* RemoteImage::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* root = static_cast<RootNode*>(old);
  if (width() <= 0 || height() <= 0) {
    delete root;
    fresh_ = true;
    return nullptr;
  }
  if (!root) {
    root = new RootNode;
    fresh_ = true;
  }
  if (image_.isNull()) {
    if (root->picture) root->clear();
    if (!root->ground) {
      root->ground = window()->createRectangleNode();
      root->appendChildNode(root->ground);
    }
    root->ground->setRect(boundingRect());
    root->ground->setColor(placeholder_);
    fresh_ = false;
    return root;
  }
  if (root->ground) root->clear();
  if (!root->picture) {
    root->picture = window()->createImageNode();
    root->picture->setOwnsTexture(true);
    root->picture->setFiltering(QSGTexture::Linear);
    root->picture->setMipmapFiltering(QSGTexture::Linear);
    fresh_ = true;
  }
  if (fresh_) {
    root->picture->setTexture(window()->createTextureFromImage(round_ ? cutRound() : image_,
                                                               QQuickWindow::TextureHasMipmaps));
    fresh_ = false;
  }
  const Placing placing = round_ ? Placing{QRectF(QPointF(), shownPixels()), boundingRect()}
                                 : place(image_.size(), boundingRect(), fill_);
  root->picture->setSourceRect(placing.source);
  root->picture->setRect(placing.target);
  // The software renderer looks at the texture the moment a node joins the scene.
  if (!root->picture->parent()) root->appendChildNode(root->picture);
  return root;
}

}  // namespace vellix
