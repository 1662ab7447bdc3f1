#include <gmock/gmock.h>

#include "platform/http_support.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

// Counts what was accepted, and answers only what is sent to "/ping".
struct ClosingServer {
  enum class Manner { afterRequest, afterHead, afterConnect };

  explicit ClosingServer(Manner manner)
      : server([this, manner](Peer& peer) { serve(peer, manner); }) {}

  void serve(Peer& peer, Manner manner) {
    while (auto seen = peer.readHead()) {
      server.note(*seen);
      if (seen->line.starts_with("GET /ping")) {
        peer.send(answer(200, "pong"));
        continue;
      }
      if (manner == Manner::afterRequest) {
        const auto length = std::stoul(seen->header("Content-Length").value_or("0"));
        peer.skip(length);
      }
      return;
    }
  }

  int actions() const {
    int count = 0;
    for (const auto& seen : server.seen()) count += seen.line.starts_with("GET /ping") ? 0 : 1;
    return count;
  }

  LoopbackServer server;
};

struct Action {
  const char* method;
  std::optional<std::string> body;
};
BOOST_DESCRIBE_STRUCT(Action, (), (method, body))

class HttpOnce : public testing::TestWithParam<Action> {};

void settle(QtHttp& http, const ClosingServer& closing, HttpLane lane) {
  const auto ping = exchange(http, request("GET", closing.server.url("/ping"), lane));
  ASSERT_TRUE(ping.has_value());
  ASSERT_EQ(ping->body, "pong");
}

TEST_P(HttpOnce, AnActionWhoseConnectionClosesIsSentOnce) {
  for (const auto manner :
       {ClosingServer::Manner::afterRequest, ClosingServer::Manner::afterHead}) {
    for (const bool onUsedConnection : {false, true}) {
      ClosingServer closing(manner);
      QtHttp http;
      if (onUsedConnection) settle(http, closing, HttpLane::calls);
      auto action = request(GetParam().method, closing.server.url("/api/act"));
      action.body = GetParam().body;
      const auto result = exchange(http, action);
      ASSERT_FALSE(result.has_value());
      EXPECT_EQ(result.error(), HttpError::connectionLost);
      settle(http, closing, HttpLane::calls);
      EXPECT_EQ(closing.actions(), 1);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, HttpOnce,
                         testing::Values(Action{"POST", std::nullopt}, Action{"POST", ""},
                                         Action{"POST", "{\"kind\":\"sync\"}"},
                                         Action{"POST", std::string(3'000'000, 'x')},
                                         Action{"PUT", std::string(3'000'000, 'x')},
                                         Action{"PUT", std::nullopt}));

TEST(HttpOnceUpload, AnEarlyRefusalIsNotAnsweredWithASecondUpload) {
  LoopbackServer* self = nullptr;
  LoopbackServer server([&self](Peer& peer) {
    const auto seen = peer.readHead();
    if (!seen) return;
    self->note(*seen);
    const bool ping = seen->line.starts_with("GET");
    peer.send(ping ? answer(200, "pong") : answer(413, "", "Connection: close\r\n"));
  });
  self = &server;
  QtHttp http;
  auto upload = request("PUT", server.url("/api/files/1/versions"), HttpLane::transfers);
  upload.body = std::string(60'000'000, 'p');
  const auto result = exchange(http, upload);
  if (result) {
    EXPECT_EQ(result->status, 413);
  } else {
    EXPECT_EQ(result.error(), HttpError::connectionLost);
  }
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"), HttpLane::transfers)).has_value());
  EXPECT_EQ(server.seen().size(), 2U);
}

TEST(HttpOnceRedirect, ABodyIsNotSentAgainWithinTheOrigin) {
  LoopbackServer* self = nullptr;
  LoopbackServer server([&self](Peer& peer) {
    while (auto seen = peer.readRequest()) {
      self->note(*seen);
      peer.send(seen->line.find("/old") != std::string::npos ? answer(307, "", "Location: /new\r\n")
                                                             : answer(200, "{}"));
    }
  });
  self = &server;
  QtHttp http;
  auto post = request("POST", server.url("/old"));
  post.body = "{\"kind\":\"sync\"}";
  EXPECT_FALSE(exchange(http, post).has_value());
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"))).has_value());
  int bodies = 0;
  for (const auto& seen : server.seen()) bodies += seen.body.empty() ? 0 : 1;
  EXPECT_EQ(bodies, 1);
}

}  // namespace
}  // namespace vellix
