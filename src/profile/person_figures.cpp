#include "profile/person_figures.hpp"

#include <algorithm>
#include <cmath>

#include "profile/counts.hpp"

namespace vellix {
namespace {

// Beyond this no count of days makes sense, and none may overflow.
constexpr double kMostHours = 24e13;

std::string weekNote(const PersonStats& stats) {
  if (stats.reviewed_week < 1) return "None yet this week";
  return "+" + countText(stats.reviewed_week) + " this week";
}

std::string openNote(const PersonStats& stats) {
  std::string note = countText(stats.open) + " open now";
  if (stats.overdue >= 1) note += ", " + countText(stats.overdue) + " overdue";
  return note;
}

FigureTileView tile(std::string title, std::string value, std::string note) {
  FigureTileView view{
      .title = std::move(title), .value = std::move(value), .note = std::move(note), .spoken = {}};
  view.spoken = view.title + ": ";
  view.spoken += view.value == kNoFigure ? kNoFigureSpoken : view.value;
  view.spoken += ", " + view.note;
  return view;
}

}  // namespace

std::string daysText(const std::optional<double>& hours) {
  if (!hours || !std::isfinite(*hours)) return std::string{kNoFigure};
  // Counted in tenths: a decimal mark of the desktop's own must not come in.
  const Int tenths = std::llround(std::clamp(*hours, -kMostHours, kMostHours) / 24 * 10);
  if (tenths < 0) return std::string{kNoFigure};
  if (tenths == 0) return "< 0.1 days";
  if (tenths == 10) return "1 day";
  const std::string days = std::to_string(tenths / 10);
  if (tenths % 10 == 0) return days + " days";
  return days + "." + std::to_string(tenths % 10) + " days";
}

std::vector<FigureTileView> personFigures(const PersonStats& stats) {
  return {
      tile("Tickets reviewed", countText(stats.reviewed), weekNote(stats)),
      tile("On time",
           stats.on_time_rate ? std::to_string(*stats.on_time_rate) + "%" : std::string{kNoFigure},
           countText(stats.on_time) + " of " + countText(stats.reviewed) + " inside the window"),
      tile("Typical review", daysText(stats.avg_hours), "From the file coming in to reviewed"),
      tile("Issues caught", countText(stats.issues),
           countText(stats.fine) + " checked and cleared"),
      tile("Day streak", countText(stats.streak),
           stats.streak < 1 ? "Review today to start one" : "Reviewed every day in a row"),
      tile("Notes written", countText(stats.notes), openNote(stats)),
  };
}

}  // namespace vellix
