#include "pictures/PictureItem.hpp"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <cmath>

namespace vellix {
namespace {

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
  bool shrinks = false;  // the texture was made to be painted smaller
};

}  // namespace

PictureItem::PictureItem(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemHasContents); }

qreal PictureItem::deviceScale() const {
  return window() ? window()->effectiveDevicePixelRatio() : 1;
}

QSize PictureItem::deviceSize() const { return (size() * deviceScale()).toSize(); }

void PictureItem::showImage(const QImage& image, const QRectF& part, const QRect& place) {
  if (image.cacheKey() != image_.cacheKey()) {
    image_ = image;
    fresh_ = true;
  } else if (part == part_ && place == place_) {
    return;
  }
  part_ = part;
  place_ = place;
  noteOrigin();
  update();
}

void PictureItem::showGround(const QColor& colour) {
  const QRect place(QPoint(), deviceSize());
  if (image_.isNull() && colour == ground_ && place == place_) return;
  image_ = {};
  ground_ = colour;
  place_ = place;
  noteOrigin();
  update();
}

void PictureItem::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() == before.size()) return realign();
  resized();
  update();
}

void PictureItem::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change != ItemDevicePixelRatioHasChanged && change != ItemSceneChange) return;
  resized();
  update();
  if (change != ItemSceneChange) return;
  disconnect(aligning_);
  if (data.window) {
    aligning_ = connect(data.window, &QQuickWindow::afterAnimating, this, [this] {
      realign();
      framed();
    });
  }
}

bool PictureItem::isInSight() const {
  if (!window() || !isVisible()) return false;
  QRectF seen = mapRectToScene(QRectF(QPointF(), size())) & QRectF(QPointF(), window()->size());
  for (const QQuickItem* item = parentItem(); item && !seen.isEmpty(); item = item->parentItem()) {
    if (item->clip()) seen &= item->mapRectToScene(item->clipRect());
  }
  return !seen.isEmpty();
}

void PictureItem::noteOrigin() {
  const QTransform toScene = itemTransform(nullptr, nullptr);
  if (toScene.type() <= QTransform::TxTranslate) origin_ = toScene.map(QPointF(0, 0));
}

// What moves an item's parent does not tell the item, but may put it between two pixels.
void PictureItem::realign() {
  if (!isVisible() || size().isEmpty()) return;
  noteOrigin();
  const QPointF moved = (origin_ - painted_) * deviceScale();
  const auto whole = [](qreal by) { return std::abs(by - std::round(by)) < 1e-6; };
  if (!whole(moved.x()) || !whole(moved.y())) update();
}

QRectF PictureItem::onGrid(const QRect& place) const {
  const qreal scale = deviceScale();
  const QPointF corner(std::round(origin_.x() * scale) / scale - origin_.x(),
                       std::round(origin_.y() * scale) / scale - origin_.y());
  return {corner + QPointF(place.topLeft()) / scale, QSizeF(place.size()) / scale};
}

QSGNode* PictureItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* root = static_cast<RootNode*>(old);
  if (size().isEmpty()) {
    delete root;
    return nullptr;
  }
  if (!root) root = new RootNode;
  painted_ = origin_;
  if (image_.isNull()) {
    if (root->picture) root->clear();
    if (!root->ground) {
      root->ground = window()->createRectangleNode();
      root->appendChildNode(root->ground);
    }
    root->ground->setRect(onGrid(place_));
    root->ground->setColor(ground_);
    return root;
  }
  if (root->ground) root->clear();
  const bool shrinks = part_.width() > place_.width() + 0.5;
  if (!root->picture) {
    root->picture = window()->createImageNode();
    root->picture->setOwnsTexture(true);
    fresh_ = true;
  }
  if (fresh_ || (shrinks && !root->shrinks)) {
    root->picture->setTexture(window()->createTextureFromImage(
        image_, shrinks ? QQuickWindow::TextureHasMipmaps : QQuickWindow::CreateTextureOptions()));
    root->picture->setMipmapFiltering(shrinks ? QSGTexture::Linear : QSGTexture::None);
    root->shrinks = shrinks;
    fresh_ = false;
  }
  // One to one, the nearest pixel is the picture's own.
  const bool exact = part_.size() == QSizeF(place_.size());
  root->picture->setFiltering(exact ? QSGTexture::Nearest : QSGTexture::Linear);
  root->picture->setSourceRect(part_);
  root->picture->setRect(onGrid(place_));
  // The software renderer looks at the texture the moment a node joins the scene.
  if (!root->picture->parent()) root->appendChildNode(root->picture);
  return root;
}

}  // namespace vellix
