#include "board/due_button.hpp"

#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

constexpr std::chrono::hours kReview{48};  // from coming in to the latest due date

Moment latestDue(const FileItem& file, Moment now) {
  return (file.received ? momentOf(*file.received) : now) + kReview;
}

std::string lateLine(Moment latest, Moment now, const Calendar& calendar) {
  constexpr std::string_view kOverdue = "Overdue ";
  return "Its 48 hours ran out " + dueText(latest, now, calendar).substr(kOverdue.size()) + " ago.";
}

std::string labelOf(const FileItem& file, const std::optional<DueChipView>& chip) {
  if (file.status == "reviewed") return "Reviewed";
  return chip ? chip->text : "Set due";
}

}  // namespace

DueButtonView dueButton(const Store& store, const FileItem& file, Moment now,
                        const Calendar& calendar) {
  // To the minute, so that what is shown stands still for as long.
  const Moment minute = minuteOf(now);
  const Moment latest = latestDue(file, minute);
  const auto chip = dueChip(file, now, calendar);
  DueButtonView view{.text = labelOf(file, chip),
                     .chip = chip,
                     .urgent = file.urgent.value_or(false),
                     .earliest = wireOf(minute),
                     .latest = wireOf(latest),
                     .late = latest < now ? lateLine(latest, now, calendar) : "",
                     .explanation = "Every review is due within 48 hours of the file coming in",
                     .busy = store.busy().contains("due")};
  if (file.deadline) view.explanation += ", or by the supplier's date when that's sooner";
  view.explanation += ". Latest: " + calendar.dateAndTime(latest);
  if (hasWords(file.due_by)) {
    view.setBy = "Set by " + displayName(store, file.due_by);
  }
  return view;
}

Moment firstPick(const FileItem& file, Moment now) { return file.due ? momentOf(*file.due) : now; }

Moment dueToSet(const FileItem& file, Moment pick, Moment now) {
  return heldTo({now, latestDue(file, now)}, pick);
}

}  // namespace vellix
