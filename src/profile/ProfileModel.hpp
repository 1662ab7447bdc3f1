// The open page of a person for its views. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/RowsModel.hpp"
#include "bridge/Shown.hpp"
#include "profile/issue_bars.hpp"
#include "profile/mention_list.hpp"
#include "profile/milestones.hpp"
#include "profile/on_time_ring.hpp"
#include "profile/open_list.hpp"
#include "profile/person_figures.hpp"
#include "profile/profile_page.hpp"
#include "profile/weekly_chart.hpp"

namespace vellix {

// All of it tells of the page that is open; once it is closed, of that as it was last.
class ProfileModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ProfileHeadView> head READ head NOTIFY headChanged)
  Q_PROPERTY(Qml<ProfileWordsView> words READ words NOTIFY wordsChanged)
  Q_PROPERTY(Qml<OnTimeRingView> ring READ ring NOTIFY ringChanged)
  Q_PROPERTY(QAbstractItemModel* tiles READ tiles CONSTANT)
  Q_PROPERTY(QAbstractItemModel* weeks READ weeks CONSTANT)
  Q_PROPERTY(QAbstractItemModel* issues READ issues CONSTANT)
  Q_PROPERTY(QAbstractItemModel* open READ open CONSTANT)
  Q_PROPERTY(QAbstractItemModel* mentions READ mentions CONSTANT)
  Q_PROPERTY(QAbstractItemModel* milestones READ milestones CONSTANT)

 public:
  // What is passed must outlive the model.
  ProfileModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  Qml<ProfileHeadView> head() const { return head_.qml(); }
  Qml<ProfileWordsView> words() const { return words_.qml(); }
  Qml<OnTimeRingView> ring() const { return ring_.qml(); }
  QAbstractItemModel* tiles() { return &tiles_; }
  QAbstractItemModel* weeks() { return &weeks_; }
  QAbstractItemModel* issues() { return &issues_; }
  QAbstractItemModel* open() { return &open_; }
  QAbstractItemModel* mentions() { return &mentions_; }
  QAbstractItemModel* milestones() { return &milestones_; }

  Q_INVOKABLE void back();
  // Goes to the ticket, which closes the page. Nothing for one that is not on the board.
  Q_INVOKABLE void openTicket(const QString& id);

 signals:
  void headChanged();
  void wordsChanged();
  void ringChanged();

 private:
  void update();
  void showFigures(const PersonStats& stats, Moment now);

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  Shown<ProfileHeadView> head_;
  Shown<ProfileWordsView> words_;
  Shown<OnTimeRingView> ring_;
  RowsModel<FigureTileView, &FigureTileView::title> tiles_;
  RowsModel<WeekBarView, &WeekBarView::key> weeks_;
  RowsModel<IssueBarView, &IssueBarView::kind> issues_;
  RowsModel<OpenTicketView, &OpenTicketView::id> open_;
  RowsModel<MentionView, &MentionView::key> mentions_;
  RowsModel<MilestoneView, &MilestoneView::id> milestones_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
