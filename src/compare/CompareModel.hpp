// The ticket on show, its page and the canvas, for their views.
#pragma once

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

#include "bridge/RowsModel.hpp"
#include "compare/canvas_view.hpp"
#include "compare/file_header.hpp"

namespace vellix {

class CompareModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // Of the ticket that is on show, or was last.
  Q_PROPERTY(QVariantMap header READ header NOTIFY headerChanged)
  Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged)  // its detail is here
  Q_PROPERTY(QVariantMap bar READ bar NOTIFY barChanged)
  Q_PROPERTY(QAbstractItemModel* panes READ panes CONSTANT)

 public:
  // The Store must outlive the model.
  explicit CompareModel(Store& store);

  QVariantMap header() const { return header_; }
  bool loaded() const { return loaded_; }
  QVariantMap bar() const { return bar_; }
  QAbstractItemModel* panes() { return &panes_; }

  Q_INVOKABLE void stepPage(int delta);
  Q_INVOKABLE void togglePane(const QString& key);
  Q_INVOKABLE void zoomIn();
  Q_INVOKABLE void zoomOut();
  Q_INVOKABLE void zoomTo(double zoom);
  Q_INVOKABLE void fit();
  Q_INVOKABLE void toggleNotes();
  // The panel floats when the view is too narrow to dock it.
  Q_INVOKABLE void layNotes(double width);

  // Logical pixels.
  Q_INVOKABLE static QSizeF paneRoom(QSizeF stage, int panes);
  Q_INVOKABLE static QSizeF fittedImage(QSizeF room, double aspect, double zoom);

 signals:
  void headerChanged();
  void loadedChanged();
  void barChanged();

 private:
  void update();

  Store& store_;
  std::string asked_;  // the ticket whose detail was asked for
  QVariantMap header_ = toQml(FileHeaderView{}).toMap();
  bool loaded_ = false;
  QVariantMap bar_ = toQml(CanvasBarView{}).toMap();
  RowsModel<PaneView, &PaneView::key> panes_;
  Changes::Subscription onChange_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
