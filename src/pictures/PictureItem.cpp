#include "pictures/PictureItem.hpp"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>

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

PictureItem::PictureItem(QQuickItem* parent) : GridItem(parent) {}

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
  update();
}

void PictureItem::showGround(const QColor& colour) {
  const QRect place(QPoint(), deviceSize());
  if (image_.isNull() && colour == ground_ && place == place_) return;
  image_ = {};
  ground_ = colour;
  place_ = place;
  update();
}

bool PictureItem::isInSight() const {
  if (!window() || !isVisible()) return false;
  QRectF seen = mapRectToScene(QRectF(QPointF(), size())) & QRectF(QPointF(), window()->size());
  for (const QQuickItem* item = parentItem(); item && !seen.isEmpty(); item = item->parentItem()) {
    if (item->clip()) seen &= item->mapRectToScene(item->clipRect());
  }
  return !seen.isEmpty();
}

QRectF PictureItem::inItem(const QRect& place) const {
  const qreal scale = deviceScale();
  return {onGrid({}) + QPointF(place.topLeft()) / scale, QSizeF(place.size()) / scale};
}

QSGNode* PictureItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* root = static_cast<RootNode*>(old);
  if (size().isEmpty()) {
    delete root;
    return nullptr;
  }
  if (!root) root = new RootNode;
  if (image_.isNull()) {
    if (root->picture) root->clear();
    if (!root->ground) {
      root->ground = window()->createRectangleNode();
      root->appendChildNode(root->ground);
    }
    root->ground->setRect(inItem(place_));
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
  root->picture->setRect(inItem(place_));
  // The software renderer looks at the texture the moment a node joins the scene.
  if (!root->picture->parent()) root->appendChildNode(root->picture);
  return root;
}

}  // namespace vellix
