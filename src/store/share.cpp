// A ticket's link, under which colleagues open it in their browser.
#include "records/words.hpp"
#include "store/share_links.hpp"
#include "store/store_tell.hpp"

namespace vellix {
namespace {

struct ShareBody {
  std::optional<bool> enabled;
  std::optional<std::string> access;
  std::optional<bool> reset;
};
BOOST_DESCRIBE_STRUCT(ShareBody, (), (enabled, access, reset))

std::string verbOf(const ShareBody& body, const FileItem& file) {
  const auto stored = file.share ? file.share->access : std::nullopt;
  const std::string access = body.access.value_or(stored.value_or("view"));
  return access == "comment" || access == "edit" ? access : "view";
}

std::string doneText(const ShareBody& body, const FileItem& file) {
  if (body.reset) return "Made a new link. The old one stopped working.";
  if (!body.enabled) return "Anyone with the link can " + verbOf(body, file) + " now.";
  if (!*body.enabled) return "The link is off.";
  return "The link is on. Anyone at Tessarine with it can " + verbOf(body, file) + ".";
}

}  // namespace

void Store::setShare(FileItem file, std::optional<bool> enabled, std::optional<std::string> access,
                     bool reset) {
  const ShareBody body{.enabled = enabled,
                       .access = std::move(access),
                       .reset = reset ? std::optional{true} : std::nullopt};
  Heard pass;
  // A link that was not there before is ready to paste.
  if (reset || enabled == true) {
    pass = [this](const Json::Object& answer) {
      const ShareInfo share = shareIn(answer);
      if (hasWords(share.url)) ports_.clipboard.put(*share.url);
    };
  }
  action("share", doneText(body, file),
         [this, path = "api/files/" + file.id + "/share", body, pass] {
           return tell(path, body, pass);
         });
}

}  // namespace vellix
