// A link that comes back from the browser.
#include "fuzz/desk.hpp"
#include "gateway/url.hpp"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  using namespace vellix;
  const std::string url{textOf(bytes, count)};
  FuzzDesk desk;
  std::optional<API::Result<Me>> outcome;
  desk.tasks.start(deliver(desk.signIn.finish(url), &outcome));
  desk.time.run();
  const auto parts = parseUrl(url);
  const auto* code = parts ? parts->item("code") : nullptr;
  if (desk.http.exchanges.empty()) {
    require(outcome && !*outcome, "a link that leads to no request fails");
    const bool text = code && code->has_value() && encode(**code).has_value();
    const auto* state = parts ? parts->item("state") : nullptr;
    const bool stateIsText = !state || encode(state->value_or("")).has_value();
    require(!text || !stateIsText, "a link with a code leads to a request");
    return 0;
  }
  require(desk.http.exchanges.size() == 1, "a link is one request");
  require(desk.http.exchanges.front().line() == "POST api/login/exchange", "it is the exchange");
  require(code && code->has_value(), "there is a code");
  const auto body = decodeJson(desk.http.exchanges.front().request.body.value_or(""));
  require(body && body->find("code") && body->find("code")->text(), "its body is JSON with it");
  require(*body->find("code")->text() == **code, "the code is the link's");
  return 0;
}
