#include <gtest/gtest.h>

#include "support/desk.hpp"

namespace vellix {
namespace {

// Answers every poll with this board and an Etag, 304 when the Etag is sent back.
void serve(Desk& desk, const BoardState& board, std::string tag = "\"b1\"") {
  desk.http.automatic = [body = jsonOf(board), tag](const ScriptedHttp::Exchange& exchange)
      -> std::optional<HttpResult> {
    if (exchange.line() != "GET api/state") return std::nullopt;
    if (exchange.header("If-None-Match") == tag) return answerOf(304);
    return answerOf(200, body, tag);
  };
}

TEST(RefreshLoop, FetchesTheBoardAtOnceWithoutDelay) {
  Desk desk;
  serve(desk, boardOf({ticketOf("t1")}));
  desk.store().startLoop();
  desk.time.run();
  ASSERT_TRUE(desk.store().board());
  EXPECT_EQ(desk.store().board()->files.size(), 1U);
  EXPECT_EQ(desk.store().etag, "\"b1\"");
  EXPECT_TRUE(desk.store().lastOK());
}

struct Pace {
  const char* name;
  std::optional<Job> job;
  bool seen;
  double milliseconds;
};

class RefreshLoopPaces : public testing::TestWithParam<Pace> {};

TEST_P(RefreshLoopPaces, PausesAsLongAsTold) {
  Desk desk;
  auto board = boardOf({});
  if (GetParam().job) board.jobs.push_back(*GetParam().job);
  serve(desk, board);
  desk.windows.isSeen = GetParam().seen;
  desk.store().startLoop();
  desk.time.run();
  ASSERT_EQ(desk.time.pauses.size(), 1U);
  EXPECT_EQ(desk.time.pauses[0].count(), GetParam().milliseconds);
  desk.time.advance(desk.time.pauses[0] - Milliseconds{1});
  EXPECT_EQ(desk.http.count("GET api/state"), 1U);
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(desk.http.count("GET api/state"), 2U);
}

Job jobOf(std::string status) {
  return {.id = "j", .kind = "report", .status = std::move(status)};
}

INSTANTIATE_TEST_SUITE_P(
    All, RefreshLoopPaces,
    testing::Values(Pace{"Running", jobOf("running"), false, 3'000},
                    Pace{"Queued", jobOf("queued"), true, 3'000},
                    Pace{"EndedAndSeen", jobOf("done"), true, 5'000},
                    Pace{"Seen", std::nullopt, true, 5'000},
                    Pace{"Unseen", std::nullopt, false, 45'000}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
