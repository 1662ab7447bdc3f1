#include "profile/ProfileModel.hpp"

namespace vellix {

ProfileModel::ProfileModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(Store::kBoard | Store::kStats | Store::kPanels |
                                          Store::kBusy | Store::kSignedIn | Store::kPolled,
                                      [this] { update(); })) {
  update();
}

// Nobody pays for a page that is closed. The steady polling is its clock.
void ProfileModel::update() {
  if (!store_.profile() || !store_.signedIn()) return;
  const std::string email = *store_.profile();
  const Moment now = clock_.now();
  auto list = openList(store_, email, now, calendar_);
  open_.setRows(std::move(list.rows));
  ProfileWordsView words{.open = std::move(list.title), .noneOpen = std::move(list.none)};
  if (const PersonStats* stats = figuresOf(store_, email)) {
    auto caught = issueBars(stats->by_kind);
    issues_.setRows(std::move(caught.rows));
    words.noIssues = std::move(caught.none);
    auto targets = vellix::milestones(*stats);
    milestones_.setRows(std::move(targets.rows));
    words.milestones = std::move(targets.title);
    showFigures(*stats, now);
  }
  if (words_.show(std::move(words))) emit wordsChanged();
  // Last: what it lets be seen is there.
  if (head_.show(profileHead(store_, email, now))) emit headChanged();
}

void ProfileModel::showFigures(const PersonStats& stats, Moment now) {
  tiles_.setRows(personFigures(stats));
  weeks_.setRows(weeklyChart(stats.weekly, calendar_));
  if (ring_.show(onTimeRing(stats.on_time_rate))) emit ringChanged();
  mentions_.setRows(mentionList(store_, stats.mentions, now, calendar_));
}

void ProfileModel::back() { store_.openProfile(std::nullopt); }

void ProfileModel::openTicket(const QString& id) { selectFromProfile(store_, id.toStdString()); }

}  // namespace vellix
