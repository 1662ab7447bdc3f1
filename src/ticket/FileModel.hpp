// What stands around the canvas: the ticket's header, its pages and the notes panel beside it, or
// the names of several tickets. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/RowsModel.hpp"
#include "bridge/Shown.hpp"
#include "ticket/file_header.hpp"
#include "ticket/multi_view.hpp"
#include "ticket/notes_panel.hpp"
#include "ticket/page_strip.hpp"
#include "ticket/review_button.hpp"

namespace vellix {

class FileModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // Id of the ticket that all of this is about, told before any of it; empty when there is none.
  Q_PROPERTY(QString ticket READ ticket NOTIFY ticketChanged)
  Q_PROPERTY(Qml<FileHeaderView> header READ header NOTIFY headerChanged)
  Q_PROPERTY(Qml<ReviewButtonView> review READ review NOTIFY reviewChanged)
  Q_PROPERTY(Qml<MultiFilesView> multi READ multi NOTIFY multiChanged)
  Q_PROPERTY(Qml<NotesPanelView> notesPanel READ notesPanel NOTIFY notesPanelChanged)
  Q_PROPERTY(bool showsStrip READ showsStrip NOTIFY showsStripChanged)
  // There is room for it, also while its pages are on their way; and somebody wants to see it.
  Q_PROPERTY(bool stripRoom READ stripRoom NOTIFY stripRoomChanged)
  Q_PROPERTY(bool stripWanted READ stripWanted NOTIFY stripWantedChanged)
  Q_PROPERTY(int openPage READ openPage NOTIFY openPageChanged)  // the row of `pages` on show
  Q_PROPERTY(QAbstractItemModel* pages READ pages CONSTANT)  // of the strip on show, or of the last

 public:
  // What is passed must outlive the model.
  FileModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  QString ticket() const { return ticket_; }
  Qml<FileHeaderView> header() const { return header_.qml(); }
  Qml<ReviewButtonView> review() const { return review_.qml(); }
  Qml<MultiFilesView> multi() const { return multi_.qml(); }
  Qml<NotesPanelView> notesPanel() const { return notesPanel_.qml(); }
  bool showsStrip() const { return showsStrip_; }
  bool stripRoom() const { return stripRoom_; }
  bool stripWanted() const { return stripWanted_; }
  int openPage() const { return openPage_; }
  QAbstractItemModel* pages() { return &pages_; }

  // Tells how wide the view is, in logical pixels: where it is narrow there is no strip, and the
  // notes panel floats.
  Q_INVOKABLE void lay(double width);
  Q_INVOKABLE void selectPage(int row);
  Q_INVOKABLE void pressReview();
  Q_INVOKABLE void toggleNotes();
  Q_INVOKABLE void openNotes();
  // As headerCut.
  Q_INVOKABLE static double headerCut(const QVariantList& ends, double air, double most);

 signals:
  void ticketChanged();
  void headerChanged();
  void reviewChanged();
  void multiChanged();
  void notesPanelChanged();
  void showsStripChanged();
  void stripRoomChanged();
  void stripWantedChanged();
  void openPageChanged();

 private:
  void updateHeader();
  void updateReview();
  void updateStrip();
  void updateNotesPanel();
  bool hasStrip() const;
  void holdStrip();
  void turnStrip();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  double width_ = 0;
  bool showsStrip_ = false;
  bool stripRoom_ = false;
  bool stripWanted_ = false;
  std::string stripOf_;  // the ticket, by its id
  int openPage_ = 0;
  QString ticket_;
  Shown<FileHeaderView> header_;
  Shown<ReviewButtonView> review_;
  Shown<MultiFilesView> multi_;
  Shown<NotesPanelView> notesPanel_;
  RowsModel<PageCellView, &PageCellView::key> pages_;
  Changes::Subscription onTicket_;
  Changes::Subscription onReview_;
  Changes::Subscription onPages_;
  Changes::Subscription onPanels_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
