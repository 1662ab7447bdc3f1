#include <gmock/gmock.h>

#include <algorithm>

#include "platform/http_support.hpp"

namespace vellix {
namespace {

using testing::HasSubstr;

class HttpReplies : public testing::TestWithParam<int> {};

TEST_P(HttpReplies, HandsEveryStatusOnWithItsBody) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(
      always(self, answer(GetParam(), "{\"error\": \"why\"}", "ETag: \"7\"\r\n")));
  self = &server;
  QtHttp http;
  for (const char* method : {"GET", "POST"}) {
    const auto result = exchange(http, request(method, server.url("/api/state")));
    ASSERT_TRUE(result.has_value()) << method << ' ' << static_cast<int>(result.error());
    EXPECT_EQ(result->status, GetParam());
    EXPECT_EQ(result->body, "{\"error\": \"why\"}");
    EXPECT_EQ(result->header("etag"), "\"7\"");
  }
}

INSTANTIATE_TEST_SUITE_P(, HttpReplies,
                         testing::Values(200, 201, 400, 403, 404, 405, 409, 410, 413, 418, 422, 429,
                                         500, 501, 502, 503, 599));

TEST(HttpReply, NotModifiedComesWithoutABody) {
  LoopbackServer* self = nullptr;
  // The length of what would have been sent is allowed here and is no cut body.
  LoopbackServer server(
      always(self, "HTTP/1.1 304 Not Modified\r\nETag: \"7\"\r\nContent-Length: 900\r\n\r\n"));
  self = &server;
  QtHttp http;
  auto conditional = request("GET", server.url("/api/state"));
  conditional.headers = {{"If-None-Match", "\"7\""}};
  for (int round = 0; round < 3; ++round) {
    const auto result = exchange(http, conditional);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 304);
    EXPECT_EQ(result->body, "");
  }
  EXPECT_EQ(server.seen().back().header("If-None-Match"), "\"7\"");
  EXPECT_EQ(server.connections(), 1);
}

TEST(HttpReply, ChallengeArrivesAsItIsAndIsNotAnswered) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(
      always(self, answer(401, "{\"error\": \"no\"}", "WWW-Authenticate: Basic realm=\"x\"\r\n")));
  self = &server;
  QtHttp http;
  for (const char* method : {"GET", "POST", "PUT"}) {
    auto sent = request(method, server.url("/api/state"));
    if (sent.method != "GET") sent.body = "{}";
    const auto result = exchange(http, sent);
    ASSERT_TRUE(result.has_value()) << method << ' ' << static_cast<int>(result.error());
    EXPECT_EQ(result->status, 401);
    EXPECT_EQ(result->body, "{\"error\": \"no\"}");
  }
  ASSERT_EQ(server.seen().size(), 3U);
  for (const auto& seen : server.seen()) EXPECT_FALSE(seen.header("Authorization").has_value());
}

TEST(HttpRequest, GoesOutAsGiven) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, "{}", "Set-Cookie: a=b\r\n")));
  self = &server;
  QtHttp http;
  const std::string body("{\"text\":\"\xC3\xA9\\u0000\"}\0\x01\xFF", 22);
  auto post = request("POST", server.url("/api/files/a%20b?v=1%2B2&q=x"));
  post.headers = {{"User-Agent", "Vellix-Mac/1.0"},
                  {"Authorization", "Bearer t0ken"},
                  {"Content-Type", "application/json"},
                  {"x-filename", "a%20b.pdf"}};
  post.body = body;
  ASSERT_TRUE(exchange(http, post).has_value());
  post.method = "PUT";
  ASSERT_TRUE(exchange(http, post).has_value());

  const auto seen = server.seen();
  ASSERT_EQ(seen.size(), 2U);
  EXPECT_EQ(seen[0].line, "POST /api/files/a%20b?v=1%2B2&q=x HTTP/1.1");
  EXPECT_EQ(seen[1].line, "PUT /api/files/a%20b?v=1%2B2&q=x HTTP/1.1");
  for (const auto& one : seen) {
    EXPECT_EQ(one.body, body);
    for (const auto& [name, value] : post.headers) EXPECT_EQ(one.header(name), value) << name;
    EXPECT_EQ(one.header("Content-Length"), std::to_string(body.size()));
    EXPECT_FALSE(one.header("Cookie").has_value());
    EXPECT_FALSE(one.header("Transfer-Encoding").has_value());
  }
}

TEST(HttpRequest, WithoutBodyHasNoContentType) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, "")));
  self = &server;
  QtHttp http;
  ASSERT_TRUE(exchange(http, request("GET", server.url())).has_value());
  ASSERT_TRUE(exchange(http, request("POST", server.url())).has_value());
  ASSERT_EQ(server.seen().size(), 2U);
  for (const auto& seen : server.seen()) {
    EXPECT_FALSE(seen.header("Content-Type").has_value()) << seen.head;
  }
  EXPECT_EQ(server.seen()[1].header("Content-Length"), "0");
}

