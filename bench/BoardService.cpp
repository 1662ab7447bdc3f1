#include "BoardService.hpp"

#include <httplib.h>

#include <algorithm>

#include "records/json.hpp"

namespace vellix::bench {
namespace {

// Spelt so the library does not compress it, which takes it half a minute for a large board.
constexpr const char* kJson = "application/json; charset=utf-8";
constexpr const char* kHost = "127.0.0.1";

// The tag goes out with it; false when who asks holds it already.
bool isNews(const httplib::Request& request, httplib::Response& response, Int rev) {
  const std::string tag = "\"" + std::to_string(rev) + "\"";
  response.set_header("ETag", tag);
  if (request.get_header_value("If-None-Match") != tag) return true;
  response.status = 304;
  return false;
}

}  // namespace

BoardService::BoardService(BoardState board, std::map<std::string, FileDetail> details,
                           std::string picture)
    : board_(std::move(board)),
      details_(std::move(details)),
      server_(std::make_unique<httplib::Server>()) {
  const auto by = [this](void (BoardService::*work)(const httplib::Request&, httplib::Response&)) {
    return [this, work](const httplib::Request& request, httplib::Response& response) {
      const std::lock_guard lock(mutex_);
      (this->*work)(request, response);
    };
  };
  server_->Get("/api/state", by(&BoardService::tellBoard));
  server_->Get(R"(/api/files/([^/]+))", by(&BoardService::tellDetail));
  server_->Post(R"(/api/findings/([^/]+))", by(&BoardService::decide));
  server_->Get("/api/stats", [](const httplib::Request&, httplib::Response& response) {
    response.set_content(R"({"at":1,"users":{}})", kJson);
  });
  server_->Get("/api/blob/(.+)", [picture = std::move(picture)](const httplib::Request&,
                                                                httplib::Response& response) {
    response.set_content(picture, "image/jpeg");
  });
  server_->set_tcp_nodelay(true);
  const int port = server_->bind_to_any_port(kHost);
  if (port <= 0) return;
  address_ = std::string("http://") + kHost + ":" + std::to_string(port);
  thread_ = std::thread([this] { server_->listen_after_bind(); });
}

BoardService::~BoardService() {
  server_->stop();
  if (thread_.joinable()) thread_.join();
}

void BoardService::change(const std::function<void(BoardState&)>& work) {
  const std::lock_guard lock(mutex_);
  work(board_);
  ++board_.rev;
  encoded_.clear();
}

void BoardService::tellBoard(const httplib::Request& request, httplib::Response& response) {
  if (!isNews(request, response, board_.rev)) return;
  if (encoded_.empty()) encoded_ = encode(board_).value_or("");
  response.set_content(encoded_, kJson);
}

void BoardService::tellDetail(const httplib::Request& request, httplib::Response& response) {
  const auto detail = details_.find(request.matches[1]);
  if (detail == details_.end()) {
    response.status = 404;
  } else if (isNews(request, response, detail->second.file.rev.value_or(0))) {
    response.set_content(encode(detail->second).value_or(""), kJson);
  }
}

void BoardService::decide(const httplib::Request& request, httplib::Response& response) {
  const auto body = decodeJson(request.body);
  const Json* state = body ? body->find("state") : nullptr;
  const std::string id = request.matches[1];
  for (auto& [ticket, detail] : details_) {
    const auto finding = std::ranges::find(detail.findings, id, &Finding::id);
    if (!state || !state->text() || finding == detail.findings.end()) continue;
    finding->state = *state->text();
    finding->state_by = board_.me.email;
    changed(ticket);
    response.set_content("{}", kJson);
    return;
  }
  response.status = 404;
}

void BoardService::changed(const std::string& ticket) {
  FileItem& detailed = details_.at(ticket).file;
  detailed.rev = detailed.rev.value_or(0) + 1;
  const auto listed = std::ranges::find(board_.files, ticket, &FileItem::id);
  if (listed != board_.files.end()) listed->rev = detailed.rev;
  ++board_.rev;
  encoded_.clear();
}

}  // namespace vellix::bench
