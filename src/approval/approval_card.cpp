#include "approval/approval_card.hpp"

#include "approval/approval_round.hpp"
#include "approval/approval_stage.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

PillView answerPill(const Answer* answer) {
  if (!answer) return {.text = "Waiting", .icon = "clock", .tone = "gray"};
  if (answer->kind == "approved") return {.text = "Approved", .icon = "checkmark", .tone = "green"};
  return {.text = "Changes", .icon = "arrow.uturn.backward", .tone = "red"};
}

std::vector<ApproverAnswerView> answersOf(const ApprovalFacts& facts) {
  std::vector<ApproverAnswerView> rows;
  const Approval* approval = approvalIn(facts.detail);
  if (!approval) return rows;
  for (const std::string& email : askedApprovers(facts.file, facts.detail)) {
    ApproverAnswerView row{.email = email,
                           .name = displayName(facts.store, email),
                           .pill = answerPill(answerOf(*approval, email)),
                           .spoken = {}};
    row.spoken = row.name + ", " + row.pill.text;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<ChangesAskedView> changesOf(const ApprovalFacts& facts) {
  std::vector<ChangesAskedView> rows;
  const Approval* approval = approvalIn(facts.detail);
  if (!approval || !approvalStage(facts.file).tellsChanges) return rows;
  for (const std::string& email : askedApprovers(facts.file, facts.detail)) {
    const Answer* answer = answerOf(*approval, email);
    if (!answer || answer->kind != "changes") continue;
    rows.push_back(
        {.email = email,
         .line = displayName(facts.store, email) + " asked for changes · " + facts.ago(answer->at),
         .note = wordsOf(answer->note)});
  }
  return rows;
}

}  // namespace

ApprovalCardView approvalCard(const Store& store, const FileItem& file, const FileDetail* detail,
                              Moment now, const Calendar& calendar) {
  const ApprovalFacts facts{store, file, detail, now, calendar};
  const ApprovalStage& stage = approvalStage(file);
  return {.here = true,
          .icon = std::string{stage.icon},
          .tone = std::string{stage.tone},
          .checking = isBeingChecked(detail),
          .title = stage.title(facts),
          .line = stage.line(facts),
          .approvers = answersOf(facts),
          .changes = changesOf(facts),
          .buttons = approvalButtons(store, file, detail)};
}

}  // namespace vellix
