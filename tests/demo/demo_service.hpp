// A running demo service and a reviewer signed in to it, for the tests of a suite.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "records/json.hpp"
#include "running_service.hpp"

namespace vellix::demo_tests {

// Somebody who asks a service, and reads its answers with the client's own records.
class Caller {
 protected:
  explicit Caller(int port) : client_("127.0.0.1", port) {
    client_.set_read_timeout(20);
    client_.set_write_timeout(20);
  }
  void signIn() {
    const auto answer =
        post("/api/login/exchange", R"({"code":"demo-renny","state":"","device":"test"})");
    ASSERT_TRUE(answer);
    const auto signedIn = decode<SignInAnswer>(answer->body);
    ASSERT_TRUE(signedIn) << answer->body;
    EXPECT_EQ(signedIn->me.email, "renny@tessarine.example");
    token_ = signedIn->token;
  }

  httplib::Headers headers(const std::string& etag = {}) const {
    httplib::Headers all;
    if (!token_.empty()) all.emplace("Authorization", "Bearer " + token_);
    if (!etag.empty()) all.emplace("If-None-Match", etag);
    return all;
  }
  httplib::Result get(const std::string& path, const std::string& etag = {}) {
    return client_.Get(path, headers(etag));
  }
  httplib::Result post(const std::string& path, const std::string& body) {
    return client_.Post(path, headers(), body, "application/json");
  }
  // A revision.
  httplib::Result put(const std::string& id, const std::string& pdf) {
    auto all = headers();
    all.emplace("x-filename", "Second%20try.pdf");
    return client_.Put("/api/files/" + id + "/versions", all, pdf, "application/pdf");
  }
  int statusOf(const httplib::Result& result) { return result ? result->status : 0; }
  BoardState board() {
    const auto answer = get("/api/state");
    const auto decoded = answer ? decode<BoardState>(answer->body) : decode<BoardState>("");
    EXPECT_TRUE(decoded) << (decoded ? "" : decoded.error().where + decoded.error().why);
    return decoded.value_or(BoardState{});
  }
  FileDetail detail(const std::string& id, const std::string& query = {}) {
    const auto answer = get("/api/files/" + id + query);
    const auto decoded = answer ? decode<FileDetail>(answer->body) : decode<FileDetail>("");
    EXPECT_TRUE(decoded) << id << (decoded ? "" : decoded.error().where + decoded.error().why);
    return decoded.value_or(FileDetail{});
  }
  // Asks again until `done` holds of the board; false after so many times, 20 a second.
  template <class Done>
  bool eventually(Done done, int times = 200) {
    for (int i = 0; i < times; ++i) {
      if (done(board())) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  httplib::Client client_;
  std::string token_;
};

class DemoService : public testing::Test, protected Caller {
 protected:
  DemoService() : Caller(service_->port()) {}
  static void SetUpTestSuite() { service_ = new RunningService; }
  static void TearDownTestSuite() {
    EXPECT_EQ(service_->end(), 0) << "it ends by itself when its standard input does";
    delete service_;
  }

  void SetUp() override {
    ASSERT_GT(service_->port(), 0) << service_->announced();
    signIn();
  }
  void TearDown() override { (void)post("/demo/faults", "[]"); }

  inline static RunningService* service_ = nullptr;
};

// Width and height out of a JPEG's frame header; zeros when there is none.
inline std::pair<int, int> sizeOfJpeg(const std::string& bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (!bytes.starts_with("\xFF\xD8")) return {0, 0};
  for (std::size_t at = 2; at + 9 < bytes.size() && byte(at) == 0xFF;) {
    if (byte(at + 1) >= 0xC0 && byte(at + 1) <= 0xC2) {
      return {byte(at + 7) * 256 + byte(at + 8), byte(at + 5) * 256 + byte(at + 6)};
    }
    at += 2 + static_cast<std::size_t>(byte(at + 2)) * 256 + byte(at + 3);
  }
  return {0, 0};
}

inline bool lies(const std::vector<double>& box) {
  return box.size() == 4 && box[0] >= 0 && box[1] >= 0 && box[2] > 0 && box[3] > 0 &&
         box[0] + box[2] <= 1.0001 && box[1] + box[3] <= 1.0001;
}

}  // namespace vellix::demo_tests
