// Where the panes stand on the stage, how it is zoomed by hand and what it is scrolled to, and
// where the card of the note being written stands. Main thread only. Sizes are logical pixels.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "compare/canvas_view.hpp"
#include "compare/draft_place.hpp"
#include "compare/hand_zoom.hpp"

namespace vellix {

class StageModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the canvas")
  Q_PROPERTY(Qml<StageLayout> layout READ layout NOTIFY layoutChanged)
  // Where the card of the note being written stands; where it stood, while it leaves.
  Q_PROPERTY(Qml<DraftPlaceView> card READ card NOTIFY cardChanged)
  // The zoom was stepped to, and glides there; else a hand is moving it. Told before the zoom.
  Q_PROPERTY(bool glides READ glides NOTIFY glidesChanged)

 public:
  // The Store and the panes, which are those on show, must outlive the model.
  StageModel(Store& store, const std::vector<PaneView>& panes);

  Qml<StageLayout> layout() const { return layout_.qml(); }
  Qml<DraftPlaceView> card() const { return card_.qml(); }
  bool glides() const { return glides_; }

  // What comes on show; `alone`, the panes take turns.
  void layOut(const std::vector<PaneView>& panes, bool alone);
  // The note being written is placed by the pane of this number; by none for -1.
  void placeCard(Int pane);
  void followZoom();

  // Lays the panes out on a stage of this size at this zoom. Gives the place to scroll to, from
  // `scroll`, so that what was under `anchor` on the stage stays there.
  Q_INVOKABLE QPointF lay(QSizeF size, double zoom, QPointF scroll, QPointF anchor);
  // The place to scroll to, from `scroll`, to have one of the selected finding's marks in sight, or
  // what lies at this place of the content. `covered` is the height of what stands over the stage.
  Q_INVOKABLE QPointF revealSelected(QPointF scroll, double covered) const;
  Q_INVOKABLE QPointF reveal(QRectF place, QPointF scroll, double covered) const;

  Q_INVOKABLE void pinch(double magnification);
  Q_INVOKABLE void endPinch() { hand_.endPinch(); }
  Q_INVOKABLE void wheel(double notches);

 signals:
  void layoutChanged();
  void cardChanged();
  void glidesChanged();

 private:
  QPointF revealed(const std::vector<Box>& marks, QPointF scroll, double covered) const;

  const std::vector<PaneView>& panes_;
  HandZoom hand_;
  bool glides_ = true;
  bool alone_ = false;
  Extent size_;
  double zoom_ = 1;  // as it is drawn, on its way to the Store's
  Int draftPane_ = -1;
  std::optional<Anchor> anchor_;  // what is zoomed about
  Spot scroll_;                   // where that has brought the content
  Shown<StageLayout> layout_;
  Shown<DraftPlaceView> card_;
};

}  // namespace vellix
