#include "service.hpp"

#include <chrono>
#include <thread>

#include "body.hpp"
#include "clock.hpp"
#include "state_kept.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kLogged = 20'000;
constexpr std::size_t kLoggedBody = 4096;
constexpr std::size_t kMostBody = 59'999'999;

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

// None of a fault that does no more than wait.
std::optional<Reply> replyOf(const Fault& fault) {
  Reply reply;
  if (fault.cut) {
    reply.cut = true;
  } else if (fault.garbage) {
    reply.body = "\x01\xFFnot what you asked for {";
  } else if (fault.status) {
    reply.status = *fault.status;
    reply.body = fault.body.value_or("{\"error\":\"A fault was asked for.\"}");
  } else if (fault.bytes) {
    reply.bytes = fault.bytes;
    reply.type = "application/pdf";
  } else {
    return std::nullopt;
  }
  return reply;
}

}  // namespace

std::string Request::header(const std::string& name) const {
  const auto found = headers.find(name);
  return found == headers.end() ? std::string() : found->second;
}

Reply errorReply(int status, const std::string& text) {
  return {status, encode(ErrorText{text}).value_or("{}"), "application/json", {}, false};
}

Reply pictureReply(std::optional<std::string> bytes) {
  if (!bytes) return errorReply(404, "There is no such picture.");
  if (bytes->empty()) return errorReply(503, "The picture could not be made just now.");
  return {200, *std::move(bytes), "image/jpeg"};
}

std::optional<std::string> behind(const std::string& path, const std::string& prefix) {
  if (!path.starts_with(prefix)) return std::nullopt;
  return path.substr(prefix.size());
}

Service::Service(const std::string& address, double pace, bool colleague, bool books,
                 std::unique_ptr<Shelf> shelf)
    : shelf_(std::move(shelf)),
      state_(pictures_, address,
             boardKeptOn(shelf_.get()).value_or(KeptBoard{.opened = nowMs()}).opened, pace,
             colleague, boardKeptOn(shelf_.get()).value_or(KeptBoard{.books = books}).books),
      feed_(address) {}

std::expected<void, std::string> Service::give(const std::vector<GivenProof>& proofs) {
  const std::lock_guard lock(mutex_);
  return state_.give(proofs);
}

Begun Service::begin(const Request& head) {
  if (head.path.starts_with("/demo/")) return {};
  Begun begun{log(head), std::nullopt};
  const std::lock_guard lock(mutex_);
  begun.fault = faults_.take(head.method, head.path);
  return begun;
}

void Service::wait(const Fault& fault) {
  if (fault.held) {
    std::unique_lock lock(mutex_);
    released_.wait(lock,
                   [this, since = faults_.replaced()] { return faults_.replaced() != since; });
  }
  if (fault.delayMs > 0) std::this_thread::sleep_for(std::chrono::milliseconds(fault.delayMs));
}

std::optional<Reply> Service::reading(Begun& begun, const Request& head, std::size_t bytes) {
  note(begun, [&](LogEntry& entry) { entry.bytes = static_cast<Int>(bytes); });
  std::optional<Reply> reply;
  const std::string length = head.header("content-length");
  if (bytes > kMostBody || std::strtoull(length.c_str(), nullptr, 10) > kMostBody) {
    reply = errorReply(413, "That file is too big. It has to be under 60 MB.");
  } else if (begun.fault && begun.fault->afterBytes && bytes >= *begun.fault->afterBytes) {
    const Fault fault = *begun.fault;
    begun.fault.reset();
    wait(fault);
    reply = replyOf(fault);
  }
  if (reply) {
    reply->unread = true;
    if (!reply->cut) note(begun, [&](LogEntry& entry) { entry.status = reply->status; });
  } else if (begun.fault && begun.fault->dripMs > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(begun.fault->dripMs));
  }
  return reply;
}

Reply Service::answer(const Begun& begun, const Request& request) {
  if (!begun.number) {
    if (request.path == "/demo/proof" && request.method == "GET") {
      const auto item = [&](const char* name) {
        const auto found = request.query.find(name);
        return found == request.query.end() ? std::string() : found->second;
      };
      const Int version = std::strtoll(item("v").c_str(), nullptr, 10);
      return proof(item("file_id"), version > 0 ? std::optional(version) : std::nullopt,
                   item("repaired") == "1");
    }
    return answerKept(request, &Service::serveTests);
  }
  note(begun, [&](LogEntry& entry) {
    entry.bytes = static_cast<Int>(request.body.size());
    if (!request.header("content-type").starts_with("application/json")) return;
    // Text that is not UTF-8 could not be told in JSON.
    entry.body = withoutCode(request.body).substr(0, kLoggedBody);
    if (!encode(*entry.body)) entry.body = "(not text)";
  });
  if (begun.fault) wait(*begun.fault);
  const auto faulty = begun.fault ? replyOf(*begun.fault) : std::nullopt;
  Reply reply;
  if (!faulty || begun.fault->after) reply = route(request);
  if (faulty) reply = *faulty;
  if (begun.fault) {
    reply.cutAt = begun.fault->cutAt;
    reply.dripMs = begun.fault->dripMs;
  }
  if (!reply.cut) note(begun, [&](LogEntry& entry) { entry.status = reply.status; });
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
    return pictureReply(pictures_.find(*key));
  }
  // So are uploads: they are read beside.
  if (const auto id = behind(request.path, "/api/files/");
      id && id->ends_with("/versions") && request.method == "PUT") {
    return takeVersion(request, id->substr(0, id->size() - 9));
  }
  if (auto file = shareFile(request)) return *std::move(file);
  return answerKept(request, &Service::serve);
}

std::size_t Service::log(const Request& head) {
  LogEntry entry;
  entry.method = head.method;
  entry.path = head.path;
  entry.query = head.query;
  entry.has_authorization = !head.header("authorization").empty();
  if (const auto tag = head.header("if-none-match"); !tag.empty()) entry.if_none_match = tag;
  const std::lock_guard lock(logMutex_);
  log_.push_back(std::move(entry));
  if (log_.size() > kLogged) {
    log_.pop_front();
    ++logStart_;
  }
  return logStart_ + log_.size() - 1;
}

void Service::note(const Begun& begun, const std::function<void(LogEntry&)>& what) {
  const std::lock_guard lock(logMutex_);
  if (begun.number && *begun.number >= logStart_ && *begun.number - logStart_ < log_.size()) {
    what(log_[*begun.number - logStart_]);
  }
}

}  // namespace vellix::demo
