#include "gateway/api.hpp"

#include <algorithm>

#include "gateway/build_info.hpp"
#include "gateway/url.hpp"

namespace vellix {
namespace {

constexpr Milliseconds kTimeout{60'000};
constexpr const char* kServer = "ServerURL";
constexpr const char* kLastServer = "LastServer";
constexpr int kNotModified = 304;
constexpr int kRefused = 400;  // and all above

Failure failureOf(HttpError error) {
  switch (error) {
    case HttpError::notConnected:
    case HttpError::connectionLost:
      return Failure::offline("This Mac is offline. Vellix will catch up when it's back.");
    case HttpError::notHttp:
      return Failure::offline("Can't reach the Vellix server right now.");
    case HttpError::bodyLost:
      return Failure::unwritable("the body could not be read to its end");
    case HttpError::notKept:
      return Failure::unreadable("the answer could not be kept");
    case HttpError::timedOut:
    case HttpError::cancelled:
    case HttpError::tooLarge:
    case HttpError::other:
      break;
  }
  return Failure::offline("Can't reach the Vellix server right now. Trying again…");
}

Failure refusalOf(const std::string& body) {
  if (const auto json = decodeJson(body)) {
    const Json* error = json->find("error");
    if (error && error->text()) return Failure::server(*error->text());
  }
  return Failure::server("The server didn't take that. Try again in a moment.");
}

// Polls and actions, pictures, and long transfers must not wait for one another.
HttpLane laneOf(const API::Request& request) {
  if (request.path.starts_with("api/blob/")) return HttpLane::pictures;
  if (request.method == "PUT" || request.path.ends_with("/pdf")) return HttpLane::transfers;
  return HttpLane::calls;
}

bool sameHeader(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, {}, asciiLower, asciiLower);
}

}  // namespace

std::string API::base() const {
  const auto chosen = defaults_.text(kServer);
  return chosen && isWebUrl(*chosen) ? *chosen : std::string{build::kDefaultServerURL};
}

std::optional<std::string> API::unusableServer() const {
  const auto chosen = defaults_.text(kServer);
  return chosen && !isWebUrl(*chosen) ? chosen : std::nullopt;
}

bool API::isMeantService() const {
  return !unusableServer() || defaults_.text(kLastServer) == originOf(base());
}

std::string API::shortVersion() { return std::string{build::kShortVersion}; }
Int API::buildNumber() { return build::kBuildNumber; }

std::optional<std::string> API::token() {
  if (!isMeantService()) return std::nullopt;
  if (!token_) token_ = tokens_.read();
  return token_;
}

void API::setToken(std::optional<std::string> value) {
  token_ = value;
  tokens_.remove();
  if (!value) return;
  defaults_.setText(kLastServer, originOf(base()));
  tokens_.add(*value);
}

HttpRequest API::build(const Request& request) {
  HttpRequest http;
  http.method = request.method;
  http.url = withQuery(appendPath(base(), request.path),
                       QueryItems(request.query.begin(), request.query.end()));
  http.timeout = request.timeout.value_or(kTimeout);
  http.lane = laneOf(request);
  http.sink = request.sink;
  const auto set = [&](const std::string& name, const std::string& value) {
    const auto held = std::ranges::find_if(
        http.headers, [&](const auto& entry) { return sameHeader(entry.first, name); });
    if (held == http.headers.end()) {
      http.headers.emplace_back(name, value);
    } else {
      held->second = value;
    }
  };
  set("User-Agent", "Vellix-Mac/" + shortVersion());
  for (const auto& [name, value] : request.headers) set(name, value);
  if (const auto bearer = token()) set("Authorization", "Bearer " + *bearer);
  if (!request.json->empty()) {
    http.body = *request.json;
    set("Content-Type", "application/json");
  } else if (request.data || request.stream) {
    http.body = request.data;
    if (!request.data) http.stream = request.stream;
    set("Content-Type", request.contentType.value_or("application/octet-stream"));
  }
  if (request.etag) set("If-None-Match", *request.etag);
  return http;
}

Task<API::Result<HttpResponse>> API::send(Request request) {
  return sendFor(std::move(request), nullptr);
}

Task<API::Result<HttpResponse>> API::sendFor(Request request, Reader reader) {
  if (!request.json) co_return std::unexpected(request.json.error());
  HttpRequest http = build(request);
  if (reader) {
    http.reader = [reader](HttpResponse& response) {
      if (response.status < kRefused && response.status != kNotModified) reader(response);
    };
  }
  const auto pending = http_.send(std::move(http), request.stop);
  auto outcome = co_await pending;
  if (!outcome) co_return std::unexpected(failureOf(outcome.error()));
  if (outcome->status == 401) co_return std::unexpected(Failure::signedOut());
  if (outcome->status >= kRefused) co_return std::unexpected(refusalOf(outcome->body));
  co_return std::move(*outcome);
}

Task<API::Result<Json::Object>> API::postJson(std::string path, Result<std::string> body) {
  auto call = ask<Json>({.path = std::move(path), .method = "POST", .json = std::move(body)});
  auto answer = co_await std::move(call);
  if (!answer) co_return std::unexpected(answer.error());
  auto* object = answer->record ? std::get_if<Json::Object>(&answer->record->value) : nullptr;
  co_return object ? std::move(*object) : Json::Object{};
}

}  // namespace vellix
