// A ticket's round of approval, and who can be asked for it.
#include "records/words.hpp"
#include "store/people.hpp"
#include "store/share_links.hpp"
#include "store/store_tell.hpp"

namespace vellix {
namespace {

struct ApprovalBody {
  std::string action;
  std::optional<std::vector<std::string>> approvers;
  std::optional<std::string> note;
};
BOOST_DESCRIBE_STRUCT(ApprovalBody, (), (action, approvers, note))

// A name is always told, if only as none.
struct ApproverBody {
  std::string email;
  std::string name;
};
BOOST_DESCRIBE_STRUCT(ApproverBody, (), (email, name))

struct ApproversBody {
  std::vector<ApproverBody> approvers;
};
BOOST_DESCRIBE_STRUCT(ApproversBody, (), (approvers))

constexpr const char* kApproval = "approval";

std::string approvalPath(const FileItem& file) { return "api/files/" + file.id + "/approval"; }

}  // namespace

void Store::requestApproval(FileItem file, std::vector<std::string> approvers, std::string note,
                            std::string after) {
  std::string done = "Sent v" + std::to_string(file.versionNumber()) + " to " +
                     joinNames(*this, approvers) + " for approval.";
  if (after == "notion") done += " The Notion link is copied.";
  const ApprovalBody body{.action = "request", .approvers = approvers, .note = std::move(note)};
  const Heard pass = [this, file, approvers, after](const Json::Object& answer) {
    const ShareInfo share = shareIn(answer);
    if (after == "gmail" && hasWords(share.url)) composeApprovalMail(file, approvers, *share.url);
    if (after != "notion") return;
    if (const auto link = notionLink(share)) ports_.clipboard.put(*link);
  };
  action(kApproval, std::move(done),
         [this, path = approvalPath(file), body, pass] { return tell(path, body, pass); });
}

void Store::withdrawApproval(FileItem file) {
  action(kApproval, "Took the request back.", [this, path = approvalPath(file)] {
    return tell(path, ApprovalBody{.action = "withdraw"});
  });
}

void Store::markApprovalSent(FileItem file) {
  action(kApproval, "Marked sent to " + wordsOr(file.supplier, "the supplier") + ".",
         [this, path = approvalPath(file)] { return tell(path, ApprovalBody{.action = "sent"}); });
}

void Store::saveApprovers(const std::vector<Guest>& list) {
  ApproversBody body;
  for (const Guest& guest : list) {
    body.approvers.push_back({guest.email, guest.name.value_or("")});
  }
  // On the board at once, since the next list is made from it and the poll behind this may fail.
  const Heard pass = [this, list](const Json::Object&) {
    if (board()) board.edit([&](auto& held) { held->approvers = list; });
  };
  action("approvers", "Saved the approvers.",
         [this, body = std::move(body), pass] { return tell("api/approvers", body, pass); });
}

}  // namespace vellix
