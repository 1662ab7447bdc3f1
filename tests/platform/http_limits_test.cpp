#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <memory>

#include "platform/http_support.hpp"

namespace vellix {
namespace {

constexpr auto kLanes = {HttpLane::calls, HttpLane::pictures, HttpLane::transfers};

// "/hang" is never answered, "/trickle" comes a byte every 50 ms without end, "/big" is 5 MB.
void serve(LoopbackServer* self, Peer& peer) {
  while (const auto seen = peer.readRequest()) {
    self->note(*seen);
    if (seen->line.find("/hang") != std::string::npos) return peer.waitForClose();
    if (seen->line.find("/trickle") != std::string::npos) {
      peer.send("HTTP/1.1 200 OK\r\nContent-Length: 40\r\n\r\n");
      for (int i = 0; i < 40; ++i) {
        if (!peer.send("x")) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
    } else if (seen->line.find("/big") != std::string::npos) {
      if (!peer.send(answer(200, std::string(5'000'000, 'b')))) return;
    } else if (seen->line.find("/endless") != std::string::npos) {
      peer.send("HTTP/1.1 200 OK\r\n\r\n");
      const std::string chunk(65536, 'e');
      while (peer.send(chunk)) {
      }
      return;
    } else if (!peer.send(answer(200, "pong"))) {
      return;
    }
  }
}

class HttpLimited : public testing::Test {
 protected:
  HttpRequest to(const std::string& path, HttpLane lane, double timeout = 60'000) const {
    HttpRequest out = request("GET", server_.url(path), lane);
    out.timeout = Milliseconds(timeout);
    return out;
  }

  LoopbackServer* self_ = &server_;
  LoopbackServer server_{[this](Peer& peer) { serve(self_, peer); }};
};

TEST_F(HttpLimited, SilenceTimesOut) {
  QtHttp http;
  for (const HttpLane lane : kLanes) {
    const auto result = exchange(http, to("/hang", lane, 200));
    ASSERT_FALSE(result.has_value());
    EXPECT_EQ(result.error(), HttpError::timedOut);
  }
}

TEST_F(HttpLimited, ATrickleIsNoSilence) {
  QtHttp http;
  for (const HttpLane lane : {HttpLane::pictures, HttpLane::transfers}) {
    const auto result = exchange(http, to("/trickle", lane, 600));
    ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
    EXPECT_EQ(result->body.size(), 40U);
  }
}

TEST_F(HttpLimited, ATrickleDoesNotBeatTheDeadlineOfACall) {
  QtHttp http;
  const auto result = exchange(http, to("/trickle", HttpLane::calls, 600));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::timedOut);
}

TEST_F(HttpLimited, HungPicturesHoldUpNeitherCallsNorTransfers) {
  QtHttp http;
  std::vector<Pending<HttpResult>> hung;
  for (int i = 0; i < 8; ++i) hung.push_back(http.send(to("/hang", HttpLane::pictures), {}));
  ASSERT_TRUE(waitUntil([this] { return server_.seen().size() == 6; }));
  EXPECT_TRUE(exchange(http, to("/ping", HttpLane::calls)).has_value());
  EXPECT_TRUE(exchange(http, to("/ping", HttpLane::transfers)).has_value());
  for (const auto& one : hung) EXPECT_FALSE(one.resolved());
}

TEST_F(HttpLimited, TheTimeSpentQueuedIsNotSilence) {
  QtHttp http;
  std::vector<Pending<HttpResult>> hung;
  for (int i = 0; i < 6; ++i) hung.push_back(http.send(to("/hang", HttpLane::pictures, 500), {}));
  const auto last = http.send(to("/ping", HttpLane::pictures, 400), {});
  const auto result = await(last);
  ASSERT_TRUE(result.has_value());
  ASSERT_TRUE(result->has_value()) << static_cast<int>(result->error());
  for (const auto& one : hung) EXPECT_TRUE(waitUntil([&one] { return one.resolved(); }));
}

TEST_F(HttpLimited, StopEndsWhatIsUnderWay) {
  QtHttp http;
  for (const HttpLane lane : kLanes) {
    std::stop_source stop;
    const auto before = server_.seen().size();
    const auto pending = http.send(to("/hang", lane), stop.get_token());
    ASSERT_TRUE(waitUntil([this, before] { return server_.seen().size() > before; }));
    stop.request_stop();
    EXPECT_FALSE(pending.resolved());
    const auto result = await(pending);
    ASSERT_TRUE(result.has_value());
    ASSERT_FALSE(result->has_value());
    EXPECT_EQ(result->error(), HttpError::cancelled);
  }
}

TEST_F(HttpLimited, StopBeforeTheStartSendsNothing) {
  QtHttp http;
  std::stop_source stop;
  stop.request_stop();
  const auto pending = http.send(to("/ping", HttpLane::calls), stop.get_token());
  EXPECT_FALSE(pending.resolved());
  const auto result = await(pending);
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->error(), HttpError::cancelled);
  ASSERT_TRUE(exchange(http, to("/other", HttpLane::calls)).has_value());
  EXPECT_EQ(server_.seen().size(), 1U);
}

TEST_F(HttpLimited, StopOfAQueuedOneLeavesTheOthers) {
  QtHttp http;
  std::vector<Pending<HttpResult>> hung;
  std::stop_source stop;
  for (int i = 0; i < 6; ++i) {
    hung.push_back(http.send(to("/hang", HttpLane::pictures), stop.get_token()));
  }
  std::stop_source stopQueued;
  const auto queued = http.send(to("/queued", HttpLane::pictures), stopQueued.get_token());
  const auto after = http.send(to("/after", HttpLane::pictures), {});
  stopQueued.request_stop();
  const auto result = await(queued);
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->error(), HttpError::cancelled);
  stop.request_stop();
  const auto last = await(after);
  ASSERT_TRUE(last.has_value());
  EXPECT_TRUE(last->has_value());
  for (const auto& seen : server_.seen()) EXPECT_EQ(seen.line.find("/queued"), std::string::npos);
}

