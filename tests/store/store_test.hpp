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

Job jobOf(std::string status, std::string kind = "report");
Page pageOf(Int i);
std::vector<Page> pagesOf(Int count);
FileItem ticketAt(std::string id, Int rev, std::optional<Int> version = std::nullopt);
FileDetail detailOf(FileItem file, std::vector<Finding> findings = {});

class StoreTest : public testing::Test {
 public:
  ~StoreTest() override;

 protected:
  explicit StoreTest(std::optional<std::string> token = "token-1");

  Desk desk;
  Routes routes{desk.http};

  Store& store();
  void serveBoard(const BoardState& board, std::string tag = "\"b1\"");
  void serveDetail(const FileDetail& detail, std::string tag = "\"d1\"");
  // Starts a poll and lets everything settle that can.
  void poll();
  void load(const FileItem& file, bool force = false);
  void answer(std::size_t index, HttpResult result);
  std::size_t polls();
  std::size_t detailRequests(const std::string& id = "t1");
  std::vector<std::string> lines();
};

}  // namespace vellix
