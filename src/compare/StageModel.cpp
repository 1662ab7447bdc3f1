#include "compare/StageModel.hpp"

#include <algorithm>
#include <cmath>

#include "compare/marks.hpp"

namespace vellix {

StageModel::StageModel(Store& store, const std::vector<PaneView>& panes)
    : panes_(panes), hand_(store) {}

void StageModel::layOut(const std::vector<PaneView>& panes, bool alone) {
  alone_ = alone;
  std::vector<StagePane> stood;
  stood.reserve(panes.size());
  for (const auto& pane : panes) stood.push_back({pane.aspect, !pane.img.empty()});
  if (!layout_.show(stageLayout(size_, stood, zoom_, alone_))) return;
  anchor_.reset();
  emit layoutChanged();
  placeCard(draftPane_);
}

void StageModel::placeCard(Int pane) {
  draftPane_ = pane;
  const auto at = static_cast<std::size_t>(pane);
  DraftPlaceView place = *card_;
  place.here = pane >= 0 && at < layout_->panes.size() && at < panes_.size();
  if (place.here) {
    const Spot corner = draftCardCorner(panes_[at].draft.box, layout_->panes[at].page,
                                        {layout_->width, layout_->height});
    place.x = corner.x;
    place.y = corner.y;
  }
  if (card_.show(place)) emit cardChanged();
}

void StageModel::followZoom() {
  if (glides_ != hand_.holds()) return;
  glides_ = !glides_;
  emit glidesChanged();
}

QPointF StageModel::lay(QSizeF size, double zoom, QPointF scroll, QPointF anchor) {
  const Spot at = spotOf(scroll);
  // Scrolled by other means, or held elsewhere: another place is meant.
  const bool same = anchor_ && anchor_->spot == spotOf(anchor) && std::abs(at.x - scroll_.x) <= 1 &&
                    std::abs(at.y - scroll_.y) <= 1;
  const auto about = same ? anchor_ : anchorAt(*layout_, at, spotOf(anchor));
  size_ = extentOf(size);
  zoom_ = zoom;
  layOut(panes_, alone_);
  anchor_ = about;
  scroll_ = anchored(about, at, *layout_, size_);
  return pointOf(scroll_);
}

QPointF StageModel::revealSelected(QPointF scroll, double covered) const {
  std::vector<Box> marks;
  for (std::size_t i = 0; i < panes_.size() && i < layout_->panes.size(); ++i) {
    if (!panes_[i].onStage) continue;
    const Box& page = layout_->panes[i].page;
    for (const auto& view : panes_[i].boxes) {
      if (!view.selected) continue;
      const Box mark = boxMark(view.box, {page.width, page.height});
      marks.push_back({page.x + mark.x, page.y + mark.y, mark.width, mark.height});
    }
  }
  return revealed(marks, scroll, covered);
}

QPointF StageModel::reveal(QRectF place, QPointF scroll, double covered) const {
  return revealed({boxOf(place)}, scroll, covered);
}

QPointF StageModel::revealed(const std::vector<Box>& marks, QPointF scroll, double covered) const {
  const Extent seen{size_.width, std::max(size_.height - std::max(covered, 0.0), 1.0)};
  return pointOf(vellix::revealed(*layout_, spotOf(scroll), marks, seen));
}

void StageModel::pinch(double magnification) { hand_.pinch(magnification); }
void StageModel::wheel(double notches) { hand_.wheel(notches); }

}  // namespace vellix
