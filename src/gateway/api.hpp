// The one place where the client talks HTTP to its service. Main thread only; the transfers
// themselves run behind the Http port. Every failure is a Failure whose description is for the
// user; nothing is retried here.
#pragma once

#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>

#include "gateway/failure.hpp"
#include "platform/ports/defaults.hpp"
#include "platform/ports/http.hpp"
#include "platform/ports/task.hpp"
#include "platform/ports/token_store.hpp"
#include "records/json.hpp"

namespace vellix {

class API {
 public:
  using Failure = vellix::Failure;
  template <class T>
  using Result = std::expected<T, Failure>;

  // Everything of one request. A body of bytes or a stream goes out as `contentType`.
  struct Request {
    std::string path;  // relative, no leading slash
    std::string method = "GET";
    Result<std::string> json{std::string{}};  // encoded body; empty for none
    std::optional<std::string> data;          // raw body, used when there is no JSON
    std::shared_ptr<HttpBody> stream;         // raw body, used when there is neither
    std::shared_ptr<HttpSink> sink;           // takes the body of what succeeds
    std::optional<std::string> contentType;
    std::optional<std::string> etag;  // If-None-Match
    std::map<std::string, std::string> query;
    std::map<std::string, std::string> headers;
    std::optional<Milliseconds> timeout;
    std::stop_token stop;
  };

  // An answer whose body was read as a record. What is not modified has none to read.
  template <class T>
  struct Answer {
    HttpResponse response;  // without its body
    std::expected<T, DecodeFailure> record;
  };

  // The ports must outlive the API.
  API(Http& http, TokenStore& tokens, Defaults& defaults)
      : http_(http), tokens_(tokens), defaults_(defaults) {}

  // The user's "ServerURL" when it parses, else the built-in one; read on every call.
  std::string base() const;
  // A "ServerURL" that is there and does not parse, so that base() is the built-in one after all.
  std::optional<std::string> unusableServer() const;
  // Whether base() may be told what is known from before. A service that stands in for an unusable
  // "ServerURL" may only when the last session was with it already.
  bool isMeantService() const;
  static std::string shortVersion();
  static Int buildNumber();

  // None as well when base() stands in for the service that gave it.
  std::optional<std::string> token();
  void setToken(std::optional<std::string> value);

  // Success is any status below 400, 304 among them: the caller looks at it.
  Task<Result<HttpResponse>> send(Request request);

  // The same for an answer that is a record. It is decoded where it comes in, off the main thread,
  // and what is done with it there, if anything, is for `ready`.
  template <class T>
  Task<Result<Answer<T>>> ask(Request request, std::function<void(T&)> ready = nullptr) {
    using Record = std::expected<T, DecodeFailure>;
    const auto record = std::make_shared<Record>(std::unexpected(DecodeFailure{}));
    const auto reader = [record, ready](HttpResponse& response) {
      *record = decode<T>(std::exchange(response.body, {}));
      if (ready && *record) ready(**record);
    };
    auto call = sendFor(std::move(request), reader);
    auto response = co_await std::move(call);
    if (!response) co_return std::unexpected(response.error());
    co_return Answer<T>{std::move(*response), std::move(*record)};
  }

  // POST of a described value. The answer's JSON object; an empty one when it is none.
  template <class Body>
  Task<Result<Json::Object>> post(std::string path, Body body) {
    return postJson(std::move(path), jsonOf(body));
  }

  template <class Body>
  static Result<std::string> jsonOf(const Body& body) {
    auto json = encode(body);
    if (!json) return std::unexpected(Failure::unwritable(json.error().why));
    return std::move(*json);
  }

 private:
  using Reader = std::function<void(HttpResponse&)>;

  // The reader is given what succeeded and has a body.
  Task<Result<HttpResponse>> sendFor(Request request, Reader reader);
  Task<Result<Json::Object>> postJson(std::string path, Result<std::string> body);
  HttpRequest build(const Request& request);

  Http& http_;
  TokenStore& tokens_;
  Defaults& defaults_;
  std::optional<std::string> token_;  // in front of the token store
};

// An empty JSON object.
struct NoBody {};
BOOST_DESCRIBE_STRUCT(NoBody, (), ())

}  // namespace vellix
