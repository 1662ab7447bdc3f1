#include "SwapItem.hpp"

#include <QQuickWindow>
#include <QSGImageNode>

namespace vellix::bench {

SwapItem::SwapItem(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemHasContents); }

void SwapItem::show(QImage image) {
  image_ = std::move(image);
  update();
}

QSGNode* SwapItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (image_.isNull()) return node;
  auto* picture = static_cast<QSGImageNode*>(node);
  if (!picture) {
    picture = window()->createImageNode();
    picture->setOwnsTexture(true);
    picture->setFiltering(QSGTexture::Linear);
    picture->setMipmapFiltering(QSGTexture::Linear);
  }
  picture->setTexture(window()->createTextureFromImage(image_, QQuickWindow::TextureHasMipmaps));
  picture->setRect(boundingRect());
  return picture;
}

}  // namespace vellix::bench
