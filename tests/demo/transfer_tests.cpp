// Bodies on their way to the demo service: how much of one is read, and what becomes of the rest.
#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include "demo_service.hpp"
#include "written_pdf.hpp"

namespace vellix::demo_tests {
namespace {

// A connection on which bytes are said and heard one by one.
class Wire {
 public:
  explicit Wire(int port) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
    const timeval patience{20, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<std::uint16_t>(port));
    to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(socket_, reinterpret_cast<sockaddr*>(&to), sizeof to), 0);
  }
  ~Wire() { close(socket_); }
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;

  void say(std::string_view text) {
    while (!text.empty()) {
      const ssize_t sent = send(socket_, text.data(), text.size(), MSG_NOSIGNAL);
      if (sent <= 0) return;
      text.remove_prefix(static_cast<std::size_t>(sent));
    }
  }
  // Everything up to the end that the other side makes.
  std::string heard() {
    std::string all;
    char piece[4096];
    ssize_t got = 0;
    while ((got = recv(socket_, piece, sizeof piece, 0)) > 0) {
      all.append(piece, static_cast<std::size_t>(got));
    }
    return all;
  }

 private:
  int socket_;
};

class Transfers : public DemoService {
 protected:
  static constexpr const char* kPath = "/api/files/salt-case/versions";

  void SetUp() override {
    DemoService::SetUp();
    (void)client_.Delete("/demo/log");
  }
  std::string head(std::size_t length) const {
    return std::string("PUT ") + kPath + " HTTP/1.1\r\nHost: demo\r\nAuthorization: Bearer " +
           token_ +
           "\r\nContent-Type: application/pdf\r\nContent-Length: " + std::to_string(length) +
           "\r\n\r\n";
  }
  httplib::Result put(std::size_t size) {
    std::string body = "%PDF-1.4\n";
    body.resize(size, 'x');
    return client_.Put(kPath, headers(), body, "application/pdf");
  }
  std::size_t versions() { return detail("salt-case").versions->size(); }
  // The log's uploads as "status bytes".
  std::vector<std::pair<Int, Int>> uploads() {
    std::vector<std::pair<Int, Int>> all;
    const auto log = client_.Get("/demo/log");
    const auto json = decodeJson(log ? log->body : "[]");
    for (const Json& entry : std::get<Json::List>(json->value)) {
      if (*entry.find("method")->text() != "PUT") continue;
      all.emplace_back(std::get<Int>(entry.find("status")->value),
                       std::get<Int>(entry.find("bytes")->value));
    }
    return all;
  }
  void fault(const std::string& what) {
    ASSERT_EQ(
        statusOf(post("/demo/faults", R"([{"method":"PUT","path":"/api/files/",)" + what + "}]")),
        200);
  }
};

TEST_F(Transfers, TakeAsMuchAsAClientMaySend) {
  const std::size_t before = versions();
  EXPECT_EQ(statusOf(put(59'999'999)), 200);
  EXPECT_EQ(versions(), before + 1);
  EXPECT_EQ(uploads(), (std::vector<std::pair<Int, Int>>{{200, 59'999'999}}));
}

TEST_F(Transfers, RefuseWhatIsTooBigBeforeAnyOfItCame) {
  const std::size_t before = versions();
  Wire wire(service_->port());
  wire.say(head(60'000'000));
  const std::string answer = wire.heard();
  EXPECT_TRUE(answer.starts_with("HTTP/1.1 413")) << answer;
  EXPECT_NE(answer.find(R"({"error":"That file is too big. It has to be under 60 MB."})"),
            std::string::npos);
  EXPECT_NE(answer.find("Connection: close"), std::string::npos);
  EXPECT_EQ(uploads(), (std::vector<std::pair<Int, Int>>{{413, 0}}));
  EXPECT_EQ(versions(), before);
}

TEST_F(Transfers, RefuseWhatGrowsTooBigWithoutSayingSo) {
  Wire wire(service_->port());
  std::string start = head(0);
  start.replace(start.find("Content-Length: 0"), 17, "Transfer-Encoding: chunked");
  wire.say(start);
  const std::string piece(1'000'000, 'x');
  for (int i = 0; i < 61; ++i) wire.say("f4240\r\n" + piece + "\r\n");
  EXPECT_TRUE(wire.heard().starts_with("HTTP/1.1 413"));
}

TEST_F(Transfers, ThatBreakOffAreNobodys) {
  const std::size_t before = versions();
  {
    Wire wire(service_->port());
    wire.say(head(500'000) + "%PDF-1.4\n" + std::string(200'000, 'x'));
  }
  EXPECT_TRUE(eventually([&](const BoardState&) {
    return uploads() == std::vector<std::pair<Int, Int>>{{0, 200'009}};
  }));
  EXPECT_EQ(versions(), before);
}

TEST_F(Transfers, AreAnsweredInTheMiddleOnRequest) {
  fault(R"("status":401,"after_bytes":1000000)");
  Wire wire(service_->port());
  wire.say(head(30'000'000) + std::string(2'000'000, 'x'));
  EXPECT_TRUE(wire.heard().starts_with("HTTP/1.1 401"));
  const auto all = uploads();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all.front().first, 401);
  EXPECT_GE(all.front().second, 1'000'000);
  EXPECT_LT(all.front().second, 1'200'000) << "the rest is not read";
}

TEST_F(Transfers, AreCutOffInTheMiddleOnRequest) {
  const std::size_t before = versions();
  fault(R"("cut":true,"after_bytes":1000000)");
  Wire wire(service_->port());
  wire.say(head(3'000'000) + std::string(2'000'000, 'x'));
  EXPECT_EQ(wire.heard(), "");
  EXPECT_EQ(uploads().front().first, 0);
  EXPECT_EQ(versions(), before);
}

TEST_F(Transfers, StallUntilOtherFaultsAreAskedFor) {
  fault(R"("held":true,"after_bytes":1000000)");
  Wire wire(service_->port());
  std::string body = "%PDF-1.4\n";
  body.resize(2'000'000, 'x');
  wire.say(head(body.size()) + body);
  EXPECT_TRUE(eventually(
      [&](const BoardState&) { return uploads().size() == 1 && uploads()[0].second > 900'000; }));
  EXPECT_EQ(uploads().front().first, 0);
  EXPECT_LT(uploads().front().second, 1'200'000);
  (void)post("/demo/faults", "[]");
  EXPECT_TRUE(eventually([&](const BoardState&) {
    return uploads() == std::vector<std::pair<Int, Int>>{{200, 2'000'000}};
  }));
}

TEST_F(Transfers, AreReadSlowlyOnRequest) {
  fault(R"("drip_ms":1)");
  EXPECT_EQ(statusOf(put(1'000'000)), 200);
  EXPECT_EQ(uploads(), (std::vector<std::pair<Int, Int>>{{200, 1'000'000}}));
}

TEST_F(Transfers, LeaveTheConnectionUsableAfterAnOrdinaryRefusal) {
  EXPECT_EQ(statusOf(client_.Put(kPath, headers(), "no", "application/pdf")), 400);
  EXPECT_EQ(statusOf(get("/api/state")), 200);
}

}  // namespace
}  // namespace vellix::demo_tests
