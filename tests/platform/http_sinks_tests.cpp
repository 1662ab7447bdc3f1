// Bodies that go into a sink as they come.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "platform/MemoryPeak.hpp"
#include "platform/http_support.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

constexpr std::size_t kReport = 200'000'000;  // bytes

// Keeps what it is given, up to so many bytes.
class Basin : public HttpSink {
 public:
  explicit Basin(std::size_t room = 10'000'000) : room_(room) {}
  bool write(std::string_view bytes) override {
    ++pieces;
    longest = std::max(longest, bytes.size());
    thread = std::this_thread::get_id();
    if (held.size() + bytes.size() > room_) return false;
    held += bytes;
    return true;
  }

  std::string held;
  int pieces = 0;
  std::size_t longest = 0;
  std::thread::id thread;

 private:
  const std::size_t room_;
};

// Forgets what it is given, but for how much it was and what it came to.
class Drain : public HttpSink {
 public:
  bool write(std::string_view bytes) override {
    for (const char c : bytes) sum = sum * 31 + static_cast<unsigned char>(c);
    count += bytes.size();
    return true;
  }
  std::size_t count = 0;
  std::uint64_t sum = 0;
};

class HttpIntoASink : public testing::Test {
 protected:
  static HttpRequest into(std::shared_ptr<HttpSink> sink, const std::string& url,
                          HttpLane lane = HttpLane::transfers) {
    HttpRequest out = request("GET", url, lane);
    out.sink = std::move(sink);
    return out;
  }
  // Sends the same to whoever asks, and closes.
  static LoopbackServer::Serve once(const std::string& bytes) {
    return [bytes](Peer& peer) {
      if (peer.readRequest()) peer.send(bytes);
    };
  }
};

TEST_F(HttpIntoASink, TheBodyComesWholeAndStaysOutOfTheResponse) {
  std::string body;
  for (int i = 0; i < 3'000'000; ++i) body += static_cast<char>(i * i % 251);
  for (const int status : {200, 203, 299}) {
    for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures, HttpLane::transfers}) {
      LoopbackServer server(once(answer(status, body, "X-Name: a\r\n")));
      const auto basin = std::make_shared<Basin>();
      QtHttp http;
      const auto result = exchange(http, into(basin, server.url(), lane));
      ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
      EXPECT_EQ(result->status, status);
      EXPECT_EQ(result->header("x-name"), "a");
      EXPECT_EQ(result->body, "");
      EXPECT_EQ(basin->held, body);
      EXPECT_GT(basin->pieces, 10) << "as it comes";
      EXPECT_LE(basin->longest, 65'536U);
      EXPECT_NE(basin->thread, std::this_thread::get_id());
      EXPECT_EQ(basin.use_count(), 1) << "let go with the end of the exchange";
    }
  }
}

TEST_F(HttpIntoASink, WhatHasNoBodyPutsNothingIntoIt) {
  for (const auto* head :
       {"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", "HTTP/1.1 204 None\r\n\r\n",
        "HTTP/1.1 304 Same\r\nContent-Length: 900\r\n\r\n"}) {
    LoopbackServer server(once(head));
    const auto basin = std::make_shared<Basin>();
    QtHttp http;
    ASSERT_TRUE(exchange(http, into(basin, server.url())).has_value()) << head;
    EXPECT_EQ(basin->pieces, 0) << head;
  }
}

TEST_F(HttpIntoASink, ARefusalKeepsItsWords) {
  for (const int status : {400, 401, 404, 500, 503}) {
    LoopbackServer server(once(answer(status, R"({"error":"No report."})")));
    const auto basin = std::make_shared<Basin>();
    QtHttp http;
    const auto result = exchange(http, into(basin, server.url()));
    ASSERT_TRUE(result.has_value()) << status;
    EXPECT_EQ(result->status, status);
    EXPECT_EQ(result->body, R"({"error":"No report."})");
    EXPECT_EQ(basin->pieces, 0) << status;
  }
}