TEST_F(HttpLimited, ATooLongAnswerIsStoppedWhileItComes) {
  HttpLimits limits;
  limits.calls = limits.pictures = limits.transfers = 1'000'000;
  QtHttp http(limits);
  for (const HttpLane lane : kLanes) {
    for (const char* path : {"/big", "/endless"}) {
      const auto result = exchange(http, to(path, lane));
      ASSERT_FALSE(result.has_value());
      EXPECT_EQ(result.error(), HttpError::tooLarge);
    }
    EXPECT_TRUE(exchange(http, to("/ping", lane)).has_value());
  }
}

TEST_F(HttpLimited, WithinTheLimitItComesWhole) {
  QtHttp http;
  const auto result = exchange(http, to("/big", HttpLane::transfers));
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->body, std::string(5'000'000, 'b'));
}

TEST_F(HttpLimited, TheEndDoesNotWaitForHungRequests) {
  QElapsedTimer clock;
  std::vector<Pending<HttpResult>> hung;
  {
    QtHttp http;
    for (const HttpLane lane : kLanes) {
      for (int i = 0; i < 8; ++i) hung.push_back(http.send(to("/hang", lane), {}));
    }
    ASSERT_TRUE(waitUntil([this] { return server_.seen().size() == 18; }));
    clock.start();
  }
  EXPECT_LT(clock.elapsed(), 1500);
  QCoreApplication::processEvents();
  for (const auto& one : hung) EXPECT_FALSE(one.resolved());
}

TEST_F(HttpLimited, AStopAfterTheEndOfTheHttpIsHarmless) {
  std::stop_source stop;
  {
    QtHttp http;
    const auto pending = http.send(to("/hang", HttpLane::calls), stop.get_token());
    EXPECT_FALSE(pending.resolved());
  }
  stop.request_stop();
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace vellix
