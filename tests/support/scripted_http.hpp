// An Http that keeps what it was asked for and answers what the test says, when it says so.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>

#include "platform/ports/http.hpp"
#include "platform/ports/main_loop.hpp"

namespace vellix {

inline HttpResponse answerOf(int status, std::string body = {}, std::string etag = {}) {
  HttpResponse response{.status = status, .headers = {}, .body = std::move(body)};
  if (!etag.empty()) response.headers["etag"] = std::move(etag);
  return response;
}

class ScriptedHttp : public Http {
 public:
  struct Exchange {
    HttpRequest request;
    Resolver<HttpResult> resolver;
    std::optional<std::stop_callback<std::function<void()>>> onStop;
    std::string header(std::string_view name) const {
      const auto found =
          std::ranges::find(request.headers, name, [](const auto& entry) { return entry.first; });
      return found == request.headers.end() ? std::string{} : found->second;
    }
    bool has(std::string_view name) const {
      return std::ranges::any_of(request.headers,
                                 [&](const auto& entry) { return entry.first == name; });
    }
    // "GET api/state", with the query when there is one.
    std::string line() const {
      const auto host = request.url.find("//");
      const auto path = request.url.find('/', host + 2);
      return request.method + " " + request.url.substr(path + 1);
    }
  };

  explicit ScriptedHttp(MainLoop& loop) : loop_(loop) {}

  Pending<HttpResult> send(HttpRequest request, std::stop_token stop) override {
    auto& exchange = exchanges.emplace_back();
    exchange.request = std::move(request);
    const auto resolver = exchange.resolver;
    exchange.onStop.emplace(stop, [this, resolver] {
      loop_.post([resolver] { resolver(std::unexpected(HttpError::cancelled)); });
    });
    if (automatic) {
      if (auto result = automatic(exchange)) answer(exchange, std::move(*result));
    }
    return exchange.resolver.pending();
  }

  // Answered at once when it gives a value; left open when it gives none.
  std::function<std::optional<HttpResult>(const Exchange&)> automatic;

  std::deque<Exchange> exchanges;  // all of them, in order; addresses stay

  void answer(const Exchange& exchange, HttpResult result) {
    loop_.post([resolver = exchange.resolver, reader = exchange.request.reader, result]() mutable {
      if (result && reader) reader(*result);
      resolver(std::move(result));
    });
  }
  void answer(std::size_t index, HttpResult result) { answer(exchanges.at(index), result); }

  // The exchanges whose line begins so.
  std::vector<const Exchange*> matching(std::string_view line) const {
    std::vector<const Exchange*> found;
    for (const auto& exchange : exchanges) {
      if (exchange.line().starts_with(line)) found.push_back(&exchange);
    }
    return found;
  }
  std::size_t count(std::string_view line) const { return matching(line).size(); }

 private:
  MainLoop& loop_;
};

}  // namespace vellix
