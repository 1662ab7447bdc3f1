// The few rules of URLs that the client needs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellix {

// The same in every locale.
char asciiLower(char c);

// Percent-encodes every byte but ASCII letters, digits and the bytes of `kept`.
std::string percentEncode(std::string_view text, std::string_view kept = "-._~");
std::string percentDecode(std::string_view text);

// True for an absolute http or https URL that can be called: its host, port and escapes are sound.
bool isWebUrl(std::string_view text);
// True for what a link may lead to: a web URL, or a mail address with its scheme.
bool isLinkTarget(std::string_view text);

// Scheme, host and port of a web URL in one spelling, as "https://a.example:8443".
std::string originOf(std::string_view webUrl);

// The base with the path put behind it, one slash between; the path may have several components.
std::string appendPath(std::string base, std::string_view path);

using QueryItems = std::vector<std::pair<std::string, std::string>>;
// The URL with these query items, in their order, in place of its own.
std::string withQuery(std::string url, const QueryItems& query);

struct UrlParts {
  std::string scheme;                                                     // lower case
  std::string host;                                                       // lower case
  std::vector<std::pair<std::string, std::optional<std::string>>> query;  // decoded, in order
  const std::optional<std::string>* item(std::string_view name) const;    // the first of that name
};
std::optional<UrlParts> parseUrl(std::string_view text);

}  // namespace vellix