TEST(HttpRequest, TransfersAskForRawBytes) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, "x")));
  self = &server;
  QtHttp http;
  ASSERT_TRUE(exchange(http, request("GET", server.url(), HttpLane::transfers)).has_value());
  ASSERT_TRUE(exchange(http, request("GET", server.url(), HttpLane::calls)).has_value());
  EXPECT_EQ(server.seen()[0].header("Accept-Encoding"), "identity");
  EXPECT_THAT(server.seen()[1].header("Accept-Encoding").value_or(""), HasSubstr("gzip"));
}

TEST(HttpReply, GzipComesUnpacked) {
  // gzip of 2,000 times "a"
  const std::string packed(
      "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x4b\x4c\x1c\x05\xa3\x60\x14\x8c\x82\x51\x30\x0a"
      "\x46\xc1\x50\x07\x00\x39\x3e\x13\xa8\xd0\x07\x00\x00",
      35);
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, packed, "Content-Encoding: gzip\r\n")));
  self = &server;
  QtHttp http;
  const auto result = exchange(http, request("GET", server.url()));
  ASSERT_TRUE(result.has_value()) << static_cast<int>(result.error());
  EXPECT_EQ(result->body, std::string(2000, 'a'));
}

TEST(HttpRequest, NothingIsTakenFromACache) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, "same", "Cache-Control: max-age=3600\r\n")));
  self = &server;
  QtHttp http;
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(exchange(http, request("GET", server.url("/blob"))).has_value());
  }
  EXPECT_EQ(server.seen().size(), 3U);
}

TEST(HttpRequest, WhatCannotBeSentFailsWithoutAConnection) {
  LoopbackServer* self = nullptr;
  LoopbackServer server(always(self, answer(200, "")));
  self = &server;
  QtHttp http;
  std::vector<HttpRequest> bad = {request("GET", ""),
                                  request("GET", "not a url"),
                                  request("GET", "file:///etc/passwd"),
                                  request("GET", "ftp://127.0.0.1/"),
                                  request("GET", "http://"),
                                  request("", server.url()),
                                  request("GET\r\nX: y", server.url())};
  bad.push_back(request("GET", server.url()));
  bad.back().headers = {{"x-note", "a\r\nAuthorization: b"}};
  for (const auto& one : bad) {
    const auto result = exchange(http, one);
    ASSERT_FALSE(result.has_value()) << one.url;
    EXPECT_EQ(result.error(), HttpError::other) << one.url;
  }
  EXPECT_EQ(server.connections(), 0);
}

TEST(HttpRedirect, StaysWithinTheOrigin) {
  LoopbackServer* self = nullptr;
  LoopbackServer server([&self](Peer& peer) {
    while (auto seen = peer.readRequest()) {
      self->note(*seen);
      peer.send(seen->line.starts_with("GET /old") ? answer(302, "", "Location: /new\r\n")
                                                   : answer(200, "here"));
    }
  });
  self = &server;
  QtHttp http;
  auto get = request("GET", server.url("/old"));
  get.headers = {{"Authorization", "Bearer t0ken"}};
  const auto result = exchange(http, get);
  ASSERT_TRUE(result.has_value());
  EXPECT_EQ(result->body, "here");
  // A question may be put twice on the way, and the second come late; it is an action that may not.
  const auto seen = server.seen();
  const auto moved = std::ranges::find(seen, "GET /new HTTP/1.1", &SeenRequest::line);
  ASSERT_NE(moved, seen.end());
  EXPECT_EQ(moved->header("Authorization"), "Bearer t0ken");
}

class HttpCrossOrigin : public testing::TestWithParam<int> {};

TEST_P(HttpCrossOrigin, NeitherTokenNorBodyLeaves) {
  LoopbackServer* other = nullptr;
  LoopbackServer elsewhere(always(other, answer(200, "stolen")));
  other = &elsewhere;
  LoopbackServer* self = nullptr;
  LoopbackServer server(
      always(self, answer(GetParam(), "", "Location: " + elsewhere.url("/take") + "\r\n")));
  self = &server;
  QtHttp http;
  for (const char* method : {"GET", "POST", "PUT"}) {
    for (const HttpLane lane : {HttpLane::calls, HttpLane::pictures, HttpLane::transfers}) {
      auto sent = request(method, server.url("/api/state"), lane);
      sent.headers = {{"Authorization", "Bearer t0ken"}};
      if (sent.method != "GET") sent.body = "secret";
      EXPECT_FALSE(exchange(http, sent).has_value()) << method;
    }
  }
  EXPECT_EQ(elsewhere.connections(), 0);
  int actions = 0;
  for (const auto& seen : server.seen()) actions += seen.body.empty() ? 0 : 1;
  EXPECT_EQ(actions, 6);
}

INSTANTIATE_TEST_SUITE_P(, HttpCrossOrigin, testing::Values(301, 302, 303, 307, 308));

}  // namespace
}  // namespace vellix
