#include "approval/approval_stage.hpp"

#include <algorithm>
#include <array>

#include "approval/approval_round.hpp"
#include "records/friendly_time.hpp"
#include "records/held_sum.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

using enum ApprovalControl;
using Facts = ApprovalFacts;

constexpr std::array kPending{copyForNotion, emailAgain, takeBack};
constexpr std::array kChanges{uploadRevision};
constexpr std::array kRevised{uploadAgain, send};
constexpr std::array kApproved{supplierEmail, markSent};
constexpr std::array kNone{uploadRevision, send};

std::string versionOf(const FileItem& file) { return versionName(file.versionNumber()); }
std::string theSupplier(const FileItem& file) { return wordsOr(file.supplier, "the supplier"); }
std::string quoted(const std::optional<std::string>& note) {
  return hasWords(note) ? "“" + *note + "”" : std::string{};
}

std::string pendingTitle(const Facts& facts) {
  const auto waiting = waitingApprovers(facts.file, facts.detail);
  return waiting.empty() ? "Waiting for approval" : "Waiting on " + joinNames(facts.store, waiting);
}

std::string pendingLine(const Facts& facts) {
  static const Approval kUntold;
  const Approval* told = approvalIn(facts.detail);
  const Approval& approval = told ? *told : kUntold;
  std::string line = "Asked by " + displayName(facts.store, approval.requested_by) + " · " +
                     facts.ago(approval.requested_at);
  if (hasWords(approval.note)) line += ". " + quoted(approval.note);
  return line;
}

std::string changesTitle(const Facts& facts) {
  const auto by = changesAskedBy(facts.detail);
  const std::string names =
      by.empty() ? displayName(facts.store, facts.file.approval_by) : joinNames(facts.store, by);
  return names + " asked for changes on " + versionOf(facts.file);
}

std::string changesLine(const Facts& facts) {
  return "Back with " + displayName(facts.store, facts.file.assignee) +
         ". Make the fix, then upload the revision.";
}

std::string revisedTitle(const Facts& facts) {
  return versionOf(facts.file) + " is up. Send it back for approval.";
}

std::string revisedLine(const Facts& facts) {
  if (isBeingChecked(facts.detail)) {
    return "Checking " + versionOf(facts.file) + " against " +
           versionName(heldSum(facts.file.versionNumber(), -1)) + "…";
  }
  const Version* latest = latestVersion(facts.detail);
  if (!latest) return {};
  std::string line = wordsOf(latest->summary);
  if (!line.empty() && hasWords(latest->note)) line += ' ';
  return line + quoted(latest->note);
}

std::string approvedTitle(const Facts& facts) {
  const auto asked = askedApprovers(facts.file, facts.detail);
  return asked.empty() ? "Approved" : "Approved by " + joinNames(facts.store, asked);
}

std::string approvedLine(const Facts& facts) {
  return "Ready to send to " + theSupplier(facts.file) + ". Every approver said yes.";
}

std::string sentTitle(const Facts& facts) {
  return "Approved and sent to " + theSupplier(facts.file);
}

std::string sentLine(const Facts& facts) {
  return "By " + displayName(facts.store, facts.file.approval_by) + " · " +
         facts.ago(facts.file.approval_at);
}

std::string plainTitle(const Facts&) { return "Approval"; }

std::string plainLine(const Facts&) {
  return "When it looks right, send it to the creative team. They approve it or ask for changes in "
         "their browser.";
}

constexpr ApprovalStage kStages[] = {
    {.state = "pending",
     .icon = "clock",
     .tone = "amber",
     .pill = [](const FileItem&) -> std::string { return "Out for approval"; },
     .smallPill = {},
     .title = pendingTitle,
     .line = pendingLine,
     .tellsChanges = false,
     .controls = kPending},
    {.state = "changes",
     .icon = "arrow.uturn.backward",
     .tone = "red",
     .pill = [](const FileItem&) -> std::string { return "Changes asked"; },
     .smallPill = "Changes",
     .title = changesTitle,
     .line = changesLine,
     .tellsChanges = true,
     .controls = kChanges},
    {.state = "revised",
     .icon = "arrow.triangle.2.circlepath",
     .tone = "blue",
     .pill = [](const FileItem& file) { return versionOf(file) + " to send"; },
     .smallPill = {},
     .title = revisedTitle,
     .line = revisedLine,
     .tellsChanges = true,
     .controls = kRevised},
    {.state = "approved",
     .icon = "checkmark.seal",
     .tone = "green",
     .pill = [](const FileItem&) -> std::string { return "Approved"; },
     .smallPill = {},
     .title = approvedTitle,
     .line = approvedLine,
     .tellsChanges = false,
     .controls = kApproved},
    {.state = "sent",
     .icon = "paperplane",
     .tone = "green",
     .pill = [](const FileItem&) -> std::string { return "Sent"; },
     .smallPill = {},
     .title = sentTitle,
     .line = sentLine,
     .tellsChanges = false,
     .controls = {}},
};
constexpr ApprovalStage kNoStage{.state = {},
                                 .icon = "person.badge.shield.checkmark",
                                 .tone = "gray",
                                 .pill = nullptr,
                                 .smallPill = {},
                                 .title = plainTitle,
                                 .line = plainLine,
                                 .tellsChanges = false,
                                 .controls = kNone};

}  // namespace

std::string ApprovalFacts::ago(const std::optional<double>& at) const {
  return at ? friendlyTime(momentOf(*at), now, calendar) : std::string{};
}

const ApprovalStage& approvalStage(const FileItem& file) {
  if (!file.approval) return kNoStage;
  const auto* found =
      std::ranges::find(kStages, std::string_view{*file.approval}, &ApprovalStage::state);
  return found == std::end(kStages) ? kNoStage : *found;
}

bool offers(const FileItem& file, ApprovalControl control) {
  const auto controls = approvalStage(file).controls;
  return std::ranges::find(controls, control) != controls.end();
}

bool canBeSent(const FileItem& file) { return offers(file, send); }
bool canBeRevised(const FileItem& file) {
  return offers(file, uploadRevision) || offers(file, uploadAgain);
}

}  // namespace vellix
