#include "pieces/MarkFrames.hpp"

#include <QPromise>
#include <QQuickWindow>
#include <QThreadPool>
#include <cmath>
#include <utility>

#include "pieces/MarkFramesNode.hpp"

namespace vellix {
namespace {

// So many are drawn in about two milliseconds.
constexpr std::size_t kAtOnce = 60;

bool isWhole(qreal by) { return std::abs(by - std::round(by)) < 1e-6; }

std::shared_ptr<const MarkFrames::Drawn> drawnAs(const FrameShape& shape) {
  return std::make_shared<const MarkFrames::Drawn>(shape, drawFrame(shape));
}

}  // namespace

MarkFrames::MarkFrames(QQuickItem* parent) : GridItem(parent) {
  connect(&drawing_, &QFutureWatcherBase::finished, this, [this] {
    draws_ = false;
    if (drawing_.isCanceled()) return;
    const Drawings made = drawing_.result();
    for (const Frame& frame : frames_) {
      const auto late = made.find(frame.id);
      if (late == made.end()) continue;
      auto& kept = drawings_[frame.id];
      // What fits already is not given up for what was wanted a while ago.
      if (!kept || kept->shape != shapeOf(frame)) kept = late->second;
    }
    stale_ = true;
    update();
  });
}

MarkFrames::~MarkFrames() { drawing_.cancel(); }

void MarkFrames::setFrames(std::vector<Frame> frames, const MarkFrames* from) {
  if (frames == frames_) return;
  frames_ = std::move(frames);
  if (from) drawings_.insert(from->drawings_.begin(), from->drawings_.end());
  stale_ = true;
  update();
}

FrameShape MarkFrames::shapeOf(const Frame& frame) const {
  const qreal scale = deviceScale();
  const QPointF corner = frame.place.topLeft() * scale - grid_;
  const QPointF off{corner.x() - std::round(corner.x()), corner.y() - std::round(corner.y())};
  return {frame.look, frame.place.size(), off, scale};
}

// Makes pixels of what has none as it is now, and lets those of marks go that are no more.
void MarkFrames::draw() {
  Drawings kept;
  std::vector<std::pair<int, FrameShape>> wanted;
  for (const Frame& frame : frames_) {
    const FrameShape shape = shapeOf(frame);
    if (!shape.isDrawable()) continue;
    const auto known = drawings_.find(frame.id);
    if (known != drawings_.end()) kept.insert(*known);
    if (known == drawings_.end() || known->second->shape != shape) {
      wanted.emplace_back(frame.id, shape);
    }
  }
  drawings_ = std::move(kept);
  if (wanted.size() <= kAtOnce) {
    for (const auto& [id, shape] : wanted) drawings_[id] = drawnAs(shape);
  } else if (!std::exchange(draws_, true)) {
    const auto promise = std::make_shared<QPromise<Drawings>>();
    drawing_.setFuture(promise->future());
    promise->start();
    QThreadPool::globalInstance()->start([promise, all = std::move(wanted)] {
      Drawings made;
      for (const auto& [id, shape] : all) {
        if (promise->isCanceled()) break;
        made[id] = drawnAs(shape);
      }
      promise->addResult(std::move(made));
      promise->finish();
    });
  }
}

void MarkFrames::framed() {
  if (!isVisible()) return;
  const QPointF grid = onGrid({}) * deviceScale();
  if (!isWhole(grid.x() - grid_.x()) || !isWhole(grid.y() - grid_.y())) {
    grid_ = grid;
    stale_ = true;
  }
  if (!std::exchange(stale_, false)) return;
  draw();
  update();
}

QSGNode* MarkFrames::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  // A window that is only grabbed tells of no frame.
  if (std::exchange(stale_, false)) draw();
  std::vector<Painted> painted;
  painted.reserve(frames_.size());
  for (const Frame& frame : frames_) {
    if (const auto drawn = drawings_.find(frame.id); drawn != drawings_.end()) {
      painted.push_back({frame, drawn->second});
    }
  }
  return markFramesNode(old, *window(), std::move(painted));
}

}  // namespace vellix
