#include "service.hpp"

#include <chrono>
#include <thread>

#include "body.hpp"
#include "clock.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kLogged = 20'000;
constexpr std::size_t kLoggedBody = 4096;

struct ErrorText {
  std::string error;
};
BOOST_DESCRIBE_STRUCT(ErrorText, (), (error))

// A code is a secret for as long as it can be traded; the rest of its request is not.
std::string withoutCode(std::string body) {
  const auto json = decodeJson(body);
  const auto code = json ? textAt(*json, "code") : std::nullopt;
  if (!code || code->empty()) return body;
  for (auto at = body.find(*code); at != std::string::npos; at = body.find(*code, at + 8)) {
    body.replace(at, code->size(), "(hidden)");
  }
  return body;
}

}  // namespace

std::string Request::header(const std::string& name) const {
  const auto found = headers.find(name);
  return found == headers.end() ? std::string() : found->second;
}

Reply errorReply(int status, const std::string& text) {
  return {status, encode(ErrorText{text}).value_or("{}"), "application/json", {}, false};
}

std::optional<std::string> behind(const std::string& path, const std::string& prefix) {
  if (!path.starts_with(prefix)) return std::nullopt;
  return path.substr(prefix.size());
}

Service::Service(double pace, bool colleague) : state_(pictures_, nowMs(), pace, colleague) {}

Reply Service::answer(const Request& request) {
  if (request.path.starts_with("/demo/")) {
    const std::lock_guard lock(mutex_);
    state_.advance(nowMs());
    return serveTests(request);
  }
  const std::size_t number = log(request);
  std::optional<Fault> fault;
  {
    std::unique_lock lock(mutex_);
    fault = faults_.take(request.method, request.path);
    if (fault && fault->held) {
      released_.wait(lock,
                     [this, since = faults_.replaced()] { return faults_.replaced() != since; });
    }
  }
  if (fault && fault->delayMs > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(fault->delayMs));
  }
  const bool faulty = fault && (fault->status || fault->cut || fault->garbage);
  Reply reply;
  if (!faulty || fault->after) reply = route(request);
  if (faulty) {
    if (fault->cut) {
      reply.cut = true;
    } else if (fault->garbage) {
      reply = {200, "\x01\xFFnot what you asked for {", "application/json", {}, false};
    } else {
      reply = {*fault->status,
               fault->body.value_or("{\"error\":\"A fault was asked for.\"}"),
               "application/json",
               {},
               false};
    }
  }
  if (!reply.cut) logStatus(number, reply.status);
  return reply;
}

Reply Service::route(const Request& request) {
  // Pictures are painted outside the lock, so that a slow page holds up nothing else.
  if (const auto key = behind(request.path, "/api/blob/"); key && request.method == "GET") {
    {
      const std::lock_guard lock(mutex_);
      const auto token = behind(request.header("authorization"), "Bearer ");
      if (!token || state_.personOf(*token) == nullptr) {
        return errorReply(401, "You're signed out. Sign in again.");
      }
    }
    auto bytes = pictures_.find(*key);
    if (!bytes) return errorReply(404, "There is no such picture.");
    return {200, std::move(*bytes), "image/jpeg", {}, false};
  }
  const std::lock_guard lock(mutex_);
  state_.advance(nowMs());
  return serve(request);
}

std::size_t Service::log(const Request& request) {
  LogEntry entry;
  entry.method = request.method;
  entry.path = request.path;
  entry.query = request.query;
  entry.has_authorization = !request.header("authorization").empty();
  if (const auto tag = request.header("if-none-match"); !tag.empty()) entry.if_none_match = tag;
  if (request.header("content-type").starts_with("application/json")) {
    // Text that is not UTF-8 could not be told in JSON.
    entry.body = withoutCode(request.body).substr(0, kLoggedBody);
    if (!encode(*entry.body)) entry.body = "(not text)";
  }
  const std::lock_guard lock(logMutex_);
  log_.push_back(std::move(entry));
  if (log_.size() > kLogged) {
    log_.pop_front();
    ++logStart_;
  }
  return logStart_ + log_.size() - 1;
}

void Service::logStatus(std::size_t number, int status) {
  const std::lock_guard lock(logMutex_);
  if (number >= logStart_ && number - logStart_ < log_.size()) {
    log_[number - logStart_].status = status;
  }
}

}  // namespace vellix::demo
