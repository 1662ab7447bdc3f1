// The page on show: its panes, what lies on them, the bar and the loupe, for their views. Main
// thread only. Sizes are logical pixels.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "bridge/RowsModel.hpp"
#include "compare/blink.hpp"
#include "compare/canvas_view.hpp"
#include "compare/draft_place.hpp"

namespace vellix {

class CompareModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged)  // its detail is here
  Q_PROPERTY(QVariantMap bar READ bar NOTIFY barChanged)
  Q_PROPERTY(QVariantMap notes READ notes NOTIFY notesChanged)
  Q_PROPERTY(QVariantMap loupe READ loupe NOTIFY loupeChanged)
  Q_PROPERTY(QVariantMap stage READ stage NOTIFY stageChanged)  // a StageLayout
  // Where the card of the note being written stands: a DraftPlaceView.
  Q_PROPERTY(QVariantMap card READ card NOTIFY cardChanged)
  Q_PROPERTY(QVariantList modes READ modes CONSTANT)
  // The zoom was stepped to, and glides there; else a hand is moving it. Told before the zoom.
  Q_PROPERTY(bool glides READ glides NOTIFY glidesChanged)
  Q_PROPERTY(QAbstractItemModel* panes READ panes CONSTANT)
  Q_PROPERTY(QAbstractItemModel* toggles READ toggles CONSTANT)

 public:
  // The Store and the loop must outlive the model.
  CompareModel(Store& store, MainLoop& loop);

  bool loaded() const { return loaded_; }
  QVariantMap bar() const { return bar_; }
  QVariantMap notes() const { return notes_; }
  QVariantMap loupe() const { return loupe_; }
  QVariantMap stage() const { return stage_; }
  QVariantMap card() const { return card_; }
  static QVariantList modes() { return toQml(compareModes()).toList(); }
  bool glides() const { return glides_; }
  QAbstractItemModel* panes() { return &panes_; }
  QAbstractItemModel* toggles() { return &toggles_; }

  Q_INVOKABLE void stepPage(int delta);
  Q_INVOKABLE void togglePane(const QString& key);
  Q_INVOKABLE void setMode(const QString& key);
  Q_INVOKABLE void setOpacity(double opacity);
  Q_INVOKABLE void setDifference(bool difference);
  Q_INVOKABLE void zoomIn();
  Q_INVOKABLE void zoomOut();
  Q_INVOKABLE void zoomTo(double zoom);
  Q_INVOKABLE void fit();
  Q_INVOKABLE void pinch(double magnification);
  Q_INVOKABLE void endPinch();
  // By so many notches of a wheel.
  Q_INVOKABLE void wheel(double notches);
  Q_INVOKABLE void toggleNotes();
  Q_INVOKABLE void openNotes();
  // Tells how wide the view is: where it is narrow the panel floats.
  Q_INVOKABLE void layNotes(double width);

  Q_INVOKABLE void pressBox(const QString& finding);
  Q_INVOKABLE void closeLoupe();
  // On the pane of this number.
  Q_INVOKABLE void beginNote(int pane, QPointF from, QPointF to, QSizeF picture);
  // The note being written is wanted.
  Q_INVOKABLE void resumeNote() { emit drafted(); }

  // Lays the panes out on a stage of this size at this zoom. Gives the place to scroll to, from
  // `scroll`, so that what was under `anchor` on the stage stays there.
  Q_INVOKABLE QPointF layStage(QSizeF size, double zoom, QPointF scroll, QPointF anchor);
  // The place to scroll to, from `scroll`, to have one of the selected finding's marks in sight, or
  // what lies at this place of the content. `covered` is the height of what stands over the stage.
  Q_INVOKABLE QPointF revealSelected(QPointF scroll, double covered) const;
  Q_INVOKABLE QPointF reveal(QRectF place, QPointF scroll, double covered) const;
  // A drag over a page is under way: the panes do not take turns then.
  Q_INVOKABLE void setDrawing(bool drawing);
  // The window can be seen.
  Q_INVOKABLE void setSeen(bool seen);
  // In the picture's coordinates; `box` in fractions of the page. Cut off where it is out of sight.
  Q_INVOKABLE static QRectF boxMark(const QVariantMap& box, QSizeF picture);
  Q_INVOKABLE static QRectF areaMark(const QVariantMap& box, QSizeF picture);
  // A CropLayout, for a CropView in a place of this size.
  Q_INVOKABLE static QVariantMap cropLayout(const QVariantMap& crop, QSizeF place);
  Q_INVOKABLE static QSizeF cropPlace(double width, int crops);

 signals:
  void loadedChanged();
  void barChanged();
  void glidesChanged();
  void notesChanged();
  void loupeChanged();
  void stageChanged();
  void cardChanged();
  void selected();  // another finding, or none
  void drafted();   // a note has a place on the page, or another one, and waits for its text

 private:
  void update();
  void updateCanvas(const FileDetail* detail);
  void updateNotes();
  void followBlink();
  void layOut(const std::vector<PaneView>& panes);
  void placeCard();

  Store& store_;
  std::string asked_;   // the ticket whose detail was asked for
  std::string canvas_;  // the ticket whose canvas is on show
  CanvasState state_;
  Blink blink_;
  double width_ = 0;
  bool loaded_ = false;
  bool glides_ = true;
  std::optional<double> handZoom_;  // where a hand has brought the zoom
  bool alone_ = false;              // the panes take turns
  bool drawing_ = false;
  bool seen_ = true;
  Extent size_;
  double zoom_ = 1;  // as it is drawn, on its way to the Store's
  StageLayout layout_;
  Int draftPane_ = -1;
  LoupeView shownLoupe_;            // the last one stays while the strip leaves
  DraftPlaceView cardPlace_;        // the last one stays while the card leaves
  std::optional<DraftNote> draft_;  // the one that was told of
  std::optional<Anchor> anchor_;    // what is zoomed about
  Spot scroll_;                     // where that has brought the content
  QVariantMap bar_ = toQml(CanvasBarView{}).toMap();
  QVariantMap notes_ = toQml(NotesPanelView{}).toMap();
  QVariantMap loupe_ = toQml(LoupeView{}).toMap();
  QVariantMap stage_ = toQml(StageLayout{}).toMap();
  QVariantMap card_ = toQml(DraftPlaceView{}).toMap();
  RowsModel<PaneView, &PaneView::key> panes_;
  RowsModel<PaneToggleView, &PaneToggleView::key> toggles_;
  Changes::Subscription onChange_;
  Changes::Subscription onFocus_;
  Changes::Subscription onPanels_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
