// The card that tells where a ticket's round of approval stands, and what can be done about it.
#pragma once

#include <string>
#include <vector>

#include "approval/approval_buttons.hpp"
#include "pieces/vocabulary.hpp"
#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct ApproverAnswerView {
  std::string email;
  std::string name;
  PillView pill;
  std::string spoken;  // what a screen reader calls it
  bool operator==(const ApproverAnswerView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ApproverAnswerView, (), (email, name, pill, spoken))

struct ChangesAskedView {
  std::string email;
  std::string line;
  std::string note;  // empty for none
  bool operator==(const ChangesAskedView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ChangesAskedView, (), (email, line, note))

struct ApprovalCardView {
  bool here = false;  // one ticket is on show
  std::string icon;
  std::string tone;
  bool checking = false;  // a spinner stands in the icon's place
  std::string title;
  std::string line;
  std::vector<ApproverAnswerView> approvers;
  std::vector<ChangesAskedView> changes;
  std::vector<ApprovalButtonView> buttons;
  bool operator==(const ApprovalCardView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ApprovalCardView, (),
                      (here, icon, tone, checking, title, line, approvers, changes, buttons))

// `detail` is null until it is here; the ticket alone does until then.
ApprovalCardView approvalCard(const Store& store, const FileItem& file, const FileDetail* detail,
                              Moment now, const Calendar& calendar);

}  // namespace vellix
