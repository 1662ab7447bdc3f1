#include "compare/CompareModel.hpp"

#include <algorithm>
#include <cmath>

#include "bridge/replaced.hpp"
#include "compare/canvas.hpp"
#include "compare/crop.hpp"
#include "compare/marks.hpp"

namespace vellix {
namespace {

Extent extentOf(QSizeF size) { return {size.width(), size.height()}; }
Spot spotOf(QPointF point) { return {point.x(), point.y()}; }
QPointF pointOf(Spot spot) { return {spot.x, spot.y}; }
// What is not covered from below.
Extent seenPart(Extent stage, double covered) {
  return {stage.width, std::max(stage.height - std::max(covered, 0.0), 1.0)};
}
QRectF rectOf(const Box& box) { return {box.x, box.y, box.width, box.height}; }

Box boxFrom(const QVariantMap& map) {
  return {map["x"].toDouble(), map["y"].toDouble(), map["width"].toDouble(),
          map["height"].toDouble()};
}

}  // namespace

CompareModel::CompareModel(Store& store, MainLoop& loop)
    : store_(store),
      blink_(loop,
             [this] {
               ++state_.blink;
               update();
             }),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kCanvas | Store::kSignedIn |
                                          Store::kFocus | Store::kDraft,
                                      [this] { update(); })),
      onFocus_(store.changes.observe(Store::kFocus, [this] { emit selected(); })),
      onPanels_(store.changes.observe(Store::kPanels, [this] { updateNotes(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] {
        update();
        updateNotes();
      })) {
  update();
  updateNotes();
}

void CompareModel::update() {
  const FileItem* file = store_.currentFile();
  if (file && asked_ != file->id) store_.requestDetail(*file);
  asked_ = file ? file->id : std::string{};

  const FileDetail* detail = store_.currentDetail();
  updateCanvas(detail);
  if (loaded_ != (detail != nullptr)) {
    loaded_ = detail != nullptr;
    emit loadedChanged();
  }
}

void CompareModel::updateCanvas(const FileDetail* detail) {
  // Another ticket's canvas is another one: it begins anew.
  const std::string canvas = detail ? detail->file.id : std::string{};
  if (canvas != canvas_) {
    blink_.follow(false);
    state_ = {};
    shownLoupe_ = {};
    canvas_ = canvas;
  }
  followBlink();
  auto view = detail ? canvasView(store_, *detail, state_) : CanvasView{};
  alone_ = takesTurns(store_);
  // First the places, so that a pane that comes knows its own.
  layOut(view.panes);
  panes_.setRows(std::move(view.panes));
  toggles_.setRows(std::move(view.toggles));
  if (handZoom_ != store_.zoom()) handZoom_.reset();
  if (glides_ == handZoom_.has_value()) {
    glides_ = !glides_;
    emit glidesChanged();
  }
  if (replaced(bar_, view.bar)) emit barChanged();
  const bool opens = view.loupe.open;
  if (opens) shownLoupe_ = std::move(view.loupe);
  shownLoupe_.open = opens;
  if (replaced(loupe_, shownLoupe_)) emit loupeChanged();
  draftPane_ = view.draftPane;
  placeCard();
  const auto draft = draftPane_ < 0 ? std::nullopt : store_.draft();
  if (draft_ == draft) return;
  draft_ = draft;
  if (draft_) emit drafted();
}

void CompareModel::placeCard() {
  const auto pane = static_cast<std::size_t>(draftPane_);
  if (draftPane_ >= 0 && pane < layout_.panes.size()) {
    const Spot at = draftCardCorner(panes_.rows()[pane].draft.box, layout_.panes[pane].page,
                                    {layout_.width, layout_.height});
    cardPlace_ = {.here = true, .x = at.x, .y = at.y};
  } else {
    cardPlace_.here = false;
  }
  if (replaced(card_, cardPlace_)) emit cardChanged();
}

void CompareModel::updateNotes() {
  if (replaced(notes_, notesPanel(store_, width_))) emit notesChanged();
}

void CompareModel::followBlink() {
  blink_.follow(!canvas_.empty() && takesTurns(store_) && seen_ && !drawing_);
}

void CompareModel::setDrawing(bool drawing) {
  drawing_ = drawing;
  followBlink();
}

void CompareModel::setSeen(bool seen) {
  seen_ = seen;
  followBlink();
}

void CompareModel::layOut(const std::vector<PaneView>& views) {
  std::vector<StagePane> panes;
  panes.reserve(views.size());
  for (const auto& view : views) panes.push_back({view.aspect, !view.img.empty()});
  auto layout = stageLayout(size_, panes, zoom_, alone_);
  if (layout == layout_) return;
  layout_ = std::move(layout);
  anchor_.reset();
  stage_ = toQml(layout_).toMap();
  emit stageChanged();
  placeCard();
}

QPointF CompareModel::layStage(QSizeF size, double zoom, QPointF scroll, QPointF anchor) {
  const Spot at = spotOf(scroll);
  // Scrolled by other means, or held elsewhere: another place is meant.
  const bool same = anchor_ && anchor_->spot == spotOf(anchor) && std::abs(at.x - scroll_.x) <= 1 &&
                    std::abs(at.y - scroll_.y) <= 1;
  const auto about = same ? anchor_ : anchorAt(layout_, at, spotOf(anchor));
  size_ = extentOf(size);
  zoom_ = zoom;
  layOut(panes_.rows());
  anchor_ = about;
  scroll_ = anchored(about, at, layout_, size_);
  return pointOf(scroll_);
}

QPointF CompareModel::revealSelected(QPointF scroll, double covered) const {
  std::vector<Box> marks;
  for (std::size_t i = 0; i < panes_.rows().size() && i < layout_.panes.size(); ++i) {
    const PaneView& pane = panes_.rows()[i];
    if (!pane.onStage) continue;
    const Box& page = layout_.panes[i].page;
    for (const auto& view : pane.boxes) {
      if (!view.selected) continue;
      const Box mark = vellix::boxMark(view.box, {page.width, page.height});
      marks.push_back({page.x + mark.x, page.y + mark.y, mark.width, mark.height});
    }
  }
  return pointOf(revealed(layout_, spotOf(scroll), marks, seenPart(size_, covered)));
}

QPointF CompareModel::reveal(QRectF place, QPointF scroll, double covered) const {
  const Box box{place.x(), place.y(), place.width(), place.height()};
  return pointOf(revealed(layout_, spotOf(scroll), {box}, seenPart(size_, covered)));
}

QRectF CompareModel::boxMark(const QVariantMap& box, QSizeF picture) {
  const Extent size = extentOf(picture);
  return rectOf(inSight(vellix::boxMark(boxFrom(box), size), size));
}

QRectF CompareModel::areaMark(const QVariantMap& box, QSizeF picture) {
  const Extent size = extentOf(picture);
  return rectOf(inSight(vellix::areaMark(boxFrom(box), size), size));
}

QVariantMap CompareModel::cropLayout(const QVariantMap& crop, QSizeF place) {
  std::vector<Box> boxes;
  for (const QVariant& box : crop["boxes"].toList()) boxes.push_back(boxFrom(box.toMap()));
  const auto layout = vellix::cropLayout(boxFrom(crop["part"].toMap()), boxes,
                                         crop["aspect"].toDouble(), extentOf(place));
  return toQml(layout).toMap();
}

QSizeF CompareModel::cropPlace(double width, int crops) {
  const auto place = vellix::cropPlace(width, static_cast<std::size_t>(std::max(crops, 0)));
  return {place.width, place.height};
}

void CompareModel::stepPage(int delta) {
  if (const FileDetail* detail = store_.currentDetail()) store_.stepPage(*detail, delta);
}

void CompareModel::togglePane(const QString& key) { vellix::togglePane(store_, key.toStdString()); }

void CompareModel::setMode(const QString& key) {
  if (const auto mode = modeOf(key.toStdString())) store_.mode.set(*mode);
}

void CompareModel::setOpacity(double opacity) {
  if (std::isnan(opacity)) return;
  state_.opacity = std::clamp(opacity, 0.0, 1.0);
  update();
}

void CompareModel::setDifference(bool difference) {
  state_.difference = difference;
  update();
}

void CompareModel::zoomIn() { store_.stepZoom(Store::kZoomIn); }
void CompareModel::zoomOut() { store_.stepZoom(Store::kZoomOut); }
void CompareModel::zoomTo(double zoom) { store_.zoomTo(zoom); }
void CompareModel::fit() { store_.fitZoom(); }

void CompareModel::pinch(double magnification) {
  vellix::pinch(store_, state_, magnification);
  handZoom_ = store_.zoom();
}

void CompareModel::endPinch() { state_.pinchStart.reset(); }

void CompareModel::wheel(double notches) {
  store_.zoomTo(store_.zoom() * std::pow(Store::kZoomIn, notches));
  handZoom_ = store_.zoom();
}

void CompareModel::toggleNotes() { store_.toggleNotes(); }

void CompareModel::openNotes() {
  if (!notes_["open"].toBool()) store_.toggleNotes();
}

void CompareModel::layNotes(double width) {
  if (!(width > 0)) return;  // a view that is not laid out yet
  width_ = width;
  store_.notesFloat.set(notesFloat(width));
  updateNotes();
}

void CompareModel::pressBox(const QString& finding) { toggleFocus(store_, finding.toStdString()); }

void CompareModel::closeLoupe() { store_.focus.set(std::nullopt); }

void CompareModel::beginNote(int pane, QPointF from, QPointF to, QSizeF picture) {
  const auto at = static_cast<std::size_t>(pane);
  const std::string shown = at < panes_.rows().size() ? panes_.rows()[at].key : std::string{};
  const QVariant page = bar_["page"];
  // The page may have been turned in this very turn, and what was drawn on was the one before.
  update();
  if (at >= panes_.rows().size()) return;
  const PaneView& view = panes_.rows()[at];
  if (view.key != shown || bar_["page"] != page) return;
  state_.drawnOn = view.key;
  vellix::beginNote(store_, view.side, spotOf(from), spotOf(to), extentOf(picture));
  // It may be the same spot, of another pane.
  update();
}

}  // namespace vellix
