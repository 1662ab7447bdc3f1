// The page on show: its panes, what lies on them, the bar and the loupe, for their views. Main
// thread only. Sizes are logical pixels.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/RowsModel.hpp"
#include "bridge/Shown.hpp"
#include "compare/StageModel.hpp"
#include "compare/blink.hpp"
#include "compare/canvas_view.hpp"
#include "compare/crop.hpp"

namespace vellix {

class CompareModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged)  // its detail is here
  Q_PROPERTY(Qml<CanvasBarView> bar READ bar NOTIFY barChanged)
  // Of the finding that was last in focus, while the strip leaves.
  Q_PROPERTY(Qml<LoupeView> loupe READ loupe NOTIFY loupeChanged)
  // The finding under the pointer, on the page or in the panel beside it; empty for none.
  Q_PROPERTY(QString pointed READ pointed NOTIFY pointedChanged)
  Q_PROPERTY(Qml<std::vector<ModeView>> modes READ modes CONSTANT)
  Q_PROPERTY(QAbstractItemModel* panes READ panes CONSTANT)
  Q_PROPERTY(QAbstractItemModel* toggles READ toggles CONSTANT)
  Q_PROPERTY(vellix::StageModel* stage READ stage CONSTANT)

 public:
  // The Store and the loop must outlive the model.
  CompareModel(Store& store, MainLoop& loop);

  bool loaded() const { return loaded_; }
  // The marks of findings on the pane of this key, until boxesChanged is told: as QML's values so
  // many would cost more than all else of a page.
  const std::vector<BoxMarkView>& boxes(const QString& pane) const;

  Qml<CanvasBarView> bar() const { return bar_.qml(); }
  Qml<LoupeView> loupe() const { return loupe_.qml(); }
  QString pointed() const { return pointed_.empty() ? QString{} : pointed_.back(); }
  static Qml<std::vector<ModeView>> modes() { return toQml(compareModes()).toList(); }
  QAbstractItemModel* panes() { return &panes_; }
  QAbstractItemModel* toggles() { return &toggles_; }
  StageModel* stage() { return &stage_; }

  Q_INVOKABLE void stepPage(int delta);
  Q_INVOKABLE void togglePane(const QString& key);
  Q_INVOKABLE void setMode(const QString& key);
  Q_INVOKABLE void setOpacity(double opacity);
  Q_INVOKABLE void setDifference(bool difference);
  Q_INVOKABLE void zoomIn();
  Q_INVOKABLE void zoomOut();
  Q_INVOKABLE void zoomTo(double zoom);
  Q_INVOKABLE void fit();

  Q_INVOKABLE void pressBox(const QString& finding);
  Q_INVOKABLE void closeLoupe();
  // The pointer came to what stands for this finding, or left it.
  Q_INVOKABLE void point(const QString& finding, bool on);
  // On the pane of this number.
  Q_INVOKABLE void beginNote(int pane, QPointF from, QPointF to, QSizeF picture);
  // The note being written is wanted.
  Q_INVOKABLE void resumeNote() { emit drafted(); }

  // A drag over a page is under way: the panes do not take turns then.
  Q_INVOKABLE void setDrawing(bool drawing);
  // The window can be seen.
  Q_INVOKABLE void setSeen(bool seen);
  // In the picture's coordinates; `box` in fractions of the page. Cut off where it is out of sight.
  Q_INVOKABLE static QRectF areaMark(QRectF box, QSizeF picture);
  // How a crop of this part of a page lies in a place of this size; `boxes` are rectangles.
  Q_INVOKABLE static Qml<CropLayout> cropLayout(QRectF part, const QVariantList& boxes,
                                                double aspect, QSizeF place);
  Q_INVOKABLE static QSizeF cropPlace(double width, int crops);

 signals:
  void loadedChanged();
  void boxesChanged();  // or may have
  void barChanged();
  void loupeChanged();
  void pointedChanged();
  void selected();  // another finding, or none
  void drafted();   // a note has been begun on the page, or moved, and waits for its text

 private:
  void update();
  void updateCanvas(const FileDetail* detail);
  void showLoupe(LoupeView loupe, bool anew);
  void followBlink();

  Store& store_;
  std::string asked_;   // the ticket whose detail was asked for
  std::string canvas_;  // the ticket whose canvas is on show
  CanvasState state_;
  Blink blink_;
  bool loaded_ = false;
  bool drawing_ = false;
  bool seen_ = true;
  std::optional<DraftNote> draft_;  // as it was last seen
  // What comes under the pointer may do so before what it leaves: the last one counts.
  std::vector<QString> pointed_;
  Shown<CanvasBarView> bar_;
  Shown<LoupeView> loupe_;
  RowsModel<PaneView, &PaneView::key> panes_;
  RowsModel<PaneToggleView, &PaneToggleView::key> toggles_;
  StageModel stage_;
  Changes::Subscription onChange_;
  Changes::Subscription onFocus_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
