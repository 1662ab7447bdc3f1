// One ticket of the list, as it is shown.
#pragma once

#include <optional>
#include <string>

#include "board/due_dates.hpp"
#include "pieces/avatar.hpp"
#include "pieces/vocabulary.hpp"
#include "records/records.hpp"
#include "store/store.hpp"

namespace vellix {

// The small mark at the end of a row: how much waits to be looked at.
struct FileCountView {
  std::string text;  // in a capsule; empty when the icon stands alone
  std::string icon;
  std::string tone;  // "green", "red", "accent" or "muted"
  std::string help;
  bool operator==(const FileCountView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileCountView, (), (text, icon, tone, help))

struct FileRowView {
  std::string id;
  std::string heading;
  std::string subline;
  std::string thumb;  // blob key; empty when there is none
  std::optional<DueChipView> due;
  std::optional<PillView> approval;
  FileCountView count;
  std::optional<AvatarView> assignee;
  std::string spoken;  // what a screen reader says behind the heading
  bool selected = false;
  bool operator==(const FileRowView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileRowView, (),
                      (id, heading, subline, thumb, due, approval, count, assignee, spoken,
                       selected))

FileCountView fileCount(const FileItem& file);
FileRowView fileRow(const FileItem& file, const Store& store, Moment now, const Calendar& calendar);

}  // namespace vellix
