// The ticket on show, its page and the canvas, for their views. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QSizeF>

#include "bridge/RowsModel.hpp"
#include "compare/canvas_view.hpp"
#include "compare/file_header.hpp"

namespace vellix {

class CompareModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantMap header READ header NOTIFY headerChanged)
  Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged)  // its detail is here
  Q_PROPERTY(QVariantMap bar READ bar NOTIFY barChanged)
  Q_PROPERTY(QVariantMap notes READ notes NOTIFY notesChanged)
  Q_PROPERTY(QAbstractItemModel* panes READ panes CONSTANT)
  Q_PROPERTY(QAbstractItemModel* toggles READ toggles CONSTANT)

 public:
  // The Store must outlive the model.
  explicit CompareModel(Store& store);

  QVariantMap header() const { return header_; }
  bool loaded() const { return loaded_; }
  QVariantMap bar() const { return bar_; }
  QVariantMap notes() const { return notes_; }
  QAbstractItemModel* panes() { return &panes_; }
  QAbstractItemModel* toggles() { return &toggles_; }

  Q_INVOKABLE void stepPage(int delta);
  Q_INVOKABLE void togglePane(const QString& key);
  Q_INVOKABLE void zoomIn();
  Q_INVOKABLE void zoomOut();
  Q_INVOKABLE void zoomTo(double zoom);
  Q_INVOKABLE void fit();
  Q_INVOKABLE void toggleNotes();
  // Tells how wide the view is, in logical pixels: where it is narrow the panel floats.
  Q_INVOKABLE void layNotes(double width);

  // Logical pixels.
  Q_INVOKABLE static QSizeF paneRoom(QSizeF stage, int panes);
  Q_INVOKABLE static QSizeF fittedImage(QSizeF room, double aspect, double zoom);

 signals:
  void headerChanged();
  void loadedChanged();
  void barChanged();
  void notesChanged();

 private:
  void update();
  void updateNotes();

  Store& store_;
  std::string asked_;  // the ticket whose detail was asked for
  double width_ = 0;
  bool loaded_ = false;
  QVariantMap header_ = toQml(FileHeaderView{}).toMap();
  QVariantMap bar_ = toQml(CanvasBarView{}).toMap();
  QVariantMap notes_ = toQml(NotesPanelView{}).toMap();
  RowsModel<PaneView, &PaneView::key> panes_;
  RowsModel<PaneToggleView, &PaneToggleView::key> toggles_;
  Changes::Subscription onChange_;
  Changes::Subscription onPanels_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
