// The frames of many marks on one picture, drawn by one item. A few that are new, or look another
// way, are drawn for the very next frame; of many the pixels are made on other threads, and what
// was there before is stretched until they are here. Main thread only.
#pragma once

#include <QFutureWatcher>
#include <memory>
#include <unordered_map>
#include <vector>

#include "pictures/GridItem.hpp"
#include "pieces/frame_drawing.hpp"

namespace vellix {

class MarkFrames : public GridItem {
  Q_OBJECT

 public:
  struct Frame {
    int id = 0;  // of the mark, for as long as there is this one
    QRectF place;
    FrameLook look;
    qreal fill = 0;  // opacity of the colour inside
    bool operator==(const Frame&) const = default;
  };
  // A frame as its pixels are at hand.
  struct Drawn {
    FrameShape shape;
    std::vector<FrameStrip> strips;
  };
  struct Painted {
    Frame frame;
    std::shared_ptr<const Drawn> drawn;
  };

  explicit MarkFrames(QQuickItem* parent = nullptr);
  ~MarkFrames() override;

  // From the lowest to the topmost.
  const std::vector<Frame>& frames() const { return frames_; }
  // Those that come from another item bring their pixels along.
  void setFrames(std::vector<Frame> frames, const MarkFrames* from = nullptr);

 protected:
  void resized() override { stale_ = true; }
  void framed() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  using Drawings = std::unordered_map<int, std::shared_ptr<const Drawn>>;

  FrameShape shapeOf(const Frame& frame) const;
  void draw();

  std::vector<Frame> frames_;
  Drawings drawings_;
  QFutureWatcher<Drawings> drawing_;
  bool draws_ = false;  // until the pixels that are made elsewhere have come
  bool stale_ = false;  // some may have other pixels than they should
  QPointF grid_;        // from the item's corner, in the device's pixels, when last they were drawn
};

}  // namespace vellix
