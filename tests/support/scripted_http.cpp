#include "support/scripted_http.hpp"

#include <algorithm>
#include <utility>

namespace vellix {

HttpResponse answerOf(int status, std::string body, std::string etag) {
  HttpResponse response{.status = status, .headers = {}, .body = std::move(body)};
  if (!etag.empty()) response.headers["etag"] = std::move(etag);
  return response;
}

std::string ScriptedHttp::Exchange::header(std::string_view name) const {
  const auto found =
      std::ranges::find(request.headers, name, [](const auto& entry) { return entry.first; });
  return found == request.headers.end() ? std::string{} : found->second;
}

bool ScriptedHttp::Exchange::has(std::string_view name) const {
  return std::ranges::any_of(request.headers,
                             [&](const auto& entry) { return entry.first == name; });
}

std::string ScriptedHttp::Exchange::line() const {
  const auto host = request.url.find("//");
  const auto path = request.url.find('/', host + 2);
  return request.method + " " + request.url.substr(path + 1);
}

ScriptedHttp::ScriptedHttp(MainLoop& loop) : loop_(loop) {}

ScriptedHttp::~ScriptedHttp() = default;

Pending<HttpResult> ScriptedHttp::send(HttpRequest request, std::stop_token stop) {
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

void ScriptedHttp::answer(const Exchange& exchange, HttpResult result) {
  loop_.post([resolver = exchange.resolver, reader = exchange.request.reader,
              sink = exchange.request.sink, result]() mutable {
    if (result && sink && result->status < 400 && !sink->write(std::exchange(result->body, {}))) {
      result = std::unexpected(HttpError::notKept);
    }
    if (result && reader) reader(*result);
    resolver(std::move(result));
  });
}

void ScriptedHttp::answer(std::size_t index, HttpResult result) {
  answer(exchanges.at(index), result);
}

std::vector<const ScriptedHttp::Exchange*> ScriptedHttp::matching(std::string_view line) const {
  std::vector<const Exchange*> found;
  for (const auto& exchange : exchanges) {
    if (exchange.line().starts_with(line)) found.push_back(&exchange);
  }
  return found;
}

std::size_t ScriptedHttp::count(std::string_view line) const { return matching(line).size(); }

}  // namespace vellix
