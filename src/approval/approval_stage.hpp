// The table of what a ticket's state of approval looks like, reads and lets people do. Pill, card,
// buttons and sheets all read it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

enum class ApprovalControl {
  copyForNotion,
  emailAgain,
  takeBack,
  uploadRevision,
  uploadAgain,
  send,
  supplierEmail,
  markSent,
};

// What the words are made from. `detail` is null until it is here. Lives no longer than a call.
struct ApprovalFacts {
  const Store& store;
  const FileItem& file;
  const FileDetail* detail;
  Moment now;
  const Calendar& calendar;
  // How long ago; empty where it is not told.
  std::string ago(const std::optional<double>& at) const;
};

struct ApprovalStage {
  using Words = std::string (*)(const ApprovalFacts&);

  std::string_view state;  // as the service calls it; empty for no round, or one of another name
  std::string_view icon;
  std::string_view tone;
  std::string (*pill)(const FileItem&);  // null: there is none
  std::string_view smallPill;            // what it says where there is little room; empty: the same
  Words title;
  Words line;
  bool tellsChanges;  // who asked for changes is told in full
  std::span<const ApprovalControl> controls;
};

const ApprovalStage& approvalStage(const FileItem& file);

bool offers(const FileItem& file, ApprovalControl control);
bool canBeSent(const FileItem& file);
bool canBeRevised(const FileItem& file);

}  // namespace vellix
