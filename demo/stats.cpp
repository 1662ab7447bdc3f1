// Everyone's figures, worked out from the tickets.
#include <algorithm>
#include <set>

#include "clock.hpp"
#include "past.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr int kWeeks = 8;

// The start of the week, a Monday at midnight local time, that is `weeks` before this one.
double weekStart(double now, int weeks) {
  // 1 January 1970 was a Thursday.
  const int sinceMonday = static_cast<int>((localDay(now) + 3) % 7);
  return atLocal(now, -sinceMonday - 7 * weeks, 0, 0);
}

// One ticket that a person reviewed.
struct Reviewed {
  double received = 0;
  double at = 0;
  double due = 0;
};

void count(PersonStats& own, const std::vector<Reviewed>& all, double now) {
  for (int week = kWeeks - 1; week >= 0; --week) own.weekly.push_back({weekStart(now, week), 0});
  double hours = 0;
  std::set<long> days;
  for (const Reviewed& review : all) {
    ++own.reviewed;
    if (review.at >= own.weekly.back().start) ++own.reviewed_week;
    for (auto week = own.weekly.rbegin(); week != own.weekly.rend(); ++week) {
      if (review.at < week->start) continue;
      ++week->count;
      break;
    }
    if (review.at <= review.due) ++own.on_time;
    hours += (review.at - review.received) / kHour;
    days.insert(localDay(review.at));
  }
  if (own.reviewed > 0) {
    own.on_time_rate = (own.on_time * 100 + own.reviewed / 2) / own.reviewed;
    own.avg_hours = hours / static_cast<double>(own.reviewed);
  }
  // Days in a row that end today, or yesterday while today is still young.
  const long today = localDay(now);
  long day = days.contains(today) ? today : today - 1;
  while (days.contains(day--)) ++own.streak;
}

}  // namespace

Stats State::stats() const {
  Stats stats;
  stats.at = now_;
  for (const Person& user : users_) {
    if (uncounted_.contains(user.email)) continue;
    const Past past = pastOf(user.email, opened_);
    PersonStats& own = stats.users[user.email];
    own.fine = past.fine;
    own.notes = past.notes;
    own.by_kind = past.issues;
    std::vector<Reviewed> reviews;
    for (const PastReview& review : past.reviews) {
      reviews.push_back({review.received, review.at, review.due});
    }
    for (const Ticket& ticket : tickets_) {
      if (ticket.waiting) continue;
      const FileItem& item = ticket.item;
      if (item.status == "reviewed" && item.status_by == user.email && item.status_at) {
        const double at = *item.status_at;
        reviews.push_back({item.received.value_or(at), at, item.due.value_or(at)});
      }
      if (item.status != "reviewed" && item.assignee == user.email) {
        ++own.open;
        if (item.due && *item.due < now_) ++own.overdue;
        ++(item.track == "reprint" ? own.reprints : own.new_titles);
      }
      for (const TicketVersion& version : ticket.versions) {
        for (const Finding& finding : version.findings) {
          if (finding.state_by != user.email) continue;
          if (finding.state == "issue") ++own.by_kind[finding.kind];
          if (finding.state == "fine") ++own.fine;
        }
      }
      for (const auto& [note, version] : ticket.notes) {
        if (note.by == user.email) ++own.notes;
        const auto tags = note.tags.value_or(std::vector<std::string>{});
        if (std::ranges::find(tags, user.email) != tags.end()) {
          own.mentions.push_back({item.id, note.page, note.text, note.by, note.at});
        }
      }
    }
    for (const auto& [kind, issues] : own.by_kind) own.issues += issues;
    count(own, reviews, now_);
    std::ranges::sort(own.mentions, std::ranges::greater{}, &Mention::at);
  }
  return stats;
}

}  // namespace vellix::demo
