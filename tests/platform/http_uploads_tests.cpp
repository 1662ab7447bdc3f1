// Bodies that are streamed from the disk.
#include "platform/MemoryPeak.hpp"
#include "platform/http_uploads.hpp"

#include <atomic>
#include <future>

namespace vellix {
namespace {

TEST_F(HttpUpload, GoesOutAsItLiesOnTheDisk) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{16'384},
                                  std::size_t{16'385}, std::size_t{3'000'001}}) {
    sent_ = {};
    Sum got;
    LoopbackServer* self = nullptr;
    LoopbackServer server(uploads(self, [&got](Peer& peer, const SeenRequest& seen) {
      if (!peer.drain(announced(seen), [&](auto bytes) { got.add(bytes); })) return;
      peer.send(answer(200, R"({"version":2})"));
      peer.waitForClose();
    }));
    self = &server;
    QtHttp http;
    const auto result = exchange(http, put(server, write(count)));
    ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
    EXPECT_EQ(result->body, R"({"version":2})");
    EXPECT_EQ(got.count, count);
    EXPECT_EQ(got.value, sent_.value);
    const SeenRequest seen = server.seen().at(0);
    EXPECT_EQ(seen.header("Content-Length"), std::to_string(count));
    EXPECT_EQ(seen.header("Content-Type"), "application/pdf");
    EXPECT_EQ(seen.header("x-note"), "") << "an empty one is there as well";
    EXPECT_FALSE(seen.header("Transfer-Encoding"));
  }
}

TEST_F(HttpUpload, TakesLittleMemoryHoweverLongItIs) {
  Sum got;
  LoopbackServer* self = nullptr;
  LoopbackServer server(uploads(self, [&got](Peer& peer, const SeenRequest& seen) {
    if (!peer.drain(announced(seen), [&](auto bytes) { got.add(bytes); })) return;
    peer.send(answer(200, "{}"));
    peer.waitForClose();
  }));
  self = &server;
  const auto path = write(kMost);
  QtHttp http;
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"), HttpLane::transfers)));
  const MemoryPeak peak;
  ASSERT_TRUE(exchange(http, put(server, path)).has_value());
  EXPECT_LT(peak.kilobytes(), 16 * 1'024);
  EXPECT_EQ(got.count, kMost);
  EXPECT_EQ(got.value, sent_.value);
}

// However slow the network, no more is read than it takes.
TEST_F(HttpUpload, IsReadAsTheNetworkTakesIt) {
  class Counted : public HttpBody {
   public:
    std::int64_t size() const override { return kMost; }
    std::optional<std::size_t> read(char* to, std::size_t most) override {
      std::fill_n(to, most, 'p');
      taken += most;
      return most;
    }
    std::atomic<std::size_t> taken = 0;
  };
  std::promise<void> go;
  LoopbackServer stuck([going = go.get_future().share()](Peer& peer) {
    if (peer.readHead()) going.wait();
  });
  const auto body = std::make_shared<Counted>();
  QtHttp http;
  std::stop_source stop;
  HttpRequest out = request("PUT", stuck.url("/slow"), HttpLane::transfers);
  out.stream = body;
  const auto pending = http.send(out, stop.get_token());
  // The sender is stuck once nothing more leaves it.
  std::size_t before = kMost;
  waitUntil([&] { return body->taken > 0 && std::exchange(before, body->taken) == body->taken; });
  EXPECT_LT(body->taken, 20'000'000U);
  stop.request_stop();
  go.set_value();
  EXPECT_EQ(await(pending)->error(), HttpError::cancelled);
}

struct Meddling {
  const char* name;
  std::function<void(const fs::path&)> meddle;
};
BOOST_DESCRIBE_STRUCT(Meddling, (), (name))

class MeddledUpload : public HttpUpload, public testing::WithParamInterface<Meddling> {};

// The server holds the upload in its midst until the file is another one.
TEST_P(MeddledUpload, EndsInOneFailureAndNeverAsAWhole) {
  std::promise<void> begun;
  std::promise<void> meddled;
  std::atomic<bool> whole = false;
  std::size_t got = 0;
  LoopbackServer* self = nullptr;
  LoopbackServer server(
      uploads(self, [&, going = meddled.get_future().share()](Peer& peer, const SeenRequest& seen) {
        const auto count = [&got](std::string_view bytes) { got += bytes.size(); };
        peer.drain(100'000, count);
        begun.set_value();
        going.wait();
        whole = peer.drain(announced(seen) - 100'000, count);
        if (whole) peer.send(answer(200, "{}"));
      }));
  self = &server;
  const auto path = write(kMost);
  QtHttp http;
  const auto pending = http.send(put(server, path), {});
  ASSERT_TRUE(waitUntil([start = begun.get_future().share()] {
    return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  }));
  GetParam().meddle(path);
  meddled.set_value();
  const auto result = await(pending);
  ASSERT_TRUE(result);
  ASSERT_FALSE(result->has_value());
  EXPECT_EQ(result->error(), HttpError::bodyLost);
  expectOne(http, server);
  EXPECT_FALSE(whole);
  EXPECT_LT(got, kMost) << "what was announced";
}

void later(const fs::path& path) {
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(10));
}

INSTANTIATE_TEST_SUITE_P(
    , MeddledUpload,
    testing::Values(Meddling{"writtenTo",
                             [](const fs::path& path) {
                               std::fstream out(path, std::ios::in | std::ios::out);
                               out.seekp(kMost - 5);
                               out << "other";
                               out.close();
                               later(path);
                             }},
                    Meddling{"cut", [](const fs::path& path) { fs::resize_file(path, 200'000); }},
                    Meddling{"grown",
                             [](const fs::path& path) { fs::resize_file(path, kMost + 1); }},
                    Meddling{"replaced",
                             [](const fs::path& path) {
                               const auto other = path.parent_path() / "other";
                               fs::copy_file(path, other);
                               fs::rename(other, path);
                             }},
                    Meddling{"gone", [](const fs::path& path) { fs::remove(path); }}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(HttpUpload, OfAFileThatIsAnotherOneBeforeItBeginsSendsNoneOfIt) {
  std::size_t got = 0;
  LoopbackServer* self = nullptr;
  LoopbackServer server(uploads(self, [&got](Peer& peer, const SeenRequest& seen) {
    peer.drain(announced(seen), [&got](std::string_view bytes) { got += bytes.size(); });
  }));
  self = &server;
  const auto path = write(100'000);
  HttpRequest out = put(server, path);
  fs::remove(path);
  QtHttp http;
  const auto result = exchange(http, std::move(out));
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error(), HttpError::bodyLost);
  ASSERT_TRUE(exchange(http, request("GET", server.url("/ping"), HttpLane::transfers)));
  EXPECT_LE(putsSeen(server), 1U);
  EXPECT_EQ(got, 0U);
}

}  // namespace
}  // namespace vellix
