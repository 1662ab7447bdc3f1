// The column of tickets for its views. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>
#include <set>
#include <string>

#include "board/file_list.hpp"
#include "board/live_dot.hpp"
#include "board/people_bar.hpp"
#include "board/sync_card.hpp"
#include "bridge/LazyRowsModel.hpp"
#include "bridge/RowsModel.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class BoardModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<FileListHead> head READ head NOTIFY headChanged)
  Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
  Q_PROPERTY(Qml<LiveDotView> liveDot READ liveDot NOTIFY liveDotChanged)
  Q_PROPERTY(Qml<SyncCardView> syncCard READ syncCard NOTIFY syncCardChanged)
  Q_PROPERTY(QAbstractItemModel* people READ people CONSTANT)
  // A photo is on its way: another one is not taken.
  Q_PROPERTY(bool changingPhoto READ changingPhoto NOTIFY changingPhotoChanged)

 public:
  // What is passed must outlive the model.
  BoardModel(Store& store, Defaults& defaults, const MainLoop& clock, const Calendar& calendar);

  Qml<FileListHead> head() const { return head_.qml(); }
  QAbstractItemModel* rows() { return &rows_; }
  Qml<LiveDotView> liveDot() const { return liveDot_.qml(); }
  Qml<SyncCardView> syncCard() const { return syncCard_.qml(); }
  QAbstractItemModel* people() { return &people_; }
  bool changingPhoto() const { return changingPhoto_; }

  // `command` tells whether the Command key was held.
  Q_INVOKABLE void select(const QString& id, bool command);
  // By the keys of a Command-click. False for any others, which nothing is done for.
  Q_INVOKABLE bool selectByKey(const QString& id, int key, int modifiers, bool repeats);
  // See `rowFrom` and `chosenRow`.
  Q_INVOKABLE int rowFrom(int row, int by) const { return vellix::rowFrom(rows_.lines(), row, by); }
  Q_INVOKABLE int chosenRow() const { return vellix::chosenRow(rows_.lines()); }
  Q_INVOKABLE void setMineOnly(bool on);
  Q_INVOKABLE void setQueue(const QString& value);
  Q_INVOKABLE void toggleReviewed();
  Q_INVOKABLE void refresh();
  Q_INVOKABLE void requestSync();
  Q_INVOKABLE void stopSync();
  // Opens that person's page, or closes it where it is open.
  Q_INVOKABLE void togglePage(const QString& email);

 signals:
  // The ticket of that row was selected, and by nobody who has pressed it here; or what the person
  // did has moved it there.
  void followed(int row);
  void headChanged();
  void liveDotChanged();
  void syncCardChanged();
  void changingPhotoChanged();

 private:
  // What is selected, and where it stands in the list.
  struct Chosen {
    std::set<std::string> tickets;
    std::string queue;
    std::string status;
    std::optional<double> due;
    bool operator==(const Chosen&) const = default;
  };

  void update();
  void passTime();
  Chosen chosen() const;
  void follow();
  void updateColumn();

  Store& store_;
  Defaults& defaults_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  bool showReviewed_;
  Chosen seen_;          // what the list has followed
  bool wanted_ = false;  // it has still to come into sight
  bool moves_ = false;   // as of the last change, see `movesTickets`
  Shown<FileListHead> head_;
  FileLines list_;   // what the rows are made of
  Moment listed_{};  // as of when
  LazyRowsModel<FileListRow, FileLine, &FileLine::key> rows_;
  Shown<LiveDotView> liveDot_;
  Shown<SyncCardView> syncCard_;
  RowsModel<PersonView, &PersonView::email> people_;
  bool changingPhoto_ = false;
  Changes::Subscription onChange_;
  Changes::Subscription onPolled_;
  Changes::Subscription onPrefs_;
  Changes::Subscription onAny_;
};

}  // namespace vellix
