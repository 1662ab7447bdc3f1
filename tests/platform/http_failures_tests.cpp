#include <gmock/gmock.h>

#include "platform/http_support.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

// Sends the same bytes after every request to "/bad" and closes; "/ping" is answered well.
LoopbackServer::Serve badly(const std::string& bytes) {
  return [bytes](Peer& peer) {
    while (const auto seen = peer.readRequest()) {
      if (seen->line.find("/ping") == std::string::npos) {
        peer.send(bytes);
        return;
      }
      peer.send(answer(200, "pong"));
    }
  };
}

struct Bad {
  const char* name;
  std::string bytes;
  HttpError error;
};
BOOST_DESCRIBE_STRUCT(Bad, (), (name))

class HttpBad : public testing::TestWithParam<Bad> {};

TEST_P(HttpBad, IsTheFailureThatItIs) {
  LoopbackServer server(badly(GetParam().bytes));
  QtHttp http;
  for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures, HttpLane::transfers}) {
    const auto result = exchange(http, request("GET", server.url("/bad"), lane));
    ASSERT_FALSE(result.has_value()) << result->status << ' ' << result->body;
    EXPECT_EQ(result.error(), GetParam().error) << static_cast<int>(result.error());
    const auto next = exchange(http, request("GET", server.url("/ping"), lane));
    ASSERT_TRUE(next.has_value());
    EXPECT_EQ(next->body, "pong");
  }
}

INSTANTIATE_TEST_SUITE_P(
    , HttpBad,
    testing::Values(Bad{"cutBody", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf",
                        HttpError::connectionLost},
                    Bad{"cutErrorBody", "HTTP/1.1 500 No\r\nContent-Length: 100\r\n\r\nhalf",
                        HttpError::connectionLost},
                    Bad{"cutHead", "HTTP/1.1 200 OK\r\nContent-Le", HttpError::connectionLost},
                    Bad{"silence", "", HttpError::connectionLost}),
    [](const auto& tested) { return tested.param.name; });

// The library tells what is no HTTP from a lost connection only sometimes.
TEST(HttpFailure, WhatIsNoHttpIsNoAnswer) {
  for (const char* bytes : {"\x16\x03\x01\x02 this is no HTTP at all\r\n\r\n",
                            "220 mail.example ESMTP ready\r\n", "HTTP/1.1 abc Word\r\n\r\n"}) {
    LoopbackServer server(badly(bytes));
    QtHttp http;
    const auto result = exchange(http, request("GET", server.url("/bad")));
    ASSERT_FALSE(result.has_value()) << bytes;
    EXPECT_TRUE(result.error() == HttpError::notHttp ||
                result.error() == HttpError::connectionLost);
    EXPECT_TRUE(exchange(http, request("GET", server.url("/ping"))).has_value());
  }
}

// A broken or missing chunk may pass for the end: then what came before it is all there is.
TEST(HttpFailure, CutChunkIsAnErrorOrNotTheWhole) {
  for (const char* chunk : {"10\r\nhalf", "4\r\nhalf\r\n", "zz\r\nhalf\r\n"}) {
    LoopbackServer server(
        badly(std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n") + chunk));
    QtHttp http;
    const auto result = exchange(http, request("GET", server.url("/bad")));
    EXPECT_TRUE(!result || result->body.size() <= 4U);
    EXPECT_TRUE(exchange(http, request("GET", server.url("/ping"))).has_value());
  }
}

TEST(HttpFailure, NobodyListensIsNeitherOfflineNorLost) {
  std::string url;
  {
    const LoopbackServer server([](Peer&) {});
    url = server.url();
  }
  QtHttp http;
  const auto result = exchange(http, request("GET", url));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::other);
}

TEST(HttpFailure, AfterAFloodOfHeadersTheNextRequestWorks) {
  LoopbackServer server([](Peer& peer) {
    const auto seen = peer.readRequest();
    if (!seen) return;
    if (seen->line.find("/ping") != std::string::npos) {
      peer.send(answer(200, "pong"));
      return;
    }
    peer.send("HTTP/1.1 200 OK\r\n");
    std::string many;
    for (int i = 0; i < 1000; ++i) many += "x-flood-" + std::to_string(i) + ": aaaaaaaaaaaaaaa\r\n";
    for (int i = 0; i < 400; ++i) {
      if (!peer.send(many)) return;
    }
    peer.waitForClose();
  });
  QtHttp http;
  for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures, HttpLane::transfers}) {
    auto flooded = request("GET", server.url("/flood"), lane);
    flooded.timeout = Milliseconds(700);
    EXPECT_FALSE(exchange(http, flooded).has_value());
    const auto next = exchange(http, request("GET", server.url("/ping"), lane));
    ASSERT_TRUE(next.has_value()) << static_cast<int>(next.error());
    EXPECT_EQ(next->body, "pong");
  }
}

TEST(HttpFailure, CutGzipIsAnErrorOrNotTheWhole) {
  std::string packed(
      "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x4b\x4c\x1c\x05\xa3\x60\x14\x8c\x82\x51\x30\x0a"
      "\x46\xc1\x50\x07\x00\x39\x3e\x13\xa8\xd0\x07\x00\x00",
      35);
  packed.resize(15);
  LoopbackServer server(badly(answer(200, packed, "Content-Encoding: gzip\r\n")));
  QtHttp http;
  const auto result = exchange(http, request("GET", server.url("/bad")));
  EXPECT_TRUE(!result || result->body.size() < 2000);
}

}  // namespace
}  // namespace vellix
