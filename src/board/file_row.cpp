#include "board/file_row.hpp"

#include <algorithm>
#include <string_view>

#include "approval/approval_pill.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

std::string sublineOf(const FileItem& file) {
  std::string line;
  line.reserve(48);
  const auto add = [&](std::string_view part) {
    if (part.empty()) return;
    if (!line.empty()) line += " · ";
    line += part;
  };
  add(wordsOf(file.po));
  add(wordsOf(file.supplier));
  if (file.page_count) add(std::to_string(*file.page_count) + " p");
  return line;
}

std::string spokenOf(const FileRowView& row) {
  std::string spoken;
  spoken.reserve(row.subline.size() + 64);
  const auto add = [&](const std::string& part) {
    if (part.empty()) return;
    if (!spoken.empty()) spoken += ", ";
    spoken += part;
  };
  add(row.subline);
  if (row.due) add(row.due->text);
  if (row.approval) add(row.approval->text);
  add(row.count.help);
  if (row.assignee) add(row.assignee->help);
  return spoken;
}

// A round of approval takes the due date's place, until it comes back with changes.
bool showsDue(const FileItem& file) {
  return !hasWords(file.approval) || file.approval == "changes";
}

}  // namespace

FileCountView fileCount(const FileItem& file) {
  const Tally tally = file.tally.value_or(Tally{});
  const Int issues = tally.issues.value_or(0);
  const Int open = tally.open.value_or(0);
  if (file.status == "reviewed") return {.icon = "checkmark.circle.fill", .tone = "green"};
  if (issues >= 1) {
    const std::string text = std::to_string(issues);
    return {.text = text, .tone = "red", .help = text + " real issue" + (issues == 1 ? "" : "s")};
  }
  if (open >= 1) {
    const std::string text = std::to_string(open);
    return {.text = text, .tone = "accent", .help = text + " to look at"};
  }
  const bool compared = file.refs && std::ranges::any_of(*file.refs, [](const Ref& ref) {
                          return ref.matched.value_or(0) > 0;
                        });
  // A count below zero is no count: like none, it falls to the last two.
  if (open == 0 && compared)
    return {.icon = "equal.circle", .tone = "muted", .help = "No differences"};
  return {.icon = "questionmark.circle",
          .tone = "muted",
          .help = "Nothing of ours was found to compare it with"};
}

FileRowView fileRow(const FileItem& file, const Store& store, Moment now,
                    const Calendar& calendar) {
  FileRowView row;
  row.id = file.id;
  row.heading = file.heading();
  row.subline = sublineOf(file);
  row.thumb = file.thumb.value_or("");
  if (showsDue(file)) row.due = dueChip(file, now, calendar);
  row.approval = approvalPill(file, true);
  row.count = fileCount(file);
  if (hasWords(file.assignee)) row.assignee = avatarOf(file.assignee, store);
  row.selected = store.selection().contains(file.id);
  row.spoken = spokenOf(row);
  return row;
}

}  // namespace vellix
