// What tests may ask of the demo service beside the contract: its log, its state, faults, the
// colleague and the approvers at a chosen moment, checks that do not end, pages with many findings,
// how the worker goes on, people who come and go, and a newer build. A version's PDF,
// "/demo/proof", is made in service.cpp, outside the lock.
#include <vector>

#include "body.hpp"
#include "service.hpp"

namespace vellix::demo {
namespace {

struct Everything {
  std::map<std::string, FileDetail> files;
  Int board_rev = 0;
};
BOOST_DESCRIBE_STRUCT(Everything, (), (files, board_rev))

}  // namespace

Reply Service::serveTests(const Request& request) {
  const bool post = request.method == "POST";
  if (request.path == "/demo/log" && request.method == "GET") {
    const std::lock_guard lock(logMutex_);
    return jsonReply(std::vector<LogEntry>(log_.begin(), log_.end()));
  }
  if (request.path == "/demo/log" && request.method == "DELETE") {
    const std::lock_guard lock(logMutex_);
    logStart_ += log_.size();
    log_.clear();
    return {};
  }
  if (request.path == "/demo/state" && request.method == "GET") {
    Everything all;
    all.board_rev = state_.rev();
    for (const Ticket& ticket : state_.tickets()) {
      if (auto detail = state_.detailOf(ticket.item.id, std::nullopt)) {
        all.files[ticket.item.id] = std::move(*detail);
      }
    }
    return jsonReply(all);
  }
  if (request.path == "/demo/faults" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    if (const auto wrong = faults_.replace(*body)) return errorReply(400, *wrong);
    released_.notify_all();
    return {};
  }
  if (request.path == "/demo/colleague" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const auto done =
        state_.colleagueActs(textAt(*body, "file_id").value_or("salt-text"),
                             textAt(*body, "text").value_or("Had a look at this."),
                             textAt(*body, "by").value_or(kJorvas), textsAt(*body, "tags"));
    return done ? Reply{} : errorReply(done.error().status, done.error().text);
  }
  if (request.path == "/demo/findings" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const auto done = state_.findMore(textAt(*body, "file_id").value_or("salt-text"),
                                      static_cast<Int>(numberAt(*body, "page").value_or(0)),
                                      static_cast<Int>(numberAt(*body, "count").value_or(1)));
    return done ? Reply{} : errorReply(done.error().status, done.error().text);
  }
  if (request.path == "/demo/answers" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const auto done = state_.answerNow(
        textAt(*body, "file_id").value_or(""), textAt(*body, "by").value_or(""),
        textAt(*body, "kind").value_or("approved"), textAt(*body, "note").value_or(""));
    return done ? Reply{} : errorReply(done.error().status, done.error().text);
  }
  if (request.path == "/demo/waits" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    state_.setWaits(flagAt(*body, "approvers"), flagAt(*body, "checks"));
    return {};
  }
  if (request.path == "/demo/worker" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const auto done =
        state_.setWorker(textAt(*body, "hold"), textAt(*body, "fail"), flagAt(*body, "silent"));
    return done ? Reply{} : errorReply(done.error().status, done.error().text);
  }
  if (request.path == "/demo/feed" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const auto wrong = feed_.replace(*body);
    return wrong ? errorReply(400, *wrong) : Reply{};
  }
  if (request.path == "/demo/people" && post) {
    const auto body = decodeJson(request.body);
    if (!body) return errorReply(400, "That is not JSON.");
    const std::string email = textAt(*body, "email").value_or("");
    const auto done = flagAt(*body, "gone").value_or(false)
                          ? state_.removePerson(email)
                          : state_.addPerson(email, textAt(*body, "name").value_or(""),
                                             flagAt(*body, "counted").value_or(true));
    return done ? Reply{} : errorReply(done.error().status, done.error().text);
  }
  return errorReply(404, "There is nothing here.");
}

}  // namespace vellix::demo
