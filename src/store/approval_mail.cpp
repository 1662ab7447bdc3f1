#include "store/approval_mail.hpp"

#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

constexpr std::size_t kManyPeople = 3;

std::string nameOf(const FileItem& file) {
  const std::string heading = file.heading();
  return hasWords(file.po) ? *file.po + " " + heading : heading;
}

}  // namespace

ApprovalMail approvalMail(const Store& store, const FileItem& file,
                          const std::vector<std::string>& emails, const std::string& link) {
  const std::string proof = nameOf(file) + " v" + std::to_string(file.versionNumber());
  const std::string who = emails.size() < kManyPeople ? joinNames(store, emails) : "all";
  ApprovalMail mail;
  mail.subject = "Approval: " + proof;
  mail.body = "Hi " + who + ",\n\n" + proof + " is ready for your approval:\n" + link +
              "\n\nSign in with your Tessarine Google account. You can approve it or request "
              "changes right on the page.\n\nThanks!\n";
  if (store.board()) mail.body += store.board()->me.firstName();
  return mail;
}

}  // namespace vellix
