#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <atomic>
#include <future>
#include <thread>
#include <utility>

#include "platform/http_support.hpp"

namespace vellix {
namespace {

constexpr auto kLanes = {HttpLane::calls, HttpLane::pictures, HttpLane::transfers};

constexpr std::int64_t kMega = 1'000'000;
// What the connection itself may hold of what nobody has read: Linux lets a window grow to 32 MB
// and more, and a busy machine lets it fill before the reader hangs up. All that is sent is ten
// times it.
constexpr std::int64_t kOnItsWay = 100 * kMega;

// Sends without end until the client is gone, and counts the bytes.
void sendEndlessly(Peer& peer, const std::string& head, std::atomic<std::int64_t>& sent) {
  if (!peer.send(head)) return;
  const std::string chunk = "10000\r\n" + std::string(65536, 'e') + "\r\n";
  while (sent < 1'000 * kMega && peer.send(chunk)) sent += 65536;
}

// "/hang" is never answered, "/trickle" comes a byte every 50 ms for 2 s, "/big" is 5 MB, and
// "/endless" and "/refused" have no end.
void serve(LoopbackServer* self, std::atomic<std::int64_t>& sent, Peer& peer) {
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
      return sendEndlessly(peer, "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", sent);
    } else if (seen->line.find("/refused") != std::string::npos) {
      const auto status = seen->line.substr(seen->line.find("/refused") + 8, 3);
      return sendEndlessly(peer, "HTTP/1.1 " + status + " No\r\nTransfer-Encoding: chunked\r\n\r\n",
                           sent);
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

  std::atomic<std::int64_t> sent_{0};
  LoopbackServer* self_ = &server_;
  LoopbackServer server_{[this](Peer& peer) { serve(self_, sent_, peer); }};
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
  for (const HttpLane lane : kLanes) {
    const auto result = exchange(http, to("/trickle", lane, 600));
    ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
    EXPECT_EQ(result->body.size(), 40U);
  }
}

TEST_F(HttpLimited, ATrickleEndsWhereTheWholeHasALimit) {
  HttpLimits limits;
  limits.calls.whole = limits.pictures.whole = Milliseconds(600);
  QtHttp http(limits);
  for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures}) {
    const auto result = exchange(http, to("/trickle", lane));
    ASSERT_FALSE(result.has_value());
    EXPECT_EQ(result.error(), HttpError::timedOut);
  }
  EXPECT_TRUE(exchange(http, to("/trickle", HttpLane::transfers)).has_value());
}

TEST_F(HttpLimited, NoCallTricklesForEver) {
  EXPECT_EQ(HttpLimits{}.calls.whole, Milliseconds(600'000));
  EXPECT_EQ(HttpLimits{}.pictures.whole, Milliseconds(600'000));
}

TEST_F(HttpLimited, HungPicturesHoldUpNeitherCallsNorTransfers) {
  QtHttp http;
  std::vector<Pending<HttpResult>> hung;
  hung.reserve(8);
  for (int i = 0; i < 8; ++i) hung.push_back(http.send(to("/hang", HttpLane::pictures), {}));
  ASSERT_TRUE(waitUntil([this] { return server_.seen().size() == 6; }));
  EXPECT_TRUE(exchange(http, to("/ping", HttpLane::calls)).has_value());
  EXPECT_TRUE(exchange(http, to("/ping", HttpLane::transfers)).has_value());
  for (const auto& one : hung) EXPECT_FALSE(one.resolved());
}

TEST_F(HttpLimited, TheTimeSpentQueuedCountsForNothing) {
  HttpLimits limits;
  limits.calls.whole = limits.pictures.whole = Milliseconds(600);
  QtHttp http(limits);
  for (const HttpLane lane : kLanes) {
    std::vector<Pending<HttpResult>> hung;
    hung.reserve(6);
    for (int i = 0; i < 6; ++i) hung.push_back(http.send(to("/hang", lane, 500), {}));
    const auto last = http.send(to("/ping", lane, 400), {});
    const auto result = await(last);
    ASSERT_TRUE(result.has_value());
    ASSERT_TRUE(result->has_value()) << static_cast<int>(result->error());
    for (const auto& one : hung) EXPECT_TRUE(waitUntil([&one] { return one.resolved(); }));
  }
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
  hung.reserve(6);
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
  limits.calls.answer = limits.pictures.answer = limits.transfers.answer = kMega;
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

TEST_F(HttpLimited, TheLimitsAreThoseOfRealAnswers) {
  const HttpLimits limits;
  EXPECT_EQ(limits.calls.answer, 32 << 20) << "10,000 tickets are 11 MB";
  EXPECT_EQ(limits.pictures.answer, kMostEncoded) << "what is larger is not decoded";
  EXPECT_GE(limits.transfers.answer, 200 << 20) << "a report";
  EXPECT_EQ(limits.calls.refusal, 64 << 10);
}

// However fast it comes and however long the reading thread is held up: what has not been read
// waits with its sender.
TEST_F(HttpLimited, WhatIsNotReadStaysWithItsSender) {
  HttpLimits limits;
  limits.calls.answer = limits.pictures.answer = limits.transfers.answer = 500 * kMega;
  QtHttp http(limits);
  for (const HttpLane lane : kLanes) {
    sent_ = 0;
    std::stop_source stop;
    const auto endless = http.send(to("/endless", lane), stop.get_token());
    std::promise<void> go;
    auto held = to("/ping", HttpLane::calls);
    std::atomic<bool> holding = false;
    held.reader = [&, going = go.get_future().share()](HttpResponse&) {
      holding = true;
      going.wait();
    };
    const auto holder = http.send(held, {});
    ASSERT_TRUE(waitUntil([&] { return holding.load(); }));
    const std::int64_t read = sent_;
    // The sender is stuck once nothing more leaves it.
    std::int64_t before = -1;
    waitUntil([&] { return std::exchange(before, sent_.load()) == sent_; }, 3'000);
    EXPECT_LT(sent_ - read, kOnItsWay);
    stop.request_stop();
    go.set_value();
    EXPECT_TRUE(await(endless) && await(holder));
  }
}

TEST_F(HttpLimited, WhatSaysThatItIsTooLongNeedNotCome) {
  LoopbackServer server([](Peer& peer) {
    if (!peer.readRequest()) return;
    peer.send("HTTP/1.1 200 OK\r\nContent-Length: 2000000\r\n\r\n");
    peer.waitForClose();
  });
  HttpLimits limits;
  limits.calls.answer = limits.pictures.answer = limits.transfers.answer = kMega;
  QtHttp http(limits);
  for (const HttpLane lane : kLanes) {
    const auto result = exchange(http, request("GET", server.url(), lane));
    ASSERT_FALSE(result.has_value());
    EXPECT_EQ(result.error(), HttpError::tooLarge);
  }
}

TEST_F(HttpLimited, OfARefusalOnlyTheBeginningIsRead) {
  QtHttp http;
  for (const HttpLane lane : kLanes) {
    for (const int status : {400, 404, 500}) {
      sent_ = 0;
      const auto result = exchange(http, to("/refused" + std::to_string(status), lane));
      ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
      EXPECT_EQ(result->status, status);
      EXPECT_EQ(result->body, std::string(65536, 'e'));
      EXPECT_TRUE(exchange(http, to("/ping", lane)).has_value());
      EXPECT_LT(sent_, kOnItsWay);
    }
  }
}

TEST_F(HttpLimited, ARefusalWithinItsLimitComesWhole) {
  const std::string body(65536, 'r');
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(500, body)));
  self = &server;
  QtHttp http;
  const auto result = exchange(http, request("POST", server.url()));
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->body, body);
}

std::string packed(const std::string& text) {
  // Behind the length that the library puts in front.
  return qCompress(QByteArray::fromStdString(text)).mid(4).toStdString();
}

TEST_F(HttpLimited, WhatIsPackedCountsAsItUnpacks) {
  const std::string body = packed(std::string(40 * kMega, 'p'));
  ASSERT_LT(body.size(), 100'000U);
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, body, "Content-Encoding: deflate\r\n")));
  self = &server;
  QtHttp http;
  const auto tooLong = exchange(http, request("GET", server.url()));
  ASSERT_FALSE(tooLong.has_value());
  // The library counts too, and may be the first to say so.
  EXPECT_TRUE(tooLong.error() == HttpError::tooLarge || tooLong.error() == HttpError::other);

  const std::string smaller = packed(std::string(30 * kMega, 'p'));
  LoopbackServer* next = nullptr;
  LoopbackServer allowed(always(next, answer(200, smaller, "Content-Encoding: deflate\r\n")));
  next = &allowed;
  const auto whole = exchange(http, request("GET", allowed.url()));
  ASSERT_TRUE(whole.has_value()) << static_cast<int>(whole.error());
  EXPECT_EQ(whole->body.size(), static_cast<std::size_t>(30 * kMega));
}

TEST_F(HttpLimited, AReaderTakesTheAnswerOffTheMainThread) {
  QtHttp http;
  for (const HttpLane lane : kLanes) {
    auto asked = to("/big", lane);
    std::string taken;
    std::thread::id reader;
    asked.reader = [&](HttpResponse& response) {
      taken = std::exchange(response.body, {});
      reader = std::this_thread::get_id();
    };
    const auto result = exchange(http, asked);
    ASSERT_TRUE(result.has_value());
    EXPECT_TRUE(result->body.empty());
    EXPECT_EQ(taken, std::string(5 * kMega, 'b'));
    EXPECT_NE(reader, std::this_thread::get_id());
  }
}

TEST_F(HttpLimited, AFailureHasNoReader) {
  QtHttp http;
  auto asked = to("/hang", HttpLane::calls, 200);
  bool read = false;
  asked.reader = [&read](HttpResponse&) { read = true; };
  EXPECT_FALSE(exchange(http, asked).has_value());
  EXPECT_FALSE(read);
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
