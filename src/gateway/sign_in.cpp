#include "gateway/sign_in.hpp"

#include "gateway/url.hpp"

namespace vellix {
namespace {

struct ExchangeBody {
  std::string code;
  std::string state;
  std::string device;
};
BOOST_DESCRIBE_STRUCT(ExchangeBody, (), (code, state, device))

}  // namespace

Task<API::Result<Me>> SignIn::finish(std::string url) {
  const UrlParts parts = parseUrl(url).value_or(UrlParts{});
  const auto* code = parts.item("code");
  if (!code || !code->has_value()) {
    co_return std::unexpected(Failure::server("That sign-in did not come through. Try again."));
  }
  const auto* returned = parts.item("state");
  const std::string name = machine_.name();
  // A URL can arrive in a process that did not start the sign-in; the service compares the two.
  ExchangeBody body{
      .code = **code,
      .state = !state_.empty() ? state_
               : returned      ? returned->value_or("")
                               : "",
      .device = name.empty() ? "Mac" : name,
  };
  auto call =
      api_.send({.path = "api/login/exchange", .method = "POST", .json = API::jsonOf(body)});
  const auto response = co_await std::move(call);
  if (!response) co_return std::unexpected(response.error());
  const auto answer = decode<SignInAnswer>(response->body);
  if (!answer) co_return std::unexpected(Failure::unreadable(answer.error().why));
  api_.setToken(answer->token);
  defaults_.setText("LastEmail", answer->me.email);
  co_return answer->me;
}

}  // namespace vellix
