// The ground of the card's tests: a third version with an answer and two that are waited for.
#pragma once

#include "approval/approval_card.hpp"
#include "approval/approval_test.hpp"

namespace vellix {

class ApprovalCards : public ApprovalTest {
 protected:
  ApprovalCards() {
    board.approvers->back().name = "Teva Oram";
    file().version = 3;
    file().supplier = "Halden Press";
    file().assignee = kJorvas;
    file().approvers = {kMara, kOlo};
    file().approval_by = kOlo;
    file().approval_at = minutesAgo(10);
    detail.version = 3;
    detail.versions = std::vector<Version>{versionOf(1), versionOf(2), versionOf(3)};
    detail.versions->back().summary = "Two pages moved.";
    detail.versions->back().note = "Fixed p25";
    detail.approval = Approval{.asked = {kMara, kOlo, kTeva},
                               .requested_by = kRenny,
                               .requested_at = minutesAgo(5),
                               .note = "Look at the cover"};
    detail.approval->answers[kOlo] = {
        .kind = "changes", .note = "The red is off", .at = minutesAgo(2)};
  }
  ApprovalCardView cardWith(const FileDetail* known) {
    publish();
    detail.file = file();
    return approvalCard(store(), file(), known, desk.time.now(), desk.calendar);
  }
  ApprovalCardView card() { return cardWith(&detail); }
  ApprovalCardView cardWithoutDetail() { return cardWith(nullptr); }
  std::vector<std::string> labels(const ApprovalCardView& view) {
    std::vector<std::string> all;
    for (const auto& button : view.buttons) all.push_back(button.label);
    return all;
  }

  FileDetail detail;
};

}  // namespace vellix
