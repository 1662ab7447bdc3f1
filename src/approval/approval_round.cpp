#include "approval/approval_round.hpp"

#include <algorithm>

#include "records/words.hpp"

namespace vellix {
namespace {

void addOnce(std::vector<std::string>& emails, const std::string& email) {
  if (hasWords(email) && std::ranges::find(emails, email) == emails.end()) emails.push_back(email);
}

bool asksForChanges(const Answer* answer) { return answer && answer->kind == "changes"; }

}  // namespace

const Approval* approvalIn(const FileDetail* detail) {
  return detail && detail->approval ? &*detail->approval : nullptr;
}

const Version* latestVersion(const FileDetail* detail) {
  const bool any = detail && detail->versions && !detail->versions->empty();
  return any ? &detail->versions->back() : nullptr;
}

const Answer* answerOf(const Approval& approval, const std::string& email) {
  const auto found = approval.answers.find(email);
  const bool told = found != approval.answers.end() && hasWords(found->second.kind);
  return told ? &found->second : nullptr;
}

std::vector<std::string> askedApprovers(const FileItem& file, const FileDetail* detail) {
  std::vector<std::string> emails;
  const Approval* approval = approvalIn(detail);
  if (approval) {
    for (const std::string& email : approval->asked) addOnce(emails, email);
  } else if (file.approvers) {
    for (const std::string& email : *file.approvers) addOnce(emails, email);
  }
  return emails;
}

std::vector<std::string> waitingApprovers(const FileItem& file, const FileDetail* detail) {
  auto emails = askedApprovers(file, detail);
  if (const Approval* approval = approvalIn(detail)) {
    std::erase_if(emails, [&](const std::string& email) { return answerOf(*approval, email); });
  }
  return emails;
}

std::vector<std::string> changesAskedBy(const FileDetail* detail) {
  std::vector<std::string> emails;
  const Approval* approval = approvalIn(detail);
  if (!approval) return emails;
  for (const std::string& email : approval->asked) {
    if (asksForChanges(answerOf(*approval, email))) addOnce(emails, email);
  }
  for (const auto& [email, answer] : approval->answers) {
    if (asksForChanges(&answer)) addOnce(emails, email);
  }
  return emails;
}

bool isBeingChecked(const FileDetail* detail) {
  const Version* latest = latestVersion(detail);
  return latest && latest->status == "checking";
}

std::string versionName(Int n) { return "v" + std::to_string(n); }

}  // namespace vellix
