// Uploads that a server refuses, cuts off or leaves waiting.
#include "platform/http_uploads.hpp"

#include <future>

namespace vellix {
namespace {

struct Refusal {
  const char* name;
  int status;
  bool readsOn;  // what is still to come of the body
};
BOOST_DESCRIBE_STRUCT(Refusal, (), (name, status, readsOn))

class RefusedUpload : public HttpUpload, public testing::WithParamInterface<Refusal> {};

// A server that reads on is heard. One that closes may not be: the connection is gone before that.
TEST_P(RefusedUpload, IsSentOnceAndLeavesItsFileAlone) {
  const Refusal& refusal = GetParam();
  LoopbackServer* self = nullptr;
  LoopbackServer server(uploads(self, [&refusal](Peer& peer, const SeenRequest& seen) {
    const auto drop = [](std::string_view) {};
    peer.drain(100'000, drop);
    peer.send(answer(refusal.status, R"({"error":"No."})", "Connection: close\r\n"));
    if (refusal.readsOn) peer.drain(announced(seen) - 100'000, drop);
  }));
  self = &server;
  const auto path = write(kMost);
  const auto then = fs::last_write_time(path);
  QtHttp http;
  const auto result = exchange(http, put(server, path));
  if (refusal.readsOn) {
    ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
  }
  if (result) {
    EXPECT_EQ(result->status, refusal.status);
    EXPECT_EQ(result->body, R"({"error":"No."})");
  } else {
    EXPECT_EQ(result.error(), HttpError::connectionLost);
  }
  expectOne(http, server);
  EXPECT_EQ(fs::file_size(path), kMost);
  EXPECT_EQ(fs::last_write_time(path), then);
}

INSTANTIATE_TEST_SUITE_P(, RefusedUpload,
                         testing::Values(Refusal{"tooLarge", 413, true},
                                         Refusal{"tooLargeAndGone", 413, false},
                                         Refusal{"signedOut", 401, true},
                                         Refusal{"signedOutAndGone", 401, false}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(HttpUpload, WhoseConnectionIsCutIsLostAndSentOnce) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(uploads(
      self, [](Peer& peer, const SeenRequest&) { peer.drain(500'000, [](std::string_view) {}); }));
  self = &server;
  QtHttp http;
  const auto result = exchange(http, put(server, write(kMost)));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::connectionLost);
  expectOne(http, server);
}

TEST_F(HttpUpload, ThatStallsTimesOutAndIsSentOnce) {
  LoopbackServer* self = nullptr;
  std::promise<void> go;
  LoopbackServer server(uploads(self, [going = go.get_future().share()](Peer& peer, const auto&) {
    peer.drain(100'000, [](std::string_view) {});
    going.wait();
  }));
  self = &server;
  QtHttp http;
  HttpRequest out = put(server, write(kMost));
  out.timeout = Milliseconds(300);
  const auto result = exchange(http, std::move(out));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::timedOut);
  expectOne(http, server);
  go.set_value();
}

// The whole is out, and the service takes its time.
TEST_F(HttpUpload, ThatIsNotAnsweredTimesOutAndIsSentOnce) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(uploads(self, [](Peer& peer, const SeenRequest& seen) {
    peer.drain(announced(seen), [](std::string_view) {});
    peer.waitForClose();
  }));
  self = &server;
  QtHttp http;
  HttpRequest out = put(server, write(100'000));
  out.timeout = Milliseconds(300);
  const auto result = exchange(http, std::move(out));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::timedOut);
  expectOne(http, server);
}

TEST_F(HttpUpload, HoldsUpNoCall) {
  LoopbackServer* self = nullptr;
  std::promise<void> go;
  LoopbackServer server(uploads(self, [going = go.get_future().share()](Peer& peer, const auto&) {
    peer.drain(100'000, [](std::string_view) {});
    going.wait();
  }));
  self = &server;
  QtHttp http;
  std::stop_source stop;
  const auto upload = http.send(put(server, write(kMost)), stop.get_token());
  ASSERT_TRUE(waitUntil([&server] { return server.seen().size() == 1; }));
  for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures, HttpLane::transfers}) {
    EXPECT_TRUE(exchange(http, request("GET", server.url("/ping"), lane)).has_value());
  }
  EXPECT_FALSE(upload.resolved());
  stop.request_stop();
  EXPECT_EQ(await(upload)->error(), HttpError::cancelled);
  go.set_value();
}

}  // namespace
}  // namespace vellix
