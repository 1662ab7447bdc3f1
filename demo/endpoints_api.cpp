// The service's side of the contract.
#include <QByteArray>
#include <QUrl>
#include <chrono>

#include "body.hpp"
#include "clock.hpp"
#include "service.hpp"
#include "state_kept.hpp"

namespace vellix::demo {
namespace {

struct JobAnswer {
  std::string id;
  std::string kind;
  std::string status;
  std::string log;
};
BOOST_DESCRIBE_STRUCT(JobAnswer, (), (id, kind, status, log))

Reply replyOf(const Done& done) {
  return done ? Reply{} : errorReply(done.error().status, done.error().text);
}

Reply replyOf(const Refusal& refusal) { return errorReply(refusal.status, refusal.text); }

template <class T>
Reply replyOf(const Outcome<T>& outcome) {
  return outcome ? jsonReply(*outcome) : replyOf(outcome.error());
}

// 304 when the caller holds the very thing already; the value is only made when it does not.
template <class Make>
Reply tagged(const Request& request, const std::string& etag, Make make) {
  if (request.header("if-none-match") == etag) {
    return {304, {}, "application/json", etag, false};
  }
  Reply reply = make();
  if (reply.status == 200) reply.etag = etag;
  return reply;
}

std::string decoded(const std::string& text) {
  return QUrl::fromPercentEncoding(QByteArray::fromStdString(text)).toStdString();
}

Reply unknown() { return errorReply(404, "There is nothing here."); }

}  // namespace

Reply Service::serve(const Request& request) {
  const std::string& path = request.path;
  const bool get = request.method == "GET";
  const bool post = request.method == "POST";
  if (get && path == "/signin") return signInPage(request);
  if (get && path == "/signin/back" && handBack) return signedInPage(request);
  if (get && path == "/version.json") return jsonReply(feed_.newest());
  if (get && path == "/download") return {200, feed_.page(), "text/html; charset=utf-8"};
  if (post && path == "/api/login/exchange") {
    const auto body = decodeJson(request.body);
    const auto code = body ? textAt(*body, "code") : std::nullopt;
    if (!code) return errorReply(400, "No code was sent.");
    return replyOf(state_.exchange(*code, textAt(*body, "state").value_or("")));
  }
  if (const auto key = behind(path, "/s/"); key) {
    return get ? sharePage(*key, false) : shareAnswer(request, *key);
  }
  if (const auto key = behind(path, "/embed/"); get && key) return sharePage(*key, true);
  const auto token = behind(request.header("authorization"), "Bearer ");
  if (post && path == "/api/logout") {
    // A client that has thrown its token away already is signed out too.
    if (token) state_.forget(*token);
    return {};
  }
  if (!path.starts_with("/api/")) return unknown();
  const Person* person = token ? state_.personOf(*token) : nullptr;
  if (person == nullptr) return errorReply(401, "You're signed out. Sign in again.");
  const std::string me = person->email;
  state_.seen(me);
  return serveSignedIn(request, me);
}

Reply Service::serveSignedIn(const Request& request, const std::string& me) {
  const std::string& path = request.path;
  const bool get = request.method == "GET";
  if (get && path == "/api/state") {
    const std::string etag = "\"b" + std::to_string(state_.rev()) + "-" + me + "-" +
                             std::to_string(state_.starts()) + "\"";
    return tagged(request, etag, [&] { return jsonReply(state_.boardFor(me)); });
  }
  if (get && path == "/api/stats") return jsonReply(state_.stats());
  if (const auto rest = behind(path, "/api/files/")) {
    const auto slash = rest->find('/');
    const std::string what = slash == std::string::npos ? "" : rest->substr(slash + 1);
    return serveTicket(request, rest->substr(0, slash), what, me);
  }
  if (const auto id = behind(path, "/api/reports/"); get && id && id->ends_with("/pdf")) {
    const std::string* pdf = state_.pdfOf(id->substr(0, id->size() - 4));
    if (pdf == nullptr) return errorReply(404, "There is no such report.");
    return {200, *pdf, "application/pdf", {}, false};
  }
  if (const auto id = behind(path, "/api/jobs/"); get && id) {
    const Job* job = state_.job(*id);
    if (job == nullptr) return errorReply(404, "There is no such job.");
    return jsonReply(JobAnswer{job->id, job->kind, job->status, state_.logOf(job->id)});
  }
  if (request.method == "PUT" && path == "/api/me/photo") {
    return replyOf(state_.setPhoto(request.body, me));
  }
  if (request.method != "POST") return unknown();

  const auto body = decodeJson(request.body);
  if (!body || body->object() == nullptr) return errorReply(400, "A JSON object was expected.");
  if (const auto id = behind(path, "/api/findings/")) {
    return replyOf(state_.setFinding(*id, textAt(*body, "state").value_or(""), me));
  }
  if (path == "/api/comments") return replyOf(state_.addNote(*body, me));
  if (const auto id = behind(path, "/api/comments/")) {
    return replyOf(state_.changeNote(*id, *body, me));
  }
  if (path == "/api/approvers") return replyOf(state_.setApprovers(*body, me));
  if (path == "/api/jobs") return replyOf(state_.startJob(*body, me));
  if (const auto id = behind(path, "/api/jobs/"); id && id->ends_with("/stop")) {
    return replyOf(state_.stopJob(id->substr(0, id->size() - 5), me));
  }
  return unknown();
}

// The answer waits a little for the pages, so that who looks at once finds them there.
Reply Service::takeVersion(const Request& request, const std::string& id) {
  std::string me;
  {
    const std::lock_guard lock(mutex_);
    state_.advance(nowMs());
    const auto token = behind(request.header("authorization"), "Bearer ");
    const Person* person = token ? state_.personOf(*token) : nullptr;
    if (person == nullptr) return errorReply(401, "You're signed out. Sign in again.");
    me = person->email;
    state_.seen(me);
  }
  // Some programs write a line of their own ahead of it.
  if (request.body.substr(0, 1024).find("%PDF-") == std::string::npos) {
    return errorReply(400, "That file is not a PDF.");
  }
  auto upload = uploadOf(request);
  if (!upload) return errorReply(500, upload.error());
  std::unique_lock lock(mutex_);
  if (auto refused = refusedForNow(request)) return *std::move(refused);
  const auto uploaded = state_.upload(id, *std::move(upload), me);
  if (!uploaded) return replyOf(uploaded.error());
  Reply reply = kept(request, jsonReply(VersionAnswer{uploaded->version}));
  lock.unlock();
  uploaded->reading.wait_for(std::chrono::seconds(1));
  return reply;
}

std::expected<Upload, std::string> Service::uploadOf(const Request& request) {
  Upload upload{.size = request.body.size(),
                .filename = decoded(request.header("x-filename")),
                .note = decoded(request.header("x-note"))};
  if (shelf_) {
    const std::string name = newUploadFile();
    if (auto done = shelf_->keepFile(name, request.body); !done) {
      return std::unexpected(done.error());
    }
    upload.path = shelf_->pathOf(name);
    upload.pdf = PdfFile::at(upload.path);
  } else {
    upload.pdf = PdfFile::of(request.body);
  }
  if (!upload.pdf) return std::unexpected("There is no room for that file.");
  return upload;
}

Reply Service::serveTicket(const Request& request, const std::string& id, const std::string& what,
                           const std::string& me) {
  if (request.method == "GET" && what.empty()) {
    std::optional<Int> version;
    if (const auto wanted = request.query.find("v"); wanted != request.query.end()) {
      version = std::strtoll(wanted->second.c_str(), nullptr, 10);
    }
    const auto detail = state_.detailOf(id, version);
    if (!detail) return replyOf(detail);
    const std::string etag = "\"f" + id + "-" + std::to_string(detail->file.rev.value_or(0)) +
                             "-v" + std::to_string(detail->version.value_or(0)) + "-" + me + "-" +
                             std::to_string(state_.starts()) + "\"";
    return tagged(request, etag, [&] { return jsonReply(*detail); });
  }
  if (request.method != "POST") return unknown();
  const auto body = decodeJson(request.body);
  if (!body || body->object() == nullptr) return errorReply(400, "A JSON object was expected.");
  if (what == "status") {
    return replyOf(state_.setStatus(id, textAt(*body, "status").value_or(""), me));
  }
  if (what == "assign") return replyOf(state_.assign(id, textAt(*body, "email").value_or(""), me));
  if (what == "due") return replyOf(state_.setDue(id, *body, me));
  if (what == "track") {
    return replyOf(state_.setTrack(id, textAt(*body, "track").value_or(""), me));
  }
  if (what == "approval") return replyOf(state_.approval(id, *body, me));
  if (what == "share") return replyOf(state_.share(id, *body, me));
  return unknown();
}

}  // namespace vellix::demo
