// The activity feed for its view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "board/activity.hpp"
#include "bridge/RowsModel.hpp"

namespace vellix {

class ActivityModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(bool open READ open WRITE setOpen NOTIFY openChanged)
  // Of the board while the feed is open; of when it was last open while it is closed.
  Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)

 public:
  // What is passed must outlive the model.
  ActivityModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  bool open() const { return open_; }
  void setOpen(bool open);
  QAbstractItemModel* rows() { return &rows_; }

  // Goes to the event's ticket and closes the feed; nothing for an event of no ticket here.
  Q_INVOKABLE void choose(const QString& key);

 signals:
  void openChanged();

 private:
  void update();
  void followStore();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  bool open_ = false;
  RowsModel<ActivityRow, &ActivityRow::key> rows_;
  Changes::Subscription onBoard_;
  Changes::Subscription onPanels_;
};

}  // namespace vellix
