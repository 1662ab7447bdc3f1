#include "gateway/sign_in.hpp"

#include "gateway/build_info.hpp"
#include "gateway/url.hpp"

namespace vellix {
namespace {

struct ExchangeBody {
  std::string code;
  std::string state;
  std::string device;
};
BOOST_DESCRIBE_STRUCT(ExchangeBody, (), (code, state, device))

Failure failureOf(SignInError error) {
  if (error == SignInError::cancelled) return Failure::cancelled();
  return Failure::server("No browser opened. Choose a default browser, then try again.");
}

}  // namespace

Task<API::Result<Me>> SignIn::run() {
  state_ = ports_.uuids.fresh();
  std::erase(state_, '-');
  const auto session = ports_.browser.start(pageUrl(), "sorel");
  const auto end = co_await session;
  if (!end) co_return std::unexpected(failureOf(end.error()));
  if (!*end) co_return std::unexpected(Failure::server("Sign-in was cancelled."));
  auto finishing = finish(**end);
  auto me = co_await std::move(finishing);
  co_return me;
}

// Only a company address is passed on as the hint, and only to the service that it was told by.
std::string SignIn::pageUrl() const {
  std::string url = withQuery(appendPath(api_.base(), "signin"), {{"state", state_}});
  const auto last = ports_.defaults.text("LastEmail");
  if (last && api_.isMeantService() &&
      last->ends_with("@" + std::string{build::kAllowedMailDomain})) {
    url += "&hint=" + percentEncode(*last);
  }
  return url;
}

Task<API::Result<Me>> SignIn::finish(std::string url) {
  const UrlParts parts = parseUrl(url).value_or(UrlParts{});
  const auto* code = parts.item("code");
  if (!code || !code->has_value()) {
    co_return std::unexpected(Failure::server("That sign-in did not come through. Try again."));
  }
  const auto* returned = parts.item("state");
  const std::string name = ports_.machine.name();
  // A URL can arrive in a process that did not start the sign-in; the service compares the two.
  ExchangeBody body{
      .code = **code,
      .state = !state_.empty() ? state_
               : returned      ? returned->value_or("")
                               : "",
      .device = name.empty() ? "Mac" : name,
  };
  const auto calledOff = calledOff_;
  auto call = api_.ask<SignInAnswer>(
      {.path = "api/login/exchange", .method = "POST", .json = API::jsonOf(body)});
  const auto answer = co_await std::move(call);
  if (calledOff != calledOff_) co_return std::unexpected(Failure::cancelled());
  if (!answer) co_return std::unexpected(answer.error());
  const auto& record = answer->record;
  if (!record) co_return std::unexpected(Failure::unreadable(record.error().why));
  api_.setToken(record->token);
  ports_.defaults.setText("LastEmail", record->me.email);
  co_return record->me;
}

}  // namespace vellix
