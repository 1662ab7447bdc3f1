// The rules of URLs: a base that somebody wrote down, a path, and what a link may lead to.
#include "gateway/url.hpp"

#include "fuzz/fuzz.hpp"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  using namespace vellix;
  const std::string text{textOf(bytes, count)};
  require(percentDecode(percentEncode(text)) == text, "what is encoded is decoded to the same");
  const auto parts = parseUrl(text);
  if (isWebUrl(text)) {
    require(parts && !parts->host.empty(), "a web URL has a host");
    require(isLinkTarget(text), "a web URL is where a link may lead");
    const std::string called = withQuery(appendPath(text, "api/files/a b"), {{"v", text}});
    require(isWebUrl(called), "so is what is called under it");
    const auto again = parseUrl(called);
    require(again && again->host == parts->host, "and it has the same host");
    require(again->item("v") && *again->item("v") == text, "the query comes back");
  }
  const std::string under = withQuery(appendPath("https://a.example", text), {{"v", text}});
  require(isWebUrl(under), "whatever the path, the URL can be called");
  const auto whole = parseUrl(under);
  require(whole && whole->host == "a.example", "and stays with its host");
  require(whole->item("v") && *whole->item("v") == text, "whatever the query, it comes back");
  return 0;
}
