#include "MarkFrame.hpp"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <cmath>

namespace vellix {
namespace {

// The software renderer places children that join later only by a parent with a place of its own.
struct Node : QSGTransformNode {
  ~Node() override { clear(); }
  void clear() {
    while (QSGNode* child = firstChild()) {
      removeChildNode(child);
      delete child;
    }
  }
};

}  // namespace

MarkFrame::MarkFrame(QQuickItem* parent) : GridItem(parent) {
  connect(this, &MarkFrame::looksChanged, this, &QQuickItem::update);
}

QSGNode* MarkFrame::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<Node*>(old);
  const qreal scale = deviceScale();
  const FrameShape shape{
      {color_, line_, dash_, halo_, haloOpacity_, radius_}, size(), -onGrid({}) * scale, scale};
  if (!shape.isDrawable() || !std::isfinite(x()) || !std::isfinite(y())) {
    delete node;
    return nullptr;
  }
  if (!node) node = new Node;
  node->clear();
  if (fill_ > 0) {
    QColor ground = color_;
    ground.setAlphaF(static_cast<float>(fill_));
    QSGRectangleNode* inside = window()->createRectangleNode();
    inside->setRect(QRectF({}, size()));
    inside->setColor(ground);
    node->appendChildNode(inside);
  }
  for (const FrameStrip& strip : drawFrame(shape)) {
    QSGImageNode* image = window()->createImageNode();
    image->setOwnsTexture(true);
    image->setFiltering(QSGTexture::Linear);
    image->setTexture(window()->createTextureFromImage(strip.image));
    image->setRect(strip.place);
    node->appendChildNode(image);
  }
  return node;
}

}  // namespace vellix
