// What stands around the canvas: the ticket's header, its pages beside it, or the names of several
// tickets. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/RowsModel.hpp"
#include "ticket/file_header.hpp"
#include "ticket/multi_view.hpp"
#include "ticket/page_strip.hpp"
#include "ticket/review_button.hpp"

namespace vellix {

class FileModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QVariantMap header READ header NOTIFY headerChanged)
  Q_PROPERTY(QVariantMap review READ review NOTIFY reviewChanged)
  Q_PROPERTY(QVariantMap multi READ multi NOTIFY multiChanged)
  Q_PROPERTY(bool showsStrip READ showsStrip NOTIFY showsStripChanged)
  Q_PROPERTY(int openPage READ openPage NOTIFY openPageChanged)  // the row of `pages` on show
  Q_PROPERTY(QAbstractItemModel* pages READ pages CONSTANT)  // of the strip on show, or of the last

 public:
  // What is passed must outlive the model.
  FileModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  QVariantMap header() const { return header_; }
  QVariantMap review() const { return review_; }
  QVariantMap multi() const { return multi_; }
  bool showsStrip() const { return showsStrip_; }
  int openPage() const { return openPage_; }
  QAbstractItemModel* pages() { return &pages_; }

  // Tells how wide the view is, in logical pixels: where it is narrow there is no strip.
  Q_INVOKABLE void layStrip(double width);
  Q_INVOKABLE void selectPage(int row);
  Q_INVOKABLE void pressReview();

 signals:
  void headerChanged();
  void reviewChanged();
  void multiChanged();
  void showsStripChanged();
  void openPageChanged();

 private:
  void updateHeader();
  void updateReview();
  void updateStrip();
  bool wantsStrip() const;
  void turnStrip();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  double width_ = 0;
  bool showsStrip_ = false;
  int openPage_ = 0;
  QVariantMap header_ = toQml(FileHeaderView{}).toMap();
  QVariantMap review_ = toQml(ReviewButtonView{}).toMap();
  QVariantMap multi_ = toQml(MultiFilesView{}).toMap();
  RowsModel<PageCellView, &PageCellView::key> pages_;
  Changes::Subscription onTicket_;
  Changes::Subscription onReview_;
  Changes::Subscription onPages_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
