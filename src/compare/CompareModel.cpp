#include "compare/CompareModel.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "compare/canvas.hpp"
#include "compare/marks.hpp"

namespace vellix {

CompareModel::CompareModel(Store& store, MainLoop& loop)
    : store_(store),
      blink_(loop,
             [this] {
               ++state_.blink;
               update();
             }),
      stage_(store, panes_.rows()),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kCanvas | Store::kSignedIn |
                                          Store::kFocus | Store::kDraft,
                                      [this] { update(); })),
      onFocus_(store.changes.observe(Store::kFocus, [this] { emit selected(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  update();
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
  const bool anew = canvas != canvas_;
  if (anew) {
    blink_.follow(false);
    stage_.endPinch();
    state_ = {};
    canvas_ = canvas;
    if (!std::exchange(pointed_, {}).empty()) emit pointedChanged();
  }
  followBlink();
  const FileItem* file = store_.currentFile();
  auto view = detail ? canvasView(store_, *detail, state_)
              : file ? waitingCanvas(store_, *file)
                     : CanvasView{};
  // First the places, so that a pane that comes knows its own.
  stage_.layOut(view.panes, takesTurns(store_));
  panes_.setRows(std::move(view.panes));
  emit boxesChanged();
  toggles_.setRows(std::move(view.toggles));
  stage_.followZoom();
  if (bar_.show(std::move(view.bar))) emit barChanged();
  showLoupe(std::move(view.loupe), anew);
  stage_.placeCard(view.draftPane);
  // One that is back with its page, or its ticket, was not begun.
  const bool begun = draft_ != store_.draft();
  draft_ = store_.draft();
  if (begun && view.draftPane >= 0) emit drafted();
}

void CompareModel::showLoupe(LoupeView loupe, bool anew) {
  if (!loupe.open && !anew) {
    loupe = *loupe_;
    loupe.open = false;
  }
  if (loupe_.show(std::move(loupe))) emit loupeChanged();
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

const std::vector<BoxMarkView>& CompareModel::boxes(const QString& pane) const {
  static const std::vector<BoxMarkView> kNone;
  const auto found = std::ranges::find(panes_.rows(), pane.toStdString(), &PaneView::key);
  return found == panes_.rows().end() ? kNone : found->boxes;
}

QRectF CompareModel::areaMark(QRectF box, QSizeF picture) {
  const Extent size = extentOf(picture);
  return rectOf(inSight(vellix::areaMark(boxOf(box), size), size));
}

Qml<CropLayout> CompareModel::cropLayout(QRectF part, const QVariantList& boxes, double aspect,
                                         QSizeF place) {
  std::vector<Box> marked;
  for (const QVariant& box : boxes) marked.push_back(boxOf(box.toRectF()));
  return toQml(vellix::cropLayout(boxOf(part), marked, aspect, extentOf(place))).toMap();
}

QSizeF CompareModel::cropPlace(double width, int crops) {
  return sizeOf(vellix::cropPlace(width, static_cast<std::size_t>(std::max(crops, 0))));
}

void CompareModel::stepPage(int delta) {
  if (const FileDetail* detail = store_.currentDetail()) store_.stepPage(*detail, delta);
}

void CompareModel::togglePane(const QString& key) { store_.togglePane(key.toStdString()); }

void CompareModel::setMode(const QString& key) {
  if (const auto mode = modeOf(key.toStdString())) store_.setMode(*mode);
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

void CompareModel::pressBox(const QString& finding) { store_.toggleFocus(finding.toStdString()); }

void CompareModel::point(const QString& finding, bool on) {
  const QString before = pointed();
  if (on) {
    pointed_.push_back(finding);
  } else if (const auto last = std::ranges::find(pointed_, finding); last != pointed_.end()) {
    pointed_.erase(last);
  }
  if (pointed() != before) emit pointedChanged();
}

void CompareModel::closeLoupe() { store_.clearFocus(); }

void CompareModel::beginNote(int pane, QPointF from, QPointF to, QSizeF picture) {
  const auto at = static_cast<std::size_t>(pane);
  const std::string shown = at < panes_.rows().size() ? panes_.rows()[at].key : std::string{};
  const Int page = bar_->page;
  // The page may have been turned in this very turn, and what was drawn on was the one before.
  update();
  if (at >= panes_.rows().size()) return;
  const PaneView& view = panes_.rows()[at];
  if (view.key != shown || bar_->page != page) return;
  state_.drawnOn = view.key;
  vellix::beginNote(store_, view.side, spotOf(from), spotOf(to), extentOf(picture));
  // It may be the same spot, of another pane.
  update();
}

}  // namespace vellix
