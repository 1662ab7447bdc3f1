// Everyone's figures, worked out from the tickets.
#include <algorithm>
#include <cmath>
#include <set>

#include "clock.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr int kWeeks = 8;

// The start of the week, a Monday at midnight local time, that is `weeks` before this one.
double weekStart(double now, int weeks) {
  const double today = atLocal(now, 0, 0, 0);
  // 1 January 1970 was a Thursday; half a day keeps clear of the hour that clocks move by.
  const auto days = static_cast<long>(std::floor((today + kDay / 2) / kDay));
  const int sinceMonday = static_cast<int>((days + 3) % 7);
  return atLocal(now, -sinceMonday - 7 * weeks, 0, 0);
}

}  // namespace

Stats State::stats() const {
  Stats stats;
  stats.at = now_;
  for (const Person& user : users_) {
    PersonStats& own = stats.users[user.email];
    for (int week = kWeeks - 1; week >= 0; --week) own.weekly.push_back({weekStart(now_, week), 0});
    double hours = 0;
    std::set<long> days;
    for (const Ticket& ticket : tickets_) {
      if (ticket.waiting) continue;
      const FileItem& item = ticket.item;
      if (item.status == "reviewed" && item.status_by == user.email && item.status_at) {
        ++own.reviewed;
        const double at = *item.status_at;
        if (at >= own.weekly.back().start) ++own.reviewed_week;
        for (auto week = own.weekly.rbegin(); week != own.weekly.rend(); ++week) {
          if (at < week->start) continue;
          ++week->count;
          break;
        }
        if (at <= item.due.value_or(at)) ++own.on_time;
        hours += (at - item.received.value_or(at)) / kHour;
        days.insert(static_cast<long>(std::floor((atLocal(at, 0, 0, 0) + kDay / 2) / kDay)));
      }
      if (item.status != "reviewed" && item.assignee == user.email) {
        ++own.open;
        if (item.due && *item.due < now_) ++own.overdue;
        ++(item.track == "reprint" ? own.reprints : own.new_titles);
      }
      for (const TicketVersion& version : ticket.versions) {
        for (const Finding& finding : version.findings) {
          if (finding.state_by != user.email) continue;
          if (finding.state == "issue") {
            ++own.issues;
            ++own.by_kind[finding.kind];
          }
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
    if (own.reviewed > 0) {
      own.on_time_rate = (own.on_time * 100 + own.reviewed / 2) / own.reviewed;
      own.avg_hours = hours / static_cast<double>(own.reviewed);
    }
    // Days in a row that end today, or yesterday while today is still young.
    const auto today = static_cast<long>(std::floor((atLocal(now_, 0, 0, 0) + kDay / 2) / kDay));
    long day = days.contains(today) ? today : today - 1;
    while (days.contains(day--)) ++own.streak;
    std::ranges::sort(own.mentions, std::ranges::greater{}, &Mention::at);
  }
  return stats;
}

}  // namespace vellix::demo
