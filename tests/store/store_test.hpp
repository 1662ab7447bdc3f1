// The ground of the Store's tests: a desk whose service answers by routes.
#pragma once

#include <gtest/gtest.h>

#include "support/awaiting.hpp"
#include "support/desk.hpp"
#include "support/routes.hpp"

namespace vellix {

inline constexpr const char* kStateLine = "GET api/state";
inline constexpr const char* kOfflineText =
    "This Mac is offline. Vellix will catch up when it's back.";
inline constexpr const char* kUnreachableText =
    "Can't reach the Vellix server right now. Trying again…";
inline constexpr const char* kUnreadableText = "Can't reach the Vellix server right now.";
inline constexpr const char* kRefusedText = "The server didn't take that. Try again in a moment.";
inline constexpr const char* kSignedOutText = "You're signed out. Sign in again.";

inline Job jobOf(std::string status, std::string kind = "report") {
  return {.id = "j", .kind = std::move(kind), .status = std::move(status)};
}

inline Page pageOf(Int i) {
  Page page;
  page.i = i;
  return page;
}

inline std::vector<Page> pagesOf(Int count) {
  std::vector<Page> pages;
  pages.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) pages.push_back(pageOf(i));
  return pages;
}

inline FileItem ticketAt(std::string id, Int rev, std::optional<Int> version = std::nullopt) {
  FileItem file = ticketOf(std::move(id));
  file.rev = rev;
  file.version = version;
  return file;
}

inline FileDetail detailOf(FileItem file, std::vector<Finding> findings = {}) {
  FileDetail detail;
  detail.version = file.version;
  detail.file = std::move(file);
  detail.findings = std::move(findings);
  return detail;
}

class StoreTest : public testing::Test {
 protected:
  explicit StoreTest(std::optional<std::string> token = "token-1") : desk(std::move(token)) {}

  Desk desk;
  Routes routes{desk.http};

  Store& store() { return desk.store(); }
  void serveBoard(const BoardState& board, std::string tag = "\"b1\"") {
    routes.serve(kStateLine, jsonOf(board), std::move(tag));
  }
  void serveDetail(const FileDetail& detail, std::string tag = "\"d1\"") {
    routes.serve("GET api/files/" + detail.file.id, jsonOf(detail), std::move(tag));
  }
  // Starts a poll and lets everything settle that can.
  void poll() {
    desk.tasks.start(store().refresh());
    desk.time.run();
  }
  void load(const FileItem& file, bool force = false) {
    desk.tasks.start(store().loadDetail(file, force));
    desk.time.run();
  }
  void answer(std::size_t index, HttpResult result) {
    desk.http.answer(index, std::move(result));
    desk.time.run();
  }
  std::size_t polls() { return desk.http.count(kStateLine); }
  std::size_t detailRequests(const std::string& id = "t1") {
    return desk.http.count("GET api/files/" + id);
  }
  std::vector<std::string> lines() {
    std::vector<std::string> all;
    all.reserve(desk.http.exchanges.size());
    for (const auto& exchange : desk.http.exchanges) all.push_back(exchange.line());
    return all;
  }
};

}  // namespace vellix
