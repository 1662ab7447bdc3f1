#include "store/share_links.hpp"

#include "records/words.hpp"

namespace vellix {
namespace {

std::optional<std::string> textAt(const Json& object, const std::string& key) {
  const Json* value = object.find(key);
  const std::string* text = value ? value->text() : nullptr;
  return text ? std::optional{*text} : std::nullopt;
}

}  // namespace

ShareInfo shareIn(const Json::Object& answer) {
  const auto found = answer.find("share");
  if (found == answer.end()) return {};
  ShareInfo share;
  share.url = textAt(found->second, "url");
  share.embed_url = textAt(found->second, "embed_url");
  return share;
}

std::optional<std::string> notionLink(const ShareInfo& share) {
  if (hasWords(share.embed_url)) return share.embed_url;
  return hasWords(share.url) ? share.url : std::nullopt;
}

}  // namespace vellix
