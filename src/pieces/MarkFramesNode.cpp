#include "pieces/MarkFramesNode.hpp"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <QSGRenderNode>
#include <QSGRendererInterface>
#include <unordered_map>
#include <utility>

namespace vellix {
namespace {

using Painted = MarkFrames::Painted;

QColor groundOf(const Painted& mark) {
  QColor ground = mark.frame.look.color;
  ground.setAlphaF(static_cast<float>(mark.frame.fill));
  return ground;
}

// Where a strip lies from the frame's corner. One of a former size is stretched.
QRectF placeOf(const Painted& mark, const FrameStrip& strip) {
  const QSizeF former = mark.drawn->shape.size;
  const QSizeF now = mark.frame.place.size();
  if (former == now) return strip.place;
  const qreal wider = now.width() / former.width();
  const qreal higher = now.height() / former.height();
  return {strip.place.x() * wider, strip.place.y() * higher, strip.place.width() * wider,
          strip.place.height() * higher};
}

class SoftwareNode : public QSGRenderNode {
 public:
  explicit SoftwareNode(QQuickWindow& window) : window_(window) {}

  void show(std::vector<Painted> marks) {
    marks_ = std::move(marks);
    rect_ = {};
    for (const Painted& mark : marks_) {
      QRectF reach{{}, mark.frame.place.size()};
      for (const FrameStrip& strip : mark.drawn->strips) reach |= placeOf(mark, strip);
      rect_ |= reach.translated(mark.frame.place.topLeft());
    }
    markDirty(DirtyGeometry | DirtyMaterial);
  }

  void render(const RenderState* state) override {
    const auto* renderer = window_.rendererInterface();
    auto* painter = static_cast<QPainter*>(
        renderer->getResource(&window_, QSGRendererInterface::PainterResource));
    if (!painter) return;
    const QTransform transform = matrix()->toTransform();
    QRectF seen = rect_;
    if (isCut()) {
      // It is called even where nothing of it is left to see.
      const QRegion* clip = state->clipRegion();
      if (!clip || clip->isEmpty()) return;
      painter->setClipRegion(*clip, Qt::ReplaceClip);
      seen = transform.inverted().mapRect(QRectF(clip->boundingRect()));
    }
    painter->setOpacity(inheritedOpacity());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    for (const Painted& mark : marks_) {
      const QPointF corner = mark.frame.place.topLeft();
      painter->setTransform(QTransform::fromTranslate(corner.x(), corner.y()) * transform);
      const QRectF near = seen.translated(-corner);
      if (mark.frame.fill > 0) {
        painter->fillRect(QRectF({}, mark.frame.place.size()), groundOf(mark));
      }
      for (const FrameStrip& strip : mark.drawn->strips) {
        const QRectF place = placeOf(mark, strip);
        if (!place.intersects(near)) continue;
        painter->drawImage(place, strip.image, QRectF(strip.image.rect()));
      }
    }
  }

  RenderingFlags flags() const override { return BoundedRectRendering; }
  QRectF rect() const override { return rect_; }

 private:
  bool isCut() const {
    const QSGNode* around = parent();
    while (around && around->type() != ClipNodeType) around = around->parent();
    return around != nullptr;
  }

  QQuickWindow& window_;
  std::vector<Painted> marks_;
  QRectF rect_;
};

void clear(QSGNode& node) {
  while (QSGNode* child = node.firstChild()) {
    node.removeChildNode(child);
    delete child;
  }
}

struct MarkNode : QSGTransformNode {
  ~MarkNode() override { clear(*this); }

  void show(const Painted& next, QQuickWindow& window) {
    if (mark.drawn == next.drawn && mark.frame == next.frame) return;
    mark = next;
    clear(*this);
    const QPointF corner = mark.frame.place.topLeft();
    QMatrix4x4 moved;
    moved.translate(static_cast<float>(corner.x()), static_cast<float>(corner.y()));
    setMatrix(moved);
    if (mark.frame.fill > 0) {
      QSGRectangleNode* inside = window.createRectangleNode();
      inside->setRect(QRectF({}, mark.frame.place.size()));
      inside->setColor(groundOf(mark));
      appendChildNode(inside);
    }
    for (const FrameStrip& strip : mark.drawn->strips) {
      QSGImageNode* image = window.createImageNode();
      image->setOwnsTexture(true);
      image->setFiltering(QSGTexture::Linear);
      image->setTexture(
          window.createTextureFromImage(strip.image, QQuickWindow::TextureCanUseAtlas));
      image->setRect(placeOf(mark, strip));
      appendChildNode(image);
    }
  }

  Painted mark;
};

class GpuNode : public QSGTransformNode {
 public:
  ~GpuNode() override { clear(*this); }

  void show(const std::vector<Painted>& marks, QQuickWindow& window) {
    if (showInPlace(marks, window)) return;
    std::unordered_map<int, MarkNode*> former;
    while (QSGNode* child = firstChild()) {
      removeChildNode(child);
      auto* node = static_cast<MarkNode*>(child);
      former.emplace(node->mark.frame.id, node);
    }
    for (const Painted& mark : marks) {
      const auto known = former.extract(mark.frame.id);
      MarkNode* node = known ? known.mapped() : new MarkNode;
      node->show(mark, window);
      appendChildNode(node);
    }
    for (const auto& [id, node] : former) delete node;
  }

 private:
  // Nodes that stay where they are in their order cost the renderer nothing.
  bool showInPlace(const std::vector<Painted>& marks, QQuickWindow& window) {
    QSGNode* child = firstChild();
    for (const Painted& mark : marks) {
      if (!child || static_cast<MarkNode*>(child)->mark.frame.id != mark.frame.id) return false;
      child = child->nextSibling();
    }
    if (child) return false;
    child = firstChild();
    for (const Painted& mark : marks) {
      static_cast<MarkNode*>(child)->show(mark, window);
      child = child->nextSibling();
    }
    return true;
  }
};

}  // namespace

QSGNode* markFramesNode(QSGNode* old, QQuickWindow& window, std::vector<Painted> frames) {
  if (frames.empty()) {
    delete old;
    return nullptr;
  }
  if (window.rendererInterface()->graphicsApi() == QSGRendererInterface::Software) {
    auto* node = old ? static_cast<SoftwareNode*>(old) : new SoftwareNode(window);
    node->show(std::move(frames));
    return node;
  }
  auto* node = old ? static_cast<GpuNode*>(old) : new GpuNode;
  node->show(frames, window);
  return node;
}

}  // namespace vellix