TEST_F(HttpIntoASink, ALongRefusalStillEndsWhereItsBoundIs) {
  LoopbackServer server(once(answer(500, std::string(200'000, 'e'))));
  const auto basin = std::make_shared<Basin>();
  QtHttp http;
  const auto result = exchange(http, into(basin, server.url()));
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->body, std::string(65'536, 'e'));
  EXPECT_EQ(basin->pieces, 0);
}

TEST_F(HttpIntoASink, OneThatTakesNoMoreEndsIt) {
  std::atomic<bool> gone = false;
  LoopbackServer server([&gone](Peer& peer) {
    if (!peer.readRequest()) return;
    peer.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
    const std::string chunk = "10000\r\n" + std::string(65'536, 'e') + "\r\n";
    for (int i = 0; i < 100'000 && !gone; ++i) gone = !peer.send(chunk);
  });
  const auto basin = std::make_shared<Basin>(1'000'000);
  QtHttp http;
  const auto result = exchange(http, into(basin, server.url()));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::notKept);
  EXPECT_TRUE(waitUntil([&gone] { return gone.load(); })) << "the rest need not come";
  EXPECT_LE(basin->held.size(), 1'000'000U);
  EXPECT_EQ(basin.use_count(), 1);
  LoopbackServer next(once(answer(200, "pong")));
  const auto after = exchange(http, request("GET", next.url(), HttpLane::transfers));
  ASSERT_TRUE(after.has_value());
  EXPECT_EQ(after->body, "pong");
}

struct Cut {
  const char* name;
  const char* bytes;
};
BOOST_DESCRIBE_STRUCT(Cut, (), (name))

class HttpCutIntoASink : public HttpIntoASink, public testing::WithParamInterface<Cut> {};

TEST_P(HttpCutIntoASink, IsNoWhole) {
  LoopbackServer server(once(GetParam().bytes));
  const auto basin = std::make_shared<Basin>();
  QtHttp http;
  const auto result = exchange(http, into(basin, server.url()));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::connectionLost);
  EXPECT_EQ(basin.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    , HttpCutIntoASink,
    testing::Values(Cut{"inItsMidst", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"},
                    Cut{"ahead", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n"},
                    Cut{"byOne", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhalf"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(HttpIntoASink, HasABoundOfItsOwn) {
  HttpLimits limits;
  limits.transfers.answer = 1'000;
  limits.transfers.sunk = 3'000'000;
  QtHttp http(limits);
  for (const auto& [size, whole] : {std::pair{3'000'000, true}, {3'000'001, false}}) {
    const std::string body(static_cast<std::size_t>(size), 'b');
    // Told ahead, and only as it comes.
    LoopbackServer told(once(answer(200, body)));
    LoopbackServer untold(once("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body));
    for (const auto* server : {&told, &untold}) {
      const auto basin = std::make_shared<Basin>();
      const auto result = exchange(http, into(basin, server->url()));
      ASSERT_EQ(result.has_value(), whole);
      EXPECT_LE(basin->held.size(), 3'000'000U);
      if (!whole) {
        EXPECT_EQ(result.error(), HttpError::tooLarge);
      }
      if (!whole && server == &told) {
        EXPECT_EQ(basin->pieces, 0);
      }
    }
  }
  LoopbackServer plain(once(answer(200, std::string(2'000, 'b'))));
  EXPECT_FALSE(exchange(http, request("GET", plain.url(), HttpLane::transfers)).has_value());
  EXPECT_EQ(HttpLimits{}.transfers.sunk, std::int64_t{2} << 30);
}

TEST_F(HttpIntoASink, OfARedirectOnlyWhatItLeadsToComes) {
  LoopbackServer server([](Peer& peer) {
    while (const auto seen = peer.readRequest()) {
      peer.send(seen->line.starts_with("GET /old")
                    ? answer(302, "it has moved", "Location: /new\r\n")
                    : answer(200, "here"));
    }
  });
  const auto basin = std::make_shared<Basin>();
  QtHttp http;
  ASSERT_TRUE(exchange(http, into(basin, server.url("/old"))).has_value());
  EXPECT_EQ(basin->held, "here");
}

TEST_F(HttpIntoASink, AReaderSeesTheHeadAlone) {
  LoopbackServer server(once(answer(200, "all of it")));
  const auto basin = std::make_shared<Basin>();
  QtHttp http;
  auto asked = into(basin, server.url());
  std::string seen = "not called";
  asked.reader = [&seen](HttpResponse& response) { seen = response.body; };
  ASSERT_TRUE(exchange(http, asked).has_value());
  EXPECT_EQ(seen, "");
  EXPECT_EQ(basin->held, "all of it");
}

TEST_F(HttpIntoASink, AStopLetsItGo) {
  std::atomic<bool> begun = false;
  LoopbackServer server([&begun](Peer& peer) {
    if (!peer.readRequest()) return;
    peer.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    begun = true;
    peer.waitForClose();
  });
  const auto basin = std::make_shared<Basin>();
  QtHttp http;
  std::stop_source stop;
  const auto pending = http.send(into(basin, server.url()), stop.get_token());
  ASSERT_TRUE(waitUntil([&begun] { return begun.load(); }));
  stop.request_stop();
  EXPECT_EQ(await(pending)->error(), HttpError::cancelled);
  EXPECT_TRUE(waitUntil([&basin] { return basin.use_count() == 1; }));
}

TEST_F(HttpIntoASink, TakesLittleMemoryHoweverLongItIs) {
  std::uint64_t sum = 0;
  LoopbackServer server([&sum](Peer& peer) {
    while (const auto seen = peer.readRequest()) {
      if (seen->line.find("/ping") != std::string::npos) {
        peer.send(answer(200, "pong"));
        continue;
      }
      peer.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kReport) + "\r\n\r\n");
      for (std::size_t sent = 0; sent < kReport; sent += 100'000) {
        std::string piece(100'000, static_cast<char>(sent / 100'000));
        for (const char c : piece) sum = sum * 31 + static_cast<unsigned char>(c);
        if (!peer.send(piece)) return;
      }
    }
  });
  QtHttp http;
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"), HttpLane::transfers)));
  const auto drain = std::make_shared<Drain>();
  const MemoryPeak peak;
  const auto result = exchange(http, into(drain, server.url("/report")));
  ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
  EXPECT_LT(peak.kilobytes(), 16 * 1'024);
  EXPECT_EQ(drain->count, kReport);
  EXPECT_EQ(drain->sum, sum);
}

}  // namespace
}  // namespace vellix
