// What is handed on to other programs: links to paste, and pages to open.
#include "gateway/build_info.hpp"
#include "gateway/url.hpp"
#include "records/words.hpp"
#include "store/approval_mail.hpp"
#include "store/share_links.hpp"
#include "store/store.hpp"

namespace vellix {

void Store::copyLink(const FileItem& file) {
  if (!file.share || !hasWords(file.share->url)) return;
  ports_.clipboard.put(*file.share->url);
  toast.set(Toast{"Link copied."});
}

void Store::copyNotionLink(const FileItem& file) {
  const auto link = file.share ? notionLink(*file.share) : std::nullopt;
  if (!link) return;
  ports_.clipboard.put(*link);
  toast.set(Toast{"Copied for Notion. Paste it in the task and pick Embed."});
}

// The link comes from outside: what is no web page is not opened.
void Store::openLink(const FileItem& file) {
  if (file.share && isWebUrl(file.share->url.value_or(""))) ports_.opener.open(*file.share->url);
}

void Store::composeApprovalMail(const FileItem& file, const std::vector<std::string>& emails,
                                const std::string& link) {
  const ApprovalMail mail = approvalMail(*this, file, emails, link);
  openGmailCompose(emails, mail.subject, mail.body);
}

void Store::openGmailCompose(const std::vector<std::string>& to, const std::string& subject,
                             const std::string& body) {
  std::string addresses;
  for (const std::string& email : to) {
    if (!addresses.empty()) addresses += ',';
    addresses += email;
  }
  const QueryItems items{{"view", "cm"},    {"fs", "1"},     {"authuser", myEmail().value_or("")},
                         {"to", addresses}, {"su", subject}, {"body", body}};
  const std::string url = withQuery(std::string{build::kGmailComposeBase}, items);
  if (isWebUrl(url)) ports_.opener.open(url);
}

}  // namespace vellix
