// Proofs that are larger than the service may ever be.
#include <fstream>

#include "demo_service.hpp"
#include "large_pdf.hpp"
#include "sandbox.hpp"

namespace vellix::demo_tests {
namespace {

constexpr std::streamoff kHole = (std::streamoff{2} << 30) + 12'345;
constexpr std::int64_t kMostKilobytes = 64 << 10;

class LargeProofs : public testing::Test {
 protected:
  LargeProofs() {
    writeLarge(path_, pageSaying("Far"), kHole);
    size_ = static_cast<std::size_t>(std::filesystem::file_size(path_));
    service_ = std::make_unique<RunningService>(std::vector<std::string>{"--proof", path_});
    client_ = std::make_unique<httplib::Client>("127.0.0.1", service_->port());
    client_->set_read_timeout(60);
    const auto answer = client_->Post("/api/login/exchange", R"({"code":"demo-renny","state":""})",
                                      "application/json");
    const auto signedIn = decode<SignInAnswer>(answer ? answer->body : "");
    client_->set_bearer_token_auth(signedIn ? signedIn->token : "");
    const auto told = client_->Get("/api/state");
    const auto board = decode<BoardState>(told ? told->body : "");
    if (board && board->files.size() == 1) id_ = board->files.front().id;
  }
  // "/s/KEY/proof.pdf", once there is a link.
  std::string linked() {
    const auto answer =
        client_->Post("/api/files/" + id_ + "/share", R"({"enabled":true})", "application/json");
    const std::string told = answer ? answer->body : "";
    const auto at = told.find("/s/");
    if (at == std::string::npos) return {};
    return told.substr(at, told.find('"', at) - at) + "/proof.pdf";
  }
  // At most since the last call, in kilobytes.
  std::int64_t peak() const {
    const std::string process = "/proc/" + std::to_string(service_->pid());
    std::int64_t kilobytes = 0;
    std::ifstream status(process + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("VmHWM:")) kilobytes = std::stol(line.substr(6));
    }
    std::ofstream(process + "/clear_refs") << 5;
    return kilobytes;
  }
  std::string lastBytes(std::size_t count) const {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(-static_cast<std::streamoff>(count), std::ios::end);
    std::string bytes(count, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
  }

  Sandbox sandbox_;
  std::string path_ = sandbox_ / "large.pdf";
  std::size_t size_ = 0;
  std::unique_ptr<RunningService> service_;
  std::unique_ptr<httplib::Client> client_;
  std::string id_;
};

TEST_F(LargeProofs, AreDownloadedWithoutBeingHeld) {
  ASSERT_FALSE(id_.empty());
  const std::string path = linked();
  ASSERT_FALSE(path.empty());
  const std::string end = lastBytes(200);
  (void)peak();
  const std::int64_t before = peak();
  std::size_t came = 0;
  std::string tail;
  const auto answer = client_->Get(path, [&](const char* bytes, std::size_t size) {
    came += size;
    tail.append(bytes, size);
    if (tail.size() > end.size()) tail.erase(0, tail.size() - end.size());
    return true;
  });
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 200);
  EXPECT_EQ(answer->get_header_value("Content-Type"), "application/pdf");
  EXPECT_EQ(came, size_);
  EXPECT_EQ(tail, end);
  EXPECT_LT(peak() - before, kMostKilobytes);
}

TEST_F(LargeProofs, AreToldAndSentInPart) {
  const std::string path = linked();
  ASSERT_FALSE(path.empty());
  const auto head = client_->Head(path);
  ASSERT_TRUE(head);
  EXPECT_EQ(head->status, 200);
  EXPECT_EQ(head->get_header_value("Content-Length"), std::to_string(size_));
  (void)peak();
  const std::int64_t before = peak();
  const auto last = static_cast<ssize_t>(size_);
  const auto part = client_->Get(path, {httplib::make_range_header({{last - 200, last - 1}})});
  ASSERT_TRUE(part);
  EXPECT_EQ(part->status, 206);
  EXPECT_EQ(part->body, lastBytes(200));
  const auto version =
      client_->Get("/demo/proof?v=1&file_id=" + id_, {httplib::make_range_header({{0, 7}})});
  ASSERT_TRUE(version);
  EXPECT_EQ(version->body, "%PDF-1.4");
  const auto end = client_->Get(path, {httplib::make_range_header({{last - 5, -1}})});
  ASSERT_TRUE(end);
  EXPECT_EQ(end->body, lastBytes(5));
  for (const httplib::Range& beyond :
       {httplib::Range{last, last + 9}, httplib::Range{last - 5, last}}) {
    const auto none = client_->Get(path, {httplib::make_range_header({beyond})});
    ASSERT_TRUE(none);
    EXPECT_EQ(none->status, 416);
  }
  EXPECT_LT(peak() - before, kMostKilobytes);
}

TEST_F(LargeProofs, ThatAreCutShortOnTheWayBreakOff) {
  const std::string path = linked();
  ASSERT_FALSE(path.empty());
  std::size_t came = 0;
  const auto answer = client_->Get(path, [&](const char*, std::size_t size) {
    if (came == 0) std::filesystem::resize_file(path_, std::uintmax_t{1} << 20);
    came += size;
    return true;
  });
  EXPECT_FALSE(answer) << "what is not there any more is not made up";
  EXPECT_LT(came, size_);
}

}  // namespace
}  // namespace vellix::demo_tests
